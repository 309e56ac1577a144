<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="play.error_missing"><source></source><translation>The file is no longer there.</translation></message>
    <message id="play.lost"><source></source><translation>The recording cannot be read any more. Is the card still in the reader?</translation></message>
    <message id="play.error_no_access"><source></source><translation>You do not have permission to read this file.</translation></message>
    <message id="play.error_not_a_file"><source></source><translation>This is not a file.</translation></message>
    <message id="play.error_empty"><source></source><translation>The file is empty.</translation></message>
    <message id="play.error_cannot_read"><source></source><translation>The recording cannot be read: the card is damaged or has been pulled out.</translation></message>
    <message id="play.error_not_avi"><source></source><translation>This is not an AVI recording.</translation></message>
    <message id="play.error_no_video"><source></source><translation>The recording holds no video.</translation></message>
    <message id="play.error_unreadable"><source></source><translation>The recording is damaged: no picture could be read from it.</translation></message>
    <message id="play.error_no_answer"><source></source><translation>The card does not answer.</translation></message>
    <message id="play.error_engine"><source></source><translation>The media player could not be loaded. Install the package vlc-plugin-base.</translation></message>
</context>
</TS>
