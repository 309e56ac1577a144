<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="msg.file_open_fail"><source></source><translation>설정 파일을 저장할 수 없습니다.</translation></message>
</context>
</TS>
