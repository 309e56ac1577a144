<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.gps.weekly_alarm"><source></source><translation>Weekly alarm</translation></message>
    <message id="setting.gps.gps_guide1"><source></source><translation>The settings on this page need a GPS receiver on the camera.</translation></message>
    <message id="setting.gps.speed_display"><source></source><translation>Speed unit</translation></message>
    <message id="setting.gps.gps_speed_guide1"><source></source><translation>Also used in this program once the settings are saved.</translation></message>
    <message id="setting.gps.timezone_setting"><source></source><translation>Time zone</translation></message>
    <message id="setting.gps.timezone_accessible"><source></source><translation>Time zone, difference from UTC</translation></message>
    <message id="setting.gps.gps_time_guide1"><source></source><translation>The camera sets its clock by GPS to the time of this zone.</translation></message>
    <message id="setting.gps.osd_speed_display"><source></source><translation>Speed on the camera's display</translation></message>
    <message id="setting.gps.driving_route_info_saving_interval"><source></source><translation>Saving interval of the driving route</translation></message>
    <message id="setting.gps.gps_on_parking_mode"><source></source><translation>GPS in parking mode</translation></message>
    <message id="setting.gps.gps_guide2"><source></source><translation>GPS uses some of the battery's power while parked.</translation></message>
    <message id="summerTime"><source></source><translation>Summer time</translation></message>
    <message id="nSecond_fmt"><source></source><translation>%1 s</translation></message>
    <message id="none"><source></source><translation>None</translation></message>
    <message id="mon"><source></source><translation>Mon</translation></message>
    <message id="tue"><source></source><translation>Tue</translation></message>
    <message id="wed"><source></source><translation>Wed</translation></message>
    <message id="thu"><source></source><translation>Thu</translation></message>
    <message id="fri"><source></source><translation>Fri</translation></message>
    <message id="sat"><source></source><translation>Sat</translation></message>
    <message id="sun"><source></source><translation>Sun</translation></message>
    <message id="off"><source></source><translation>Off</translation></message>
    <message id="on"><source></source><translation>On</translation></message>
</context>
</TS>
