<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.basic.display_setting"><source></source><translation>The camera's display</translation></message>
    <message id="setting.basic.display_setting_speed_time_date"><source></source><translation>Speed, time, date</translation></message>
    <message id="setting.basic.display_setting_speed_time"><source></source><translation>Speed, time</translation></message>
    <message id="setting.basic.display_setting_speed_date"><source></source><translation>Speed, date</translation></message>
    <message id="setting.basic.display_setting_time"><source></source><translation>Time</translation></message>
    <message id="setting.basic.recordimg_mode"><source></source><translation>Recording mode</translation></message>
    <message id="setting.basic.always_event"><source></source><translation>Continuous and event</translation></message>
    <message id="setting.basic.event_only"><source></source><translation>Event only</translation></message>
    <message id="setting.basic.enable_gsensor"><source></source><translation>Record impacts (G-sensor)</translation></message>
    <message id="setting.basic.driving_impact_sensitivity"><source></source><translation>Impact sensitivity while driving</translation></message>
    <message id="setting.basic.parking_impact_sensitivity"><source></source><translation>Impact sensitivity while parked</translation></message>
    <message id="setting.basic.customize"><source></source><translation>Custom</translation></message>
    <message id="setting.basic.axis_fmt"><source></source><translation>%1 (g)</translation></message>
    <message id="insensitive"><source></source><translation>low</translation></message>
    <message id="sensitive"><source></source><translation>high</translation></message>
    <message id="setting.basic.others"><source></source><translation>Camera</translation></message>
    <message id="setting.basic.enable_security_led"><source></source><translation>Security LED</translation></message>
    <message id="setting.basic.enable_high_temperature_safety_mode"><source></source><translation>High-temperature protection</translation></message>
    <message id="setting.basic.auto_switch_driving_mode"><source></source><translation>Switch to driving mode automatically</translation></message>
    <message id="setting.basic.auto_switch_parking_mode"><source></source><translation>Switch to parking mode automatically</translation></message>
    <message id="setting.basic.stanby_time_parking_mode"><source></source><translation>Standby time before parking mode</translation></message>
    <message id="setting.basic.stanby_time"><source></source><translation>Standby time</translation></message>
    <message id="setting.basic.3min"><source></source><translation>3 minutes</translation></message>
    <message id="setting.basic.5min"><source></source><translation>5 minutes</translation></message>
    <message id="setting.basic.7min"><source></source><translation>7 minutes</translation></message>
    <message id="setting.basic.10min"><source></source><translation>10 minutes</translation></message>
    <message id="setting.basic.15min"><source></source><translation>15 minutes</translation></message>
    <message id="setting.basic.video_out"><source></source><translation>Video output</translation></message>
    <message id="setting.basic.video_out_ntsc"><source></source><translation>NTSC</translation></message>
    <message id="setting.basic.video_out_pal"><source></source><translation>PAL</translation></message>
    <message id="setting.basic.video_out_use"><source></source><translation>For a screen connected to the camera's video output.</translation></message>
    <message id="setting.basic.car_number_input"><source></source><translation>Vehicle number</translation></message>
    <message id="setting.basic.cutoff_voltage_setting"><source></source><translation>Power cut-off while parked</translation></message>
    <message id="setting.basic.set_voltage"><source></source><translation>At a battery voltage of</translation></message>
    <message id="setting.basic.set_timer"><source></source><translation>After a time of</translation></message>
    <message id="setting.basic.use_external_power"><source></source><translation>External power supply</translation></message>
    <message id="setting.basic.power_guide"><source></source><translation>Protects the vehicle's battery. With an external power supply the camera is not cut off.</translation></message>
    <message id="unuse"><source></source><translation>Not used</translation></message>
    <message id="nHour_fmt"><source></source><translation>%1 hours</translation></message>
    <message id="msg.on_hightemperatureprotection"><source></source><translation>High-temperature protection is on. When the camera gets too hot, it stops recording until it has cooled down.</translation></message>
    <message id="msg.off_hightemperatureprotection"><source></source><translation>High-temperature protection is off. Heat may damage the camera.</translation></message>
</context>
</TS>
