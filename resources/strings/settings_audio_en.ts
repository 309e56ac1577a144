<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="setting.aux.record_settings"><source></source><translation>Sound recording</translation></message>
    <message id="setting.aux.enable_voice_recording"><source></source><translation>Record sound with the video</translation></message>
    <message id="setting.aux.mic_volume"><source></source><translation>Microphone level</translation></message>
    <message id="setting.aux.speaker_volume"><source></source><translation>Speaker</translation></message>
    <message id="setting.audio.speaker_sounds"><source></source><translation>What the speaker says</translation></message>
    <message id="setting.audio.speaker_level"><source></source><translation>How loud the speaker is</translation></message>
    <message id="setting.aux.enable_voice_guidance"><source></source><translation>Voice guidance</translation></message>
    <message id="setting.aux.enable_hourly_alarm"><source></source><translation>Announce the time every hour</translation></message>
    <message id="setting.aux.volume_down"><source></source><translation>quiet</translation></message>
    <message id="setting.aux.volume_up"><source></source><translation>loud</translation></message>
    <message id="setting.aux.voice_guidance_lang_setting"><source></source><translation>Language of the voice guidance</translation></message>
    <message id="Korean"><source></source><translation>Korean</translation></message>
    <message id="English"><source></source><translation>English</translation></message>
    <message id="French"><source></source><translation>French</translation></message>
    <message id="Spanish.Europe"><source></source><translation>Spanish (Europe)</translation></message>
    <message id="Arabic"><source></source><translation>Arabic</translation></message>
    <message id="Chinese"><source></source><translation>Chinese</translation></message>
    <message id="Russian"><source></source><translation>Russian</translation></message>
    <message id="Japanese"><source></source><translation>Japanese</translation></message>
    <message id="Thai"><source></source><translation>Thai</translation></message>
    <message id="BahasaIndonesia"><source></source><translation>Indonesian</translation></message>
    <message id="Vietnamese"><source></source><translation>Vietnamese</translation></message>
    <message id="Mongolian"><source></source><translation>Mongolian</translation></message>
    <message id="Spanish.SouthAmerica"><source></source><translation>Spanish (Americas)</translation></message>
    <message id="German"><source></source><translation>German</translation></message>
    <message id="Turkish"><source></source><translation>Turkish</translation></message>
    <message id="Italian"><source></source><translation>Italian</translation></message>
    <message id="Hindi"><source></source><translation>Hindi</translation></message>
    <message id="Cantonese"><source></source><translation>Cantonese</translation></message>
    <message id="Czech"><source></source><translation>Czech</translation></message>
    <message id="Portuguese"><source></source><translation>Portuguese</translation></message>
    <message id="Malaysia"><source></source><translation>Malay</translation></message>
</context>
</TS>
