<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="msg.input_value_invalid_format"><source></source><translation>Please enter a number.</translation></message>
    <message id="msg.gsensor_outofrange_fmt"><source></source><translation>Please enter a value from %1 to %2.</translation></message>
    <message id="msg.sdcard_ratio_too_low"><source></source><translation>Each kind of recording needs at least 10 % of the memory card.</translation></message>
</context>
</TS>
