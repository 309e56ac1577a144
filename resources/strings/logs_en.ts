<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.obdinfoview"><source></source><translation>OBD log</translation></message>
    <message id="open"><source></source><translation>Open…</translation></message>
    <message id="export"><source></source><translation>Export…</translation></message>
    <message id="viewer.command.openDrivingLog"><source></source><translation>Open driving log…</translation></message>
    <message id="log.window_title"><source></source><translation>Driving log</translation></message>
    <message id="log.table"><source></source><translation>Records of the driving log</translation></message>
    <message id="log.file"><source></source><translation>Driving logs</translation></message>
    <message id="log.csv_file"><source></source><translation>Comma-separated text</translation></message>
    <message id="log.open_title"><source></source><translation>Open driving log</translation></message>
    <message id="log.export_title"><source></source><translation>Export driving log</translation></message>
    <message id="log.none"><source></source><translation>No driving log is open. “Open…” shows one from the card or from any folder.</translation></message>
    <message id="log.record"><source></source><translation>1 record</translation></message>
    <message id="log.records"><source></source><translation>%1 records</translation></message>
    <message id="log.ends_early"><source></source><translation>%1 of %2 records; the file ends early</translation></message>
    <message id="log.way"><source></source><translation>Show the whole route</translation></message>
    <message id="log.fault.cannot_open"><source></source><translation>“%1” cannot be opened. Check that the card is inserted and that you have permission to read the file.</translation></message>
    <message id="log.fault.no_log"><source></source><translation>“%1” is not a driving log.</translation></message>
    <message id="log.fault.no_memory"><source></source><translation>“%1” is too large for this computer's memory.</translation></message>
    <message id="log.fault.cannot_read"><source></source><translation>“%1” could not be read to its end. Check that the card is still in the reader, then open it again.</translation></message>
    <message id="log.export.failed"><source></source><translation>“%1” could not be written. %2</translation></message>
    <message id="log.export.full"><source></source><translation>There is not enough room on the disk.</translation></message>
    <message id="log.export.protected"><source></source><translation>You do not have permission to write there, or the disk is write-protected.</translation></message>
    <message id="log.export.gone"><source></source><translation>The folder or the disk is no longer there.</translation></message>
    <message id="log.export.same_file"><source></source><translation>It is the driving log itself. Choose another name.</translation></message>
    <message id="setting.flashdata.index"><source></source><translation>No.</translation></message>
    <message id="setting.flashdata.seq"><source></source><translation>Seq.</translation></message>
    <message id="setting.flashdata.date"><source></source><translation>Date</translation></message>
    <message id="setting.flashdata.time"><source></source><translation>Time</translation></message>
    <message id="setting.flashdata.yoil"><source></source><translation>Day</translation></message>
    <message id="setting.flashdata.lat"><source></source><translation>Latitude</translation></message>
    <message id="setting.flashdata.lon"><source></source><translation>Longitude</translation></message>
    <message id="setting.flashdata.driving_distance"><source></source><translation>Distance</translation></message>
    <message id="setting.flashdata.cur_speed"><source></source><translation>Speed</translation></message>
    <message id="setting.flashdata.max_speed"><source></source><translation>Max. speed</translation></message>
    <message id="setting.flashdata.value"><source></source><translation>GPS</translation></message>
    <message id="setting.flashdata.battery"><source></source><translation>Voltage</translation></message>
    <message id="setting.obdata.index"><source></source><translation>No.</translation></message>
    <message id="setting.obdata.seq"><source></source><translation>Seq.</translation></message>
    <message id="setting.obdata.date"><source></source><translation>Date</translation></message>
    <message id="setting.obdata.time"><source></source><translation>Time</translation></message>
    <message id="setting.obdata.yoil"><source></source><translation>Day</translation></message>
    <message id="setting.obdata.lat"><source></source><translation>Latitude</translation></message>
    <message id="setting.obdata.lon"><source></source><translation>Longitude</translation></message>
    <message id="setting.obdata.cur_speed"><source></source><translation>Speed</translation></message>
    <message id="setting.obdata.gps_speed"><source></source><translation>GPS speed</translation></message>
    <message id="setting.obdata.rpm"><source></source><translation>RPM</translation></message>
    <message id="setting.obdata.driving_distance"><source></source><translation>Distance</translation></message>
    <message id="setting.obdata.battery"><source></source><translation>Voltage</translation></message>
    <message id="setting.obdata.acp"><source></source><translation>Accelerator</translation></message>
    <message id="setting.obdata.fbk"><source></source><translation>Foot brake</translation></message>
    <message id="setting.obdata.rll"><source></source><translation>Right lamp</translation></message>
    <message id="setting.obdata.lll"><source></source><translation>Left lamp</translation></message>
    <message id="setting.obdata.swa"><source></source><translation>Steering</translation></message>
    <message id="setting.obdata.sbt"><source></source><translation>Seat belt</translation></message>
    <message id="setting.obdata.gel"><source></source><translation>Gear</translation></message>
    <message id="setting.obdata.gep"><source></source><translation>Gear lever</translation></message>
    <message id="setting.obdata.sbk"><source></source><translation>Side brake</translation></message>
    <message id="setting.obdata.tpa"><source></source><translation>TPA</translation></message>
    <message id="setting.obdata.abt"><source></source><translation>ABT</translation></message>
</context>
</TS>
