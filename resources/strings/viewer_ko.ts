<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="filelist.mode"><source></source><translation>종류</translation></message>
    <message id="filelist.date"><source></source><translation>날짜</translation></message>
    <message id="filelist.time"><source></source><translation>시간</translation></message>
    <message id="filelist.file"><source></source><translation>파일</translation></message>
    <message id="viewer.list.name"><source></source><translation>녹화 목록</translation></message>
    <message id="viewer.list.unplayable"><source></source><translation>재생할 수 없음: %1</translation></message>
    <message id="viewer.list.playing"><source></source><translation>재생 중인 녹화</translation></message>
    <message id="viewer.playing.front"><source></source><translation>%1, 전방</translation></message>
    <message id="viewer.playing.rear"><source></source><translation>%1, 후방</translation></message>
    <message id="viewer.list.scanning"><source></source><translation>폴더 읽는 중… %1</translation></message>
    <message id="viewer.list.noFolder"><source></source><translation>열린 폴더 없음</translation></message>
    <message id="viewer.list.empty"><source></source><translation>이 폴더에 녹화가 없습니다</translation></message>
    <message id="viewer.list.emptyHelp"><source></source><translation>녹화는 event_20240517_081530.avi처럼 카메라가 이름을 붙인 AVI 파일입니다. 카드나 그 안의 동영상 폴더를 여세요.</translation></message>
    <message id="viewer.list.unreadable"><source></source><translation>이 폴더를 읽을 수 없습니다</translation></message>
    <message id="viewer.list.unreadableHelp"><source></source><translation>%1. 카드가 꽂혀 있고 읽을 권한이 있는지 확인한 뒤 다시 여세요.</translation></message>
    <message id="viewer.folder.count"><source></source><translation>녹화 %1개</translation></message>
    <message id="viewer.folder.countOne"><source></source><translation>녹화 1개</translation></message>
    <message id="viewer.folder.incomplete"><source></source><translation>%1, 일부를 읽을 수 없음: %2</translation></message>
    <message id="viewer.folder.reading"><source></source><translation>읽는 중…</translation></message>
    <message id="viewer.folder.unreadable"><source></source><translation>읽을 수 없음</translation></message>
    <message id="viewer.folder.choose"><source></source><translation>녹화 폴더 열기</translation></message>
    <message id="viewer.folder.cannotOpen"><source></source><translation>“%1” 폴더를 열 수 없습니다. 이름을 확인하고 카드가 꽂혀 있는지 확인하세요.</translation></message>
    <message id="viewer.side.recordings"><source></source><translation>녹화</translation></message>
    <message id="viewer.side.map"><source></source><translation>지도</translation></message>
    <message id="viewer.data.speed"><source></source><translation>속도</translation></message>
    <message id="viewer.data.longitude"><source></source><translation>경도</translation></message>
    <message id="viewer.data.latitude"><source></source><translation>위도</translation></message>
    <message id="viewer.data.hdop"><source></source><translation>HDOP</translation></message>
    <message id="viewer.data.satellites"><source></source><translation>위성</translation></message>
    <message id="viewer.gsensor.caption"><source></source><translation>G센서</translation></message>
    <message id="viewer.gsensor.graph"><source></source><translation>G센서 그래프</translation></message>
    <message id="viewer.gsensor.x"><source></source><translation>G센서 X축 (g)</translation></message>
    <message id="viewer.gsensor.y"><source></source><translation>G센서 Y축 (g)</translation></message>
    <message id="viewer.gsensor.z"><source></source><translation>G센서 Z축 (g)</translation></message>
    <message id="viewer.control.position"><source></source><translation>재생 위치</translation></message>
    <message id="viewer.control.time"><source></source><translation>재생 시간</translation></message>
    <message id="viewer.control.length"><source></source><translation>녹화 길이</translation></message>
    <message id="viewer.control.volume"><source></source><translation>음량</translation></message>
    <message id="viewer.control.speed"><source></source><translation>재생 속도</translation></message>
    <message id="viewer.control.size"><source></source><translation>화면 크기</translation></message>
    <message id="viewer.window.minimise"><source></source><translation>최소화</translation></message>
    <message id="viewer.window.zoom"><source></source><translation>최대화 또는 복원</translation></message>
    <message id="viewer.menu.playback"><source></source><translation>재생</translation></message>
    <message id="viewer.menu.sound"><source></source><translation>소리</translation></message>
    <message id="viewer.menu.view"><source></source><translation>보기</translation></message>
    <message id="viewer.menu.language"><source></source><translation>언어</translation></message>
    <message id="viewer.language.desktop"><source></source><translation>데스크톱 언어</translation></message>
    <message id="viewer.language.nextStart"><source></source><translation>새 언어는 MARVO를 다시 시작하면 적용됩니다.</translation></message>
    <message id="viewer.command.openMediaDirectoryDialog"><source></source><translation>폴더 열기…</translation></message>
    <message id="viewer.command.showSettingPanel"><source></source><translation>카메라 설정…</translation></message>
    <message id="viewer.command.showTimeSetupPanel"><source></source><translation>카메라 시계…</translation></message>
    <message id="viewer.command.captureVideo"><source></source><translation>화면 저장…</translation></message>
    <message id="viewer.command.print"><source></source><translation>화면 인쇄…</translation></message>
    <message id="viewer.command.changeAndPlay"><source></source><translation>선택한 녹화 재생</translation></message>
    <message id="viewer.command.clickPlayButton"><source></source><translation>재생/일시정지</translation></message>
    <message id="viewer.command.jumpBackward"><source></source><translation>%1초 뒤로</translation></message>
    <message id="viewer.command.jumpForward"><source></source><translation>%1초 앞으로</translation></message>
    <message id="viewer.command.decreaseSpeed"><source></source><translation>보통 속도 (1배)</translation></message>
    <message id="viewer.command.increaseSpeed"><source></source><translation>두 배 속도 (2배)</translation></message>
    <message id="viewer.command.volumeDown"><source></source><translation>음량 줄이기</translation></message>
    <message id="viewer.command.volumeUp"><source></source><translation>음량 키우기</translation></message>
    <message id="viewer.command.sizeDown"><source></source><translation>창 작게</translation></message>
    <message id="viewer.command.sizeUp"><source></source><translation>창 크게</translation></message>
    <message id="viewer.command.keepWindow"><source></source><translation>창 상태 유지</translation></message>
    <message id="viewer.keepWindowTip"><source></source><translation>다음 녹화가 이어서 재생될 때 창 크기와 전체 화면을 그대로 둡니다.</translation></message>
    <message id="viewer.command.toggleFullScreen"><source></source><translation>전체 화면</translation></message>
    <message id="viewer.command.clickMediaListViewButton"><source></source><translation>녹화 목록</translation></message>
    <message id="viewer.command.clickMapViewButton"><source></source><translation>지도</translation></message>
    <message id="viewer.command.showMenu"><source></source><translation>메뉴</translation></message>
    <message id="viewer.command.closeWindow"><source></source><translation>창 닫기</translation></message>
    <message id="viewer.command.quit"><source></source><translation>MARVO 종료</translation></message>
</context>
</TS>
