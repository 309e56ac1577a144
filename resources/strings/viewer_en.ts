<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="filelist.mode"><source></source><translation>Kind</translation></message>
    <message id="filelist.date"><source></source><translation>Date</translation></message>
    <message id="filelist.time"><source></source><translation>Time</translation></message>
    <message id="filelist.file"><source></source><translation>File</translation></message>
    <message id="viewer.list.name"><source></source><translation>Recordings</translation></message>
    <message id="viewer.list.unplayable"><source></source><translation>Cannot be played: %1</translation></message>
    <message id="viewer.list.playing"><source></source><translation>In the player</translation></message>
    <message id="viewer.playing.front"><source></source><translation>%1, front</translation></message>
    <message id="viewer.playing.rear"><source></source><translation>%1, rear</translation></message>
    <message id="viewer.list.scanning"><source></source><translation>Reading folder… %1</translation></message>
    <message id="viewer.list.noFolder"><source></source><translation>No folder open</translation></message>
    <message id="viewer.list.empty"><source></source><translation>No recordings in this folder</translation></message>
    <message id="viewer.list.emptyHelp"><source></source><translation>Recordings are AVI files named by the camera, such as event_20240517_081530.avi. Open the card itself or one of its movie folders.</translation></message>
    <message id="viewer.list.unreadable"><source></source><translation>This folder cannot be read</translation></message>
    <message id="viewer.list.unreadableHelp"><source></source><translation>%1. Check that the card is still inserted and that you may read it, then open it again.</translation></message>
    <message id="viewer.folder.count"><source></source><translation>%1 recordings</translation></message>
    <message id="viewer.folder.countOne"><source></source><translation>1 recording</translation></message>
    <message id="viewer.folder.incomplete"><source></source><translation>%1; not all could be read: %2</translation></message>
    <message id="viewer.folder.reading"><source></source><translation>Reading…</translation></message>
    <message id="viewer.folder.unreadable"><source></source><translation>Cannot be read</translation></message>
    <message id="viewer.folder.choose"><source></source><translation>Open a folder of recordings</translation></message>
    <message id="viewer.folder.cannotOpen"><source></source><translation>The folder “%1” cannot be opened. Check its name, and that the card is inserted.</translation></message>
    <message id="viewer.side.recordings"><source></source><translation>Recordings</translation></message>
    <message id="viewer.side.map"><source></source><translation>Map</translation></message>
    <message id="viewer.data.speed"><source></source><translation>Speed</translation></message>
    <message id="viewer.data.longitude"><source></source><translation>Longitude</translation></message>
    <message id="viewer.data.latitude"><source></source><translation>Latitude</translation></message>
    <message id="viewer.data.hdop"><source></source><translation>HDOP</translation></message>
    <message id="viewer.data.satellites"><source></source><translation>Satellites</translation></message>
    <message id="viewer.gsensor.caption"><source></source><translation>G-sensor</translation></message>
    <message id="viewer.gsensor.graph"><source></source><translation>G-sensor graph</translation></message>
    <message id="viewer.gsensor.x"><source></source><translation>G-sensor, x axis, in g</translation></message>
    <message id="viewer.gsensor.y"><source></source><translation>G-sensor, y axis, in g</translation></message>
    <message id="viewer.gsensor.z"><source></source><translation>G-sensor, z axis, in g</translation></message>
    <message id="viewer.control.position"><source></source><translation>Play position</translation></message>
    <message id="viewer.control.time"><source></source><translation>Time played</translation></message>
    <message id="viewer.control.length"><source></source><translation>Length of the recording</translation></message>
    <message id="viewer.control.volume"><source></source><translation>Volume</translation></message>
    <message id="viewer.control.speed"><source></source><translation>Playback speed</translation></message>
    <message id="viewer.control.size"><source></source><translation>Picture size</translation></message>
    <message id="viewer.window.minimise"><source></source><translation>Minimise</translation></message>
    <message id="viewer.window.zoom"><source></source><translation>Maximise or restore</translation></message>
    <message id="viewer.menu.playback"><source></source><translation>Playback</translation></message>
    <message id="viewer.menu.sound"><source></source><translation>Sound</translation></message>
    <message id="viewer.menu.view"><source></source><translation>View</translation></message>
    <message id="viewer.menu.language"><source></source><translation>Language</translation></message>
    <message id="viewer.language.desktop"><source></source><translation>As the desktop</translation></message>
    <message id="viewer.language.nextStart"><source></source><translation>The new language holds from the next start of MARVO.</translation></message>
    <message id="viewer.command.openMediaDirectoryDialog"><source></source><translation>Open folder…</translation></message>
    <message id="viewer.command.showSettingPanel"><source></source><translation>Camera settings…</translation></message>
    <message id="viewer.command.showTimeSetupPanel"><source></source><translation>Camera clock…</translation></message>
    <message id="viewer.command.captureVideo"><source></source><translation>Save picture…</translation></message>
    <message id="viewer.command.print"><source></source><translation>Print picture…</translation></message>
    <message id="viewer.command.changeAndPlay"><source></source><translation>Play the selected recording</translation></message>
    <message id="viewer.command.clickPlayButton"><source></source><translation>Play or pause</translation></message>
    <message id="viewer.command.jumpBackward"><source></source><translation>Back %1 seconds</translation></message>
    <message id="viewer.command.jumpForward"><source></source><translation>Forward %1 seconds</translation></message>
    <message id="viewer.command.decreaseSpeed"><source></source><translation>Normal speed (1×)</translation></message>
    <message id="viewer.command.increaseSpeed"><source></source><translation>Double speed (2×)</translation></message>
    <message id="viewer.command.volumeDown"><source></source><translation>Quieter</translation></message>
    <message id="viewer.command.volumeUp"><source></source><translation>Louder</translation></message>
    <message id="viewer.command.sizeDown"><source></source><translation>Smaller window</translation></message>
    <message id="viewer.command.sizeUp"><source></source><translation>Larger window</translation></message>
    <message id="viewer.command.keepWindow"><source></source><translation>Keep the window as it is</translation></message>
    <message id="viewer.keepWindowTip"><source></source><translation>When the next recording follows by itself, window size and full screen stay.</translation></message>
    <message id="viewer.command.toggleFullScreen"><source></source><translation>Full screen</translation></message>
    <message id="viewer.command.clickMediaListViewButton"><source></source><translation>Recordings</translation></message>
    <message id="viewer.command.clickMapViewButton"><source></source><translation>Map</translation></message>
    <message id="viewer.command.showMenu"><source></source><translation>Menu</translation></message>
    <message id="viewer.command.closeWindow"><source></source><translation>Close window</translation></message>
    <message id="viewer.command.quit"><source></source><translation>Quit MARVO</translation></message>
</context>
</TS>
