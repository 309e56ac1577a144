<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="map.name"><source></source><translation>지도</translation></message>
    <message id="map.window_title"><source></source><translation>지도</translation></message>
    <message id="map.unavailable"><source></source><translation>이 컴퓨터에서는 지도를 표시할 수 없습니다.</translation></message>
</context>
</TS>
