<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.obd.obd_guide1"><source></source><translation>The settings on this page need an OBD adapter connected to the camera.</translation></message>
    <message id="setting.obd.weekly_alarm"><source></source><translation>Weekly alarm</translation></message>
    <message id="setting.obd.speed_display"><source></source><translation>Speed unit</translation></message>
    <message id="setting.obd.obd_speed_guide1"><source></source><translation>Also used in this program once the settings are saved.</translation></message>
    <message id="setting.obd.timezone_setting"><source></source><translation>Time zone</translation></message>
    <message id="setting.obd.timezone_accessible"><source></source><translation>Time zone, difference from UTC</translation></message>
    <message id="setting.obd.obd_time_guide1"><source></source><translation>The camera sets its clock to the time of this zone.</translation></message>
    <message id="setting.obd.osd_speed_display"><source></source><translation>Speed on the camera's display</translation></message>
    <message id="setting.obd.driving_route_info_saving_interval"><source></source><translation>Saving interval of the driving route</translation></message>
    <message id="setting.obd.obd_on_parking_mode"><source></source><translation>OBD in parking mode</translation></message>
    <message id="setting.obd.obd_guide2"><source></source><translation>OBD uses some of the battery's power while parked.</translation></message>
    <message id="setting.obd.cutoff_voltage_setting"><source></source><translation>Cut-off voltage</translation></message>
    <message id="setting.obd.obd_power_guide1"><source></source><translation>Below this battery voltage the parked camera switches off.</translation></message>
    <message id="setting.obd.eco_drive"><source></source><translation>Eco driving</translation></message>
    <message id="setting.obd.use_ecodrive"><source></source><translation>Rate how economically the car is driven</translation></message>
    <message id="setting.obd.eco_thresholds"><source></source><translation>Thresholds of eco and un-eco driving</translation></message>
    <message id="over"><source></source><translation>over</translation></message>
    <message id="under"><source></source><translation>under</translation></message>
</context>
</TS>
