<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="clock.wrong_clock"><source></source><translation>이 컴퓨터의 시계는 %1년입니다. 날짜를 직접 선택하십시오.</translation></message>
    <message id="clock.window_title"><source></source><translation>카메라 시계</translation></message>
    <message id="today"><source></source><translation>오늘</translation></message>
    <message id="clock.date"><source></source><translation>날짜</translation></message>
    <message id="clock.time"><source></source><translation>시간</translation></message>
    <message id="clock.face"><source></source><translation>시계판</translation></message>
    <message id="clock.face_help"><source></source><translation>시곗바늘을 끌어 시간을 맞추세요. 키보드에서는 왼쪽/오른쪽 화살표로 바늘을 고르고 위/아래 화살표로 돌립니다.</translation></message>
    <message id="clock.guide"><source></source><translation>카메라는 카드에서 이 파일을 찾으면 시계를 이 날짜와 시간으로 맞춥니다.</translation></message>
    <message id="clock.looking"><source></source><translation>카드를 찾는 중…</translation></message>
    <message id="clock.saved_on_card"><source></source><translation>카드에 저장: %1</translation></message>
    <message id="clock.asks_where"><source></source><translation>“timeset.cfg” 파일이 있는 카드가 없습니다. 저장할 위치를 묻습니다.</translation></message>
    <message id="clock.save_title"><source></source><translation>카메라 시계 저장</translation></message>
</context>
</TS>
