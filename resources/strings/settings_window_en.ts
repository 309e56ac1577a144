<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.window_title"><source></source><translation>Camera settings</translation></message>
    <message id="setting.video"><source></source><translation>Video</translation></message>
    <message id="setting.basic"><source></source><translation>Basic</translation></message>
    <message id="setting.gps"><source></source><translation>GPS</translation></message>
    <message id="setting.aux"><source></source><translation>Recording</translation></message>
    <message id="setting.audio"><source></source><translation>Audio</translation></message>
    <message id="setting.obd"><source></source><translation>OBD</translation></message>
    <message id="setting.driveinfoview"><source></source><translation>Driving log</translation></message>
    <message id="setting.information"><source></source><translation>Driving log</translation></message>
    <message id="setting.sdcardformat"><source></source><translation>Format card…</translation></message>
    <message id="setting.initialize"><source></source><translation>Reset to defaults</translation></message>
    <message id="save"><source></source><translation>Save</translation></message>
    <message id="cancel"><source></source><translation>Cancel</translation></message>
    <message id="setting.tools"><source></source><translation>Tools</translation></message>
    <message id="setting.disk_utility"><source></source><translation>Disk utility</translation></message>
    <message id="setting.restore_earlier"><source></source><translation>Restore an earlier settings file…</translation></message>
    <message id="setting.open_file"><source></source><translation>Open settings file…</translation></message>
    <message id="setting.file"><source></source><translation>Settings file</translation></message>
    <message id="setting.defaults_shown"><source></source><translation>No card with camera settings was found. The default settings are shown.</translation></message>
    <message id="msg.no_settings_file"><source></source><translation>“%1” is not a camera settings file.</translation></message>
    <message id="setting.camera_with_obd"><source></source><translation>Camera with OBD adapter</translation></message>
    <message id="setting.earlier.title"><source></source><translation>Earlier settings files</translation></message>
    <message id="setting.earlier.guide"><source></source><translation>Choose the settings to bring back into this window. Nothing is written to the card before you save.</translation></message>
    <message id="setting.earlier.none"><source></source><translation>No earlier settings file has been kept yet. One is kept each time a save replaces it.</translation></message>
    <message id="setting.earlier.use"><source></source><translation>Restore</translation></message>
    <message id="setting.unsaved.question"><source></source><translation>Save the changes to the camera settings?</translation></message>
    <message id="setting.unsaved.guide"><source></source><translation>Without saving, the changes are lost.</translation></message>
    <message id="setting.unsaved.discard"><source></source><translation>Don't save</translation></message>
    <message id="msg.saved"><source></source><translation>Saved.&#10;</translation></message>
    <message id="msg.write_protected_disk"><source></source><translation>The file could not be written. Check that the card or disk is still there, has free space, and is not write-protected.</translation></message>
    <message id="msg.no_disk_utility"><source></source><translation>No disk utility is installed on this computer.</translation></message>
    <message id="msg.earlier_unreadable"><source></source><translation>The earlier settings file could not be read.</translation></message>
</context>
</TS>
