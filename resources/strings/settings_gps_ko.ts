<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.gps.weekly_alarm"><source></source><translation>주간 알림</translation></message>
    <message id="setting.gps.gps_guide1"><source></source><translation>이 페이지의 설정을 사용하려면 카메라에 GPS 수신기가 연결되어 있어야 합니다.</translation></message>
    <message id="setting.gps.speed_display"><source></source><translation>속도 단위</translation></message>
    <message id="setting.gps.gps_speed_guide1"><source></source><translation>설정을 저장하면 이 프로그램에서도 사용됩니다.</translation></message>
    <message id="setting.gps.timezone_setting"><source></source><translation>시간대</translation></message>
    <message id="setting.gps.timezone_accessible"><source></source><translation>시간대, UTC와의 차이</translation></message>
    <message id="setting.gps.gps_time_guide1"><source></source><translation>카메라의 시계를 GPS로 이 시간대에 맞춥니다.</translation></message>
    <message id="setting.gps.osd_speed_display"><source></source><translation>카메라 화면에 속도 표시</translation></message>
    <message id="setting.gps.driving_route_info_saving_interval"><source></source><translation>주행 경로 저장 간격</translation></message>
    <message id="setting.gps.gps_on_parking_mode"><source></source><translation>주차 모드에서 GPS 사용</translation></message>
    <message id="setting.gps.gps_guide2"><source></source><translation>주차 중 GPS를 사용하면 배터리 전력을 소모합니다.</translation></message>
    <message id="summerTime"><source></source><translation>서머타임</translation></message>
    <message id="nSecond_fmt"><source></source><translation>%1초</translation></message>
    <message id="none"><source></source><translation>없음</translation></message>
    <message id="mon"><source></source><translation>월</translation></message>
    <message id="tue"><source></source><translation>화</translation></message>
    <message id="wed"><source></source><translation>수</translation></message>
    <message id="thu"><source></source><translation>목</translation></message>
    <message id="fri"><source></source><translation>금</translation></message>
    <message id="sat"><source></source><translation>토</translation></message>
    <message id="sun"><source></source><translation>일</translation></message>
    <message id="off"><source></source><translation>끔</translation></message>
    <message id="on"><source></source><translation>켬</translation></message>
</context>
</TS>
