<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="viewer.command.findRecording"><source></source><translation>녹화 검색</translation></message>
    <message id="folders.search"><source></source><translation>검색</translation></message>
    <message id="folders.searchTip"><source></source><translation>날짜, 시간, 종류 또는 파일 이름의 일부를 입력하세요</translation></message>
    <message id="folders.onlyKind"><source></source><translation>%1 녹화만 보기</translation></message>
    <message id="folders.nothingFound"><source></source><translation>찾은 녹화가 없습니다</translation></message>
    <message id="folders.nothingFoundHelp"><source></source><translation>이 폴더에 검색과 일치하는 녹화가 없습니다.</translation></message>
    <message id="folders.showAll"><source></source><translation>모든 녹화 보기</translation></message>
    <message id="folders.shownOf"><source></source><translation>녹화 %2개 중 %1개</translation></message>
    <message id="folders.recentFolders"><source></source><translation>최근 폴더</translation></message>
    <message id="folders.clearRecent"><source></source><translation>목록 지우기</translation></message>
    <message id="folders.return"><source></source><translation>%1 녹화를 %2부터 이어 보기</translation></message>
    <message id="folders.returnNot"><source></source><translation>이어 보지 않기</translation></message>
    <message id="folders.play"><source></source><translation>재생</translation></message>
    <message id="folders.showInFolder"><source></source><translation>폴더에서 보기</translation></message>
    <message id="folders.copyPath"><source></source><translation>경로 복사</translation></message>
    <message id="folders.volume"><source></source><translation>음량 %1</translation></message>
    <message id="folders.dropHere"><source></source><translation>여기에 놓으면 열립니다</translation></message>
    <message id="folders.firstSteps"><source></source><translation>카메라의 메모리 카드를 카드 리더기에 넣으세요.
카드나 녹화 폴더를 열거나 이 창에 끌어다 놓으세요.
녹화를 두 번 클릭하면 재생됩니다.</translation></message>
    <message id="folders.openCard"><source></source><translation>“%1” 카드 열기</translation></message>
    <message id="folders.cannotShowInFolder"><source></source><translation>파일을 보여 줄 파일 관리자가 없습니다. 파일 위치:
%1</translation></message>
</context>
</TS>
