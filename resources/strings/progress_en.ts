<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="progress.name"><source></source><translation>Progress</translation></message>
    <message id="progress.busy"><source></source><translation>Busy</translation></message>
    <message id="progress.completed"><source></source><translation>%1 % completed</translation></message>
    <message id="progress.completed_remaining"><source></source><translation>%1 % completed - %2</translation></message>
    <message id="progress.minutes"><source></source><translation>About %1 minutes remaining</translation></message>
    <message id="progress.ten_minutes"><source></source><translation>About ten minutes remaining</translation></message>
    <message id="progress.nine_minutes"><source></source><translation>About nine minutes remaining</translation></message>
    <message id="progress.eight_minutes"><source></source><translation>About eight minutes remaining</translation></message>
    <message id="progress.seven_minutes"><source></source><translation>About seven minutes remaining</translation></message>
    <message id="progress.six_minutes"><source></source><translation>About six minutes remaining</translation></message>
    <message id="progress.five_minutes"><source></source><translation>About five minutes remaining</translation></message>
    <message id="progress.four_minutes"><source></source><translation>About four minutes remaining</translation></message>
    <message id="progress.three_minutes"><source></source><translation>About three minutes remaining</translation></message>
    <message id="progress.two_minutes"><source></source><translation>About two minutes remaining</translation></message>
    <message id="progress.one_minute"><source></source><translation>About one minute remaining</translation></message>
    <message id="progress.under_a_minute"><source></source><translation>Less than a minute remaining</translation></message>
    <message id="progress.ten_seconds"><source></source><translation>About ten seconds remaining</translation></message>
    <message id="progress.five_seconds"><source></source><translation>About five seconds remaining</translation></message>
</context>
</TS>
