<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="graph.value"><source></source><translation>녹화의 %1% 지점</translation></message>
    <message id="graph.no_data"><source></source><translation>G센서 기록 없음</translation></message>
</context>
</TS>
