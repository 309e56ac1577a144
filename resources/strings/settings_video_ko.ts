<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.video.resolution"><source></source><translation>해상도</translation></message>
    <message id="setting.video.resolution_full_hd"><source></source><translation>Full HD (1920 x 1080)</translation></message>
    <message id="setting.video.resolution_hd"><source></source><translation>HD (1280 x 720)</translation></message>
    <message id="setting.video.frame_rate"><source></source><translation>프레임 속도</translation></message>
    <message id="setting.video.frame_rate_24"><source></source><translation>24 fps</translation></message>
    <message id="setting.video.frame_rate_30"><source></source><translation>30 fps</translation></message>
    <message id="setting.video.quality"><source></source><translation>영상 화질 (Mbit/s)</translation></message>
    <message id="setting.video.quality_normal"><source></source><translation>보통</translation></message>
    <message id="setting.video.quality_high"><source></source><translation>고화질</translation></message>
    <message id="setting.video.quality_highest"><source></source><translation>최고화질</translation></message>
    <message id="setting.video.bitrate_guide"><source></source><translation>비트레이트가 높을수록 화질이 선명해지지만 파일이 커져 카드에 저장되는 주행 시간이 줄어듭니다.</translation></message>
    <message id="3"><source></source><translation>3</translation></message>
    <message id="4"><source></source><translation>4</translation></message>
    <message id="5"><source></source><translation>5</translation></message>
    <message id="6"><source></source><translation>6</translation></message>
    <message id="7"><source></source><translation>7</translation></message>
    <message id="8"><source></source><translation>8</translation></message>
    <message id="9"><source></source><translation>9</translation></message>
    <message id="10"><source></source><translation>10</translation></message>
    <message id="11"><source></source><translation>11</translation></message>
    <message id="setting.video.video_setting"><source></source><translation>화면 설정</translation></message>
    <message id="brightness"><source></source><translation>밝기</translation></message>
    <message id="cplandtinting"><source></source><translation>CPL 필터 및 틴팅</translation></message>
    <message id="sharpness"><source></source><translation>선명도</translation></message>
    <message id="noisefilter"><source></source><translation>노이즈 필터</translation></message>
    <message id="default"><source></source><translation>기본</translation></message>
</context>
</TS>
