<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="play.error_missing"><source></source><translation>파일이 더 이상 없습니다.</translation></message>
    <message id="play.lost"><source></source><translation>녹화 파일을 더 이상 읽을 수 없습니다. 카드가 리더기에 꽂혀 있는지 확인하세요.</translation></message>
    <message id="play.error_no_access"><source></source><translation>파일을 읽을 권한이 없습니다.</translation></message>
    <message id="play.error_not_a_file"><source></source><translation>파일이 아닙니다.</translation></message>
    <message id="play.error_empty"><source></source><translation>파일이 비어 있습니다.</translation></message>
    <message id="play.error_cannot_read"><source></source><translation>녹화 파일을 읽을 수 없습니다. 메모리 카드가 손상되었거나 분리되었습니다.</translation></message>
    <message id="play.error_not_avi"><source></source><translation>AVI 녹화 파일이 아닙니다.</translation></message>
    <message id="play.error_no_video"><source></source><translation>녹화 파일에 영상이 없습니다.</translation></message>
    <message id="play.error_unreadable"><source></source><translation>녹화 파일이 손상되어 화면을 읽을 수 없습니다.</translation></message>
    <message id="play.error_no_answer"><source></source><translation>메모리 카드가 응답하지 않습니다.</translation></message>
    <message id="play.error_engine"><source></source><translation>미디어 플레이어를 불러올 수 없습니다. vlc-plugin-base 패키지를 설치하세요.</translation></message>
</context>
</TS>
