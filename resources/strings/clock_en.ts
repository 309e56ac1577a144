<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="clock.wrong_clock"><source></source><translation>This computer's clock says %1. Choose the date by hand.</translation></message>
    <message id="clock.window_title"><source></source><translation>Camera clock</translation></message>
    <message id="today"><source></source><translation>Today</translation></message>
    <message id="clock.date"><source></source><translation>Date</translation></message>
    <message id="clock.time"><source></source><translation>Time</translation></message>
    <message id="clock.face"><source></source><translation>Clock face</translation></message>
    <message id="clock.face_help"><source></source><translation>Drag a hand. With the keyboard: left and right choose a hand, up and down turn it.</translation></message>
    <message id="clock.guide"><source></source><translation>The camera sets its clock to this moment when it finds the file on its card.</translation></message>
    <message id="clock.looking"><source></source><translation>Looking for the card…</translation></message>
    <message id="clock.saved_on_card"><source></source><translation>Will be saved on the card: %1</translation></message>
    <message id="clock.asks_where"><source></source><translation>No card holds “timeset.cfg” yet: you will be asked where to save it.</translation></message>
    <message id="clock.save_title"><source></source><translation>Save camera clock</translation></message>
</context>
</TS>
