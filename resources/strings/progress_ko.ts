<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="progress.name"><source></source><translation>진행률</translation></message>
    <message id="progress.busy"><source></source><translation>작업 중</translation></message>
    <message id="progress.completed"><source></source><translation>%1% 완료</translation></message>
    <message id="progress.completed_remaining"><source></source><translation>%1% 완료 - %2</translation></message>
    <message id="progress.minutes"><source></source><translation>약 %1분 남음</translation></message>
    <message id="progress.ten_minutes"><source></source><translation>약 10분 남음</translation></message>
    <message id="progress.nine_minutes"><source></source><translation>약 9분 남음</translation></message>
    <message id="progress.eight_minutes"><source></source><translation>약 8분 남음</translation></message>
    <message id="progress.seven_minutes"><source></source><translation>약 7분 남음</translation></message>
    <message id="progress.six_minutes"><source></source><translation>약 6분 남음</translation></message>
    <message id="progress.five_minutes"><source></source><translation>약 5분 남음</translation></message>
    <message id="progress.four_minutes"><source></source><translation>약 4분 남음</translation></message>
    <message id="progress.three_minutes"><source></source><translation>약 3분 남음</translation></message>
    <message id="progress.two_minutes"><source></source><translation>약 2분 남음</translation></message>
    <message id="progress.one_minute"><source></source><translation>약 1분 남음</translation></message>
    <message id="progress.under_a_minute"><source></source><translation>1분 미만 남음</translation></message>
    <message id="progress.ten_seconds"><source></source><translation>약 10초 남음</translation></message>
    <message id="progress.five_seconds"><source></source><translation>약 5초 남음</translation></message>
</context>
</TS>
