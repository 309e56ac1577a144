<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.aux.record_settings"><source></source><translation>음성 녹음</translation></message>
    <message id="setting.aux.enable_voice_recording"><source></source><translation>영상과 함께 음성 녹음</translation></message>
    <message id="setting.aux.mic_volume"><source></source><translation>마이크 음량</translation></message>
    <message id="setting.aux.speaker_volume"><source></source><translation>스피커</translation></message>
    <message id="setting.audio.speaker_sounds"><source></source><translation>스피커로 안내할 내용</translation></message>
    <message id="setting.audio.speaker_level"><source></source><translation>스피커 음량</translation></message>
    <message id="setting.aux.enable_voice_guidance"><source></source><translation>음성 안내 사용</translation></message>
    <message id="setting.aux.enable_hourly_alarm"><source></source><translation>매시 정각 알림</translation></message>
    <message id="setting.aux.volume_down"><source></source><translation>작게</translation></message>
    <message id="setting.aux.volume_up"><source></source><translation>크게</translation></message>
    <message id="setting.aux.voice_guidance_lang_setting"><source></source><translation>음성 안내 언어</translation></message>
    <message id="Korean"><source></source><translation>한국어</translation></message>
    <message id="English"><source></source><translation>영어</translation></message>
    <message id="French"><source></source><translation>프랑스어</translation></message>
    <message id="Spanish.Europe"><source></source><translation>스페인어 (유럽)</translation></message>
    <message id="Arabic"><source></source><translation>아랍어</translation></message>
    <message id="Chinese"><source></source><translation>중국어</translation></message>
    <message id="Russian"><source></source><translation>러시아어</translation></message>
    <message id="Japanese"><source></source><translation>일본어</translation></message>
    <message id="Thai"><source></source><translation>태국어</translation></message>
    <message id="BahasaIndonesia"><source></source><translation>인도네시아어</translation></message>
    <message id="Vietnamese"><source></source><translation>베트남어</translation></message>
    <message id="Mongolian"><source></source><translation>몽골어</translation></message>
    <message id="Spanish.SouthAmerica"><source></source><translation>스페인어 (중남미)</translation></message>
    <message id="German"><source></source><translation>독일어</translation></message>
    <message id="Turkish"><source></source><translation>터키어</translation></message>
    <message id="Italian"><source></source><translation>이탈리아어</translation></message>
    <message id="Hindi"><source></source><translation>힌디어</translation></message>
    <message id="Cantonese"><source></source><translation>광둥어</translation></message>
    <message id="Czech"><source></source><translation>체코어</translation></message>
    <message id="Portuguese"><source></source><translation>포르투갈어</translation></message>
    <message id="Malaysia"><source></source><translation>말레이어</translation></message>
</context>
</TS>
