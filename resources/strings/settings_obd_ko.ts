<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.obd.obd_guide1"><source></source><translation>이 페이지의 설정을 사용하려면 카메라에 OBD 어댑터가 연결되어 있어야 합니다.</translation></message>
    <message id="setting.obd.weekly_alarm"><source></source><translation>주간 알림</translation></message>
    <message id="setting.obd.speed_display"><source></source><translation>속도 단위</translation></message>
    <message id="setting.obd.obd_speed_guide1"><source></source><translation>설정을 저장하면 이 프로그램에서도 사용됩니다.</translation></message>
    <message id="setting.obd.timezone_setting"><source></source><translation>시간대</translation></message>
    <message id="setting.obd.timezone_accessible"><source></source><translation>시간대, UTC와의 차이</translation></message>
    <message id="setting.obd.obd_time_guide1"><source></source><translation>카메라의 시계를 이 시간대에 맞춥니다.</translation></message>
    <message id="setting.obd.osd_speed_display"><source></source><translation>카메라 화면에 속도 표시</translation></message>
    <message id="setting.obd.driving_route_info_saving_interval"><source></source><translation>주행 경로 저장 간격</translation></message>
    <message id="setting.obd.obd_on_parking_mode"><source></source><translation>주차 모드에서 OBD 사용</translation></message>
    <message id="setting.obd.obd_guide2"><source></source><translation>주차 중 OBD를 사용하면 배터리 전력을 소모합니다.</translation></message>
    <message id="setting.obd.cutoff_voltage_setting"><source></source><translation>차단 전압</translation></message>
    <message id="setting.obd.obd_power_guide1"><source></source><translation>주차 중 배터리가 이 전압보다 낮아지면 카메라가 꺼집니다.</translation></message>
    <message id="setting.obd.eco_drive"><source></source><translation>에코 주행</translation></message>
    <message id="setting.obd.use_ecodrive"><source></source><translation>에코 주행 평가 사용</translation></message>
    <message id="setting.obd.eco_thresholds"><source></source><translation>에코 주행과 비에코 주행의 기준</translation></message>
    <message id="over"><source></source><translation>이상</translation></message>
    <message id="under"><source></source><translation>미만</translation></message>
</context>
</TS>
