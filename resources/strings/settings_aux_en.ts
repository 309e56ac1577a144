<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.aux.sdcard_capacity"><source></source><translation>Share of the card</translation></message>
    <message id="setting.aux.always"><source></source><translation>Continuous</translation></message>
    <message id="setting.aux.motion"><source></source><translation>Motion</translation></message>
    <message id="setting.aux.event"><source></source><translation>Event</translation></message>
    <message id="msg.memconfig_warning"><source></source><translation>Changing the shares may remove recordings from the card.</translation></message>
    <message id="setting.aux.motion_sense_setting"><source></source><translation>Motion detection</translation></message>
    <message id="setting.aux.motion_sense_use"><source></source><translation>Use motion detection</translation></message>
    <message id="setting.aux.hd_sensitivity"><source></source><translation>Sensitivity in HD</translation></message>
    <message id="setting.aux.fhd_sensitivity"><source></source><translation>Sensitivity in Full HD</translation></message>
    <message id="setting.aux.night_ae_setting"><source></source><translation>Exposure</translation></message>
    <message id="setting.aux.low"><source></source><translation>Low</translation></message>
    <message id="setting.aux.medium_sedan"><source></source><translation>Medium (sedan)</translation></message>
    <message id="setting.aux.high_suv"><source></source><translation>High (SUV)</translation></message>
    <message id="setting.aux.country_ac_power_setting"><source></source><translation>Mains frequency of the country</translation></message>
    <message id="setting.aux.place_of_use"><source></source><translation>Place of use</translation></message>
    <message id="setting.aux.place_of_use_vehicle"><source></source><translation>Vehicle</translation></message>
    <message id="setting.aux.place_of_use_indoor"><source></source><translation>Indoors</translation></message>
    <message id="setting.aux.place_of_use_guide"><source></source><translation>Choose “Indoors” when the camera watches a room instead of the road.</translation></message>
</context>
</TS>
