<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.window_title"><source></source><translation>카메라 설정</translation></message>
    <message id="setting.video"><source></source><translation>영상</translation></message>
    <message id="setting.basic"><source></source><translation>기본</translation></message>
    <message id="setting.gps"><source></source><translation>GPS</translation></message>
    <message id="setting.aux"><source></source><translation>녹화</translation></message>
    <message id="setting.audio"><source></source><translation>오디오</translation></message>
    <message id="setting.obd"><source></source><translation>OBD</translation></message>
    <message id="setting.driveinfoview"><source></source><translation>주행 기록</translation></message>
    <message id="setting.information"><source></source><translation>주행 기록</translation></message>
    <message id="setting.sdcardformat"><source></source><translation>카드 포맷…</translation></message>
    <message id="setting.initialize"><source></source><translation>기본값으로 초기화</translation></message>
    <message id="save"><source></source><translation>저장</translation></message>
    <message id="cancel"><source></source><translation>취소</translation></message>
    <message id="setting.tools"><source></source><translation>도구</translation></message>
    <message id="setting.disk_utility"><source></source><translation>디스크 유틸리티</translation></message>
    <message id="setting.restore_earlier"><source></source><translation>이전 설정 파일 복원…</translation></message>
    <message id="setting.open_file"><source></source><translation>설정 파일 열기…</translation></message>
    <message id="setting.file"><source></source><translation>설정 파일</translation></message>
    <message id="setting.defaults_shown"><source></source><translation>카메라 설정이 들어 있는 카드를 찾지 못해 기본값을 표시합니다.</translation></message>
    <message id="msg.no_settings_file"><source></source><translation>카메라 설정 파일이 아닙니다: %1</translation></message>
    <message id="setting.camera_with_obd"><source></source><translation>OBD 어댑터가 있는 카메라</translation></message>
    <message id="setting.earlier.title"><source></source><translation>이전 설정 파일</translation></message>
    <message id="setting.earlier.guide"><source></source><translation>이 창으로 되돌릴 설정을 선택하세요. 저장하기 전에는 카드에 아무것도 기록되지 않습니다.</translation></message>
    <message id="setting.earlier.none"><source></source><translation>아직 보관된 이전 설정 파일이 없습니다. 저장할 때마다 이전 파일이 보관됩니다.</translation></message>
    <message id="setting.earlier.use"><source></source><translation>복원</translation></message>
    <message id="setting.unsaved.question"><source></source><translation>변경한 카메라 설정을 저장할까요?</translation></message>
    <message id="setting.unsaved.guide"><source></source><translation>저장하지 않으면 변경 내용이 사라집니다.</translation></message>
    <message id="setting.unsaved.discard"><source></source><translation>저장 안 함</translation></message>
    <message id="msg.saved"><source></source><translation>저장했습니다.&#10;</translation></message>
    <message id="msg.write_protected_disk"><source></source><translation>파일을 저장할 수 없습니다. 카드나 디스크가 연결되어 있는지, 빈 공간이 있는지, 쓰기 방지되어 있지 않은지 확인하세요.</translation></message>
    <message id="msg.no_disk_utility"><source></source><translation>이 컴퓨터에 디스크 유틸리티가 설치되어 있지 않습니다.</translation></message>
    <message id="msg.earlier_unreadable"><source></source><translation>이전 설정 파일을 읽을 수 없습니다.</translation></message>
</context>
</TS>
