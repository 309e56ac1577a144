<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="format.no_answer"><source></source><translation>The disk service does not answer. It is asked again.</translation></message>
    <message id="format.too_small"><source></source><translation>This card is too small: the camera needs at least 33 MB.</translation></message>
    <message id="format.too_large"><source></source><translation>This card is too large: the camera can use at most 2 TiB.</translation></message>
    <message id="format.sector_size"><source></source><translation>This card has sectors of %1 bytes. The camera needs sectors of 512 bytes.</translation></message>
    <message id="setting.format.title"><source></source><translation>Format card</translation></message>
    <message id="setting.format.volume"><source></source><translation>Card</translation></message>
    <message id="setting.format.device"><source></source><translation>Device</translation></message>
    <message id="setting.format.allocation_unit_size"><source></source><translation>Allocation unit size</translation></message>
    <message id="setting.format.filesystem"><source></source><translation>File system</translation></message>
    <message id="setting.format.format"><source></source><translation>Format</translation></message>
    <message id="setting.format.no_card"><source></source><translation>No card in a USB reader</translation></message>
    <message id="setting.format.choose"><source></source><translation>Choose a card</translation></message>
    <message id="msg.cannot_format"><source></source><translation>The card cannot be formatted</translation></message>
    <message id="msg.format_complete"><source></source><translation>The card has been formatted</translation></message>
    <message id="msg.format.warning"><source></source><translation>Format this card?</translation></message>
    <message id="msg.format.will_erase"><source></source><translation>Everything on it will be erased: %1.</translation></message>
    <message id="msg.format.settings_stay"><source></source><translation>The camera settings are put back afterwards.</translation></message>
    <message id="msg.format.settings_lost"><source></source><translation>The camera settings on it cannot be read and will be replaced by those of a new camera.</translation></message>
    <message id="format.contents.none"><source></source><translation>no recordings</translation></message>
    <message id="format.contents.unknown"><source></source><translation>recordings that cannot be counted</translation></message>
    <message id="format.contents.one"><source></source><translation>1 recording</translation></message>
    <message id="format.contents.many"><source></source><translation>%1 recordings</translation></message>
    <message id="format.step.look"><source></source><translation>Looking at what is on the card</translation></message>
    <message id="format.step.keep"><source></source><translation>Keeping a copy of the camera settings</translation></message>
    <message id="format.step.unmount"><source></source><translation>Unmounting the card</translation></message>
    <message id="format.step.password"><source></source><translation>Waiting for the administrator's password</translation></message>
    <message id="format.step.prepare"><source></source><translation>Preparing the new file system</translation></message>
    <message id="format.step.write"><source></source><translation>Writing to the card – do not remove it</translation></message>
    <message id="format.step.readback"><source></source><translation>Reading back what was written – do not remove the card</translation></message>
    <message id="format.step.mount"><source></source><translation>Waiting for the new file system – do not remove the card</translation></message>
    <message id="format.step.restore"><source></source><translation>Putting the camera settings back – do not remove the card</translation></message>
    <message id="msg.format.refused"><source></source><translation>The password was not accepted. Nothing on the card has been changed.</translation></message>
    <message id="msg.format.dismissed"><source></source><translation>No password was entered. Nothing on the card has been changed.</translation></message>
    <message id="msg.format.nobody_asks"><source></source><translation>This desktop has no program that asks for the administrator's password. Nothing on the card has been changed.</translation></message>
    <message id="msg.format.changed"><source></source><translation>The card is no longer the one that was chosen, or it has been removed. Nothing has been written. Choose it again.</translation></message>
    <message id="msg.format.removed"><source></source><translation>The card was removed while it was being written. Put it back in and format it again.</translation></message>
    <message id="msg.format.busy"><source></source><translation>A program is using the card. Close it and try again.</translation></message>
    <message id="msg.format.unsuitable"><source></source><translation>FAT32 cannot be used on a card of this size.</translation></message>
    <message id="msg.format.no_formatter"><source></source><translation>The program mkfs.fat (package dosfstools) is not installed.</translation></message>
    <message id="msg.format.mismatch"><source></source><translation>What was written reads back differently. The card may be worn out.</translation></message>
    <message id="msg.format.erased"><source></source><translation>The card can no longer be used as it is. Format it again.</translation></message>
    <message id="msg.format.kept"><source></source><translation>A copy of the camera settings is kept in
%1</translation></message>
    <message id="msg.format.not_mounted"><source></source><translation>The card was formatted but could not be opened. Format it once more.</translation></message>
    <message id="msg.format.incomplete"><source></source><translation>The card does not hold what was written to it.</translation></message>
</context>
</TS>
