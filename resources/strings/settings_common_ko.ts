<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="msg.input_value_invalid_format"><source></source><translation>숫자를 입력하세요.</translation></message>
    <message id="msg.gsensor_outofrange_fmt"><source></source><translation>%1에서 %2 사이의 값을 입력하세요.</translation></message>
    <message id="msg.sdcard_ratio_too_low"><source></source><translation>녹화 종류마다 메모리 카드의 10% 이상을 배분해야 합니다.</translation></message>
</context>
</TS>
