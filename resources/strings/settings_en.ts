<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="msg.file_open_fail"><source></source><translation>The settings file could not be written.</translation></message>
</context>
</TS>
