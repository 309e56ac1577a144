<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="media.always"><source></source><translation>상시</translation></message>
    <message id="media.motion"><source></source><translation>모션</translation></message>
    <message id="media.event"><source></source><translation>이벤트</translation></message>
    <message id="media.unknown"><source></source><translation>알 수 없음</translation></message>
</context>
</TS>
