<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="viewer.command.findRecording"><source></source><translation>Search recordings</translation></message>
    <message id="folders.search"><source></source><translation>Search</translation></message>
    <message id="folders.searchTip"><source></source><translation>Type a date, a time, a kind or part of a file name</translation></message>
    <message id="folders.onlyKind"><source></source><translation>Show only: %1</translation></message>
    <message id="folders.nothingFound"><source></source><translation>No recording found</translation></message>
    <message id="folders.nothingFoundHelp"><source></source><translation>No recording in this folder matches the search.</translation></message>
    <message id="folders.showAll"><source></source><translation>Show all recordings</translation></message>
    <message id="folders.shownOf"><source></source><translation>%1 of %2 recordings</translation></message>
    <message id="folders.recentFolders"><source></source><translation>Recent folders</translation></message>
    <message id="folders.clearRecent"><source></source><translation>Clear this list</translation></message>
    <message id="folders.return"><source></source><translation>Continue %1 at %2</translation></message>
    <message id="folders.returnNot"><source></source><translation>Do not continue</translation></message>
    <message id="folders.play"><source></source><translation>Play</translation></message>
    <message id="folders.showInFolder"><source></source><translation>Show in folder</translation></message>
    <message id="folders.copyPath"><source></source><translation>Copy path</translation></message>
    <message id="folders.volume"><source></source><translation>Volume %1</translation></message>
    <message id="folders.dropHere"><source></source><translation>Drop to open</translation></message>
    <message id="folders.firstSteps"><source></source><translation>Put the camera's memory card into the card reader.
Open the card or a folder of recordings, or drop it onto this window.
Double-click a recording to play it.</translation></message>
    <message id="folders.openCard"><source></source><translation>Open card “%1”</translation></message>
    <message id="folders.cannotShowInFolder"><source></source><translation>There is no file manager that could show the file. It is here:
%1</translation></message>
</context>
</TS>
