<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="map.name"><source></source><translation>Map</translation></message>
    <message id="map.window_title"><source></source><translation>Map</translation></message>
    <message id="map.unavailable"><source></source><translation>The map cannot be shown on this computer.</translation></message>
</context>
</TS>
