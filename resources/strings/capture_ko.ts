<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="capture.save.folder"><source></source><translation>폴더:</translation></message>
    <message id="capture.save.name"><source></source><translation>파일 이름:</translation></message>
    <message id="capture.save.type"><source></source><translation>표시:</translation></message>
    <message id="capture.save.accept"><source></source><translation>저장</translation></message>
    <message id="capture.save.cancel"><source></source><translation>취소</translation></message>
    <message id="capture.save.allFiles"><source></source><translation>모든 파일 (*)</translation></message>
    <message id="capture.save.taken"><source></source><translation>이미 있는 파일 "%1"은(는) 바뀌지 않습니다. 다른 이름을 선택하십시오.</translation></message>
    <message id="capture.still_saved"><source></source><translation>저장됨: %1</translation></message>
    <message id="capture.still_failed"><source></source><translation>정지 화면을 저장하지 못했습니다: %1</translation></message>
    <message id="capture.only_playing"><source></source><translation>이 방법으로는 재생 중에만 저장할 수 있습니다. K 키는 일시 정지 중에도 정지 화면을 바로 저장합니다.</translation></message>
    <message id="print.no_file"><source></source><translation>프린터로 파일을 선택하면 아무것도 만들어지지 않습니다. 파일은 화면 저장으로 만드십시오.</translation></message>
    <message id="print.title"><source></source><translation>화면 인쇄</translation></message>
</context>
</TS>
