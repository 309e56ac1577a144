<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="media.always"><source></source><translation>Continuous</translation></message>
    <message id="media.motion"><source></source><translation>Motion</translation></message>
    <message id="media.event"><source></source><translation>Event</translation></message>
    <message id="media.unknown"><source></source><translation>Unknown</translation></message>
</context>
</TS>
