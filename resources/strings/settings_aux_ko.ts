<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.aux.sdcard_capacity"><source></source><translation>카드 용량 배분</translation></message>
    <message id="setting.aux.always"><source></source><translation>상시</translation></message>
    <message id="setting.aux.motion"><source></source><translation>모션</translation></message>
    <message id="setting.aux.event"><source></source><translation>이벤트</translation></message>
    <message id="msg.memconfig_warning"><source></source><translation>배분을 바꾸면 카드의 녹화 파일이 지워질 수 있습니다.</translation></message>
    <message id="setting.aux.motion_sense_setting"><source></source><translation>모션 감지</translation></message>
    <message id="setting.aux.motion_sense_use"><source></source><translation>모션 감지 사용</translation></message>
    <message id="setting.aux.hd_sensitivity"><source></source><translation>HD 감도</translation></message>
    <message id="setting.aux.fhd_sensitivity"><source></source><translation>Full HD 감도</translation></message>
    <message id="setting.aux.night_ae_setting"><source></source><translation>노출</translation></message>
    <message id="setting.aux.low"><source></source><translation>낮음</translation></message>
    <message id="setting.aux.medium_sedan"><source></source><translation>중간 (승용차)</translation></message>
    <message id="setting.aux.high_suv"><source></source><translation>높음 (SUV)</translation></message>
    <message id="setting.aux.country_ac_power_setting"><source></source><translation>국가별 전원 주파수</translation></message>
    <message id="setting.aux.place_of_use"><source></source><translation>사용 장소</translation></message>
    <message id="setting.aux.place_of_use_vehicle"><source></source><translation>차량</translation></message>
    <message id="setting.aux.place_of_use_indoor"><source></source><translation>실내</translation></message>
    <message id="setting.aux.place_of_use_guide"><source></source><translation>카메라를 차량이 아닌 실내에서 사용할 때는 “실내”를 선택하세요.</translation></message>
</context>
</TS>
