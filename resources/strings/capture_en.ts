<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="capture.save.folder"><source></source><translation>Folder:</translation></message>
    <message id="capture.save.name"><source></source><translation>File name:</translation></message>
    <message id="capture.save.type"><source></source><translation>Show:</translation></message>
    <message id="capture.save.accept"><source></source><translation>Save</translation></message>
    <message id="capture.save.cancel"><source></source><translation>Cancel</translation></message>
    <message id="capture.save.allFiles"><source></source><translation>All files (*)</translation></message>
    <message id="capture.save.taken"><source></source><translation>“%1” exists already and will be left as it is. Choose another name.</translation></message>
    <message id="capture.still_saved"><source></source><translation>Saved as %1</translation></message>
    <message id="capture.still_failed"><source></source><translation>The still was not saved: %1</translation></message>
    <message id="capture.only_playing"><source></source><translation>A picture can be saved this way while the recording plays. K saves a still at once, also in pause.</translation></message>
    <message id="print.no_file"><source></source><translation>Nothing is made when the printer is a file. Use “Save picture…” for a file.</translation></message>
    <message id="print.title"><source></source><translation>Print picture</translation></message>
</context>
</TS>
