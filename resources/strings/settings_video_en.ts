<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.video.resolution"><source></source><translation>Resolution</translation></message>
    <message id="setting.video.resolution_full_hd"><source></source><translation>Full HD (1920 x 1080)</translation></message>
    <message id="setting.video.resolution_hd"><source></source><translation>HD (1280 x 720)</translation></message>
    <message id="setting.video.frame_rate"><source></source><translation>Frame rate</translation></message>
    <message id="setting.video.frame_rate_24"><source></source><translation>24 fps</translation></message>
    <message id="setting.video.frame_rate_30"><source></source><translation>30 fps</translation></message>
    <message id="setting.video.quality"><source></source><translation>Video quality (Mbit/s)</translation></message>
    <message id="setting.video.quality_normal"><source></source><translation>Normal</translation></message>
    <message id="setting.video.quality_high"><source></source><translation>High</translation></message>
    <message id="setting.video.quality_highest"><source></source><translation>Highest</translation></message>
    <message id="setting.video.bitrate_guide"><source></source><translation>A higher bit rate gives a clearer picture, but larger files: the card then holds fewer hours of driving.</translation></message>
    <message id="3"><source></source><translation>3</translation></message>
    <message id="4"><source></source><translation>4</translation></message>
    <message id="5"><source></source><translation>5</translation></message>
    <message id="6"><source></source><translation>6</translation></message>
    <message id="7"><source></source><translation>7</translation></message>
    <message id="8"><source></source><translation>8</translation></message>
    <message id="9"><source></source><translation>9</translation></message>
    <message id="10"><source></source><translation>10</translation></message>
    <message id="11"><source></source><translation>11</translation></message>
    <message id="setting.video.video_setting"><source></source><translation>Picture</translation></message>
    <message id="brightness"><source></source><translation>Brightness</translation></message>
    <message id="cplandtinting"><source></source><translation>CPL filter and tint</translation></message>
    <message id="sharpness"><source></source><translation>Sharpness</translation></message>
    <message id="noisefilter"><source></source><translation>Noise filter</translation></message>
    <message id="default"><source></source><translation>default</translation></message>
</context>
</TS>
