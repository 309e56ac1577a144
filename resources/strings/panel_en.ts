<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="graph.value"><source></source><translation>%1 % of the recording</translation></message>
    <message id="graph.no_data"><source></source><translation>No G-sensor readings</translation></message>
</context>
</TS>
