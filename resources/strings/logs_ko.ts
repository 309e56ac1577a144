<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.obdinfoview"><source></source><translation>OBD 기록</translation></message>
    <message id="open"><source></source><translation>열기…</translation></message>
    <message id="export"><source></source><translation>내보내기…</translation></message>
    <message id="viewer.command.openDrivingLog"><source></source><translation>주행 기록 열기…</translation></message>
    <message id="log.window_title"><source></source><translation>주행 기록</translation></message>
    <message id="log.table"><source></source><translation>주행 기록 목록</translation></message>
    <message id="log.file"><source></source><translation>주행 기록 파일</translation></message>
    <message id="log.csv_file"><source></source><translation>쉼표로 구분된 텍스트</translation></message>
    <message id="log.open_title"><source></source><translation>주행 기록 열기</translation></message>
    <message id="log.export_title"><source></source><translation>주행 기록 내보내기</translation></message>
    <message id="log.none"><source></source><translation>열린 주행 기록이 없습니다. “열기…”를 눌러 카드나 폴더에 있는 기록을 볼 수 있습니다.</translation></message>
    <message id="log.record"><source></source><translation>기록 1개</translation></message>
    <message id="log.records"><source></source><translation>기록 %1개</translation></message>
    <message id="log.ends_early"><source></source><translation>기록 %2개 중 %1개; 파일이 중간에 끝났습니다</translation></message>
    <message id="log.way"><source></source><translation>지도에 전체 경로 표시</translation></message>
    <message id="log.fault.cannot_open"><source></source><translation>“%1” 파일을 열 수 없습니다. 카드가 꽂혀 있는지, 파일을 읽을 권한이 있는지 확인하세요.</translation></message>
    <message id="log.fault.no_log"><source></source><translation>“%1” 파일은 주행 기록이 아닙니다.</translation></message>
    <message id="log.fault.no_memory"><source></source><translation>“%1” 파일이 너무 커서 이 컴퓨터의 메모리로는 열 수 없습니다.</translation></message>
    <message id="log.fault.cannot_read"><source></source><translation>“%1” 파일을 끝까지 읽을 수 없습니다. 카드가 리더기에 꽂혀 있는지 확인하고 다시 여세요.</translation></message>
    <message id="log.export.failed"><source></source><translation>“%1” 파일을 쓸 수 없습니다. %2</translation></message>
    <message id="log.export.full"><source></source><translation>디스크에 공간이 부족합니다.</translation></message>
    <message id="log.export.protected"><source></source><translation>쓰기 권한이 없거나 디스크가 쓰기 방지되어 있습니다.</translation></message>
    <message id="log.export.gone"><source></source><translation>폴더나 디스크를 찾을 수 없습니다.</translation></message>
    <message id="log.export.same_file"><source></source><translation>주행 기록 원본 파일입니다. 다른 이름을 선택하세요.</translation></message>
    <message id="setting.flashdata.index"><source></source><translation>번호</translation></message>
    <message id="setting.flashdata.seq"><source></source><translation>순번</translation></message>
    <message id="setting.flashdata.date"><source></source><translation>날짜</translation></message>
    <message id="setting.flashdata.time"><source></source><translation>시간</translation></message>
    <message id="setting.flashdata.yoil"><source></source><translation>요일</translation></message>
    <message id="setting.flashdata.lat"><source></source><translation>위도</translation></message>
    <message id="setting.flashdata.lon"><source></source><translation>경도</translation></message>
    <message id="setting.flashdata.driving_distance"><source></source><translation>주행 거리</translation></message>
    <message id="setting.flashdata.cur_speed"><source></source><translation>속도</translation></message>
    <message id="setting.flashdata.max_speed"><source></source><translation>최고 속도</translation></message>
    <message id="setting.flashdata.value"><source></source><translation>GPS</translation></message>
    <message id="setting.flashdata.battery"><source></source><translation>전압</translation></message>
    <message id="setting.obdata.index"><source></source><translation>번호</translation></message>
    <message id="setting.obdata.seq"><source></source><translation>순번</translation></message>
    <message id="setting.obdata.date"><source></source><translation>날짜</translation></message>
    <message id="setting.obdata.time"><source></source><translation>시간</translation></message>
    <message id="setting.obdata.yoil"><source></source><translation>요일</translation></message>
    <message id="setting.obdata.lat"><source></source><translation>위도</translation></message>
    <message id="setting.obdata.lon"><source></source><translation>경도</translation></message>
    <message id="setting.obdata.cur_speed"><source></source><translation>속도</translation></message>
    <message id="setting.obdata.gps_speed"><source></source><translation>GPS 속도</translation></message>
    <message id="setting.obdata.rpm"><source></source><translation>RPM</translation></message>
    <message id="setting.obdata.driving_distance"><source></source><translation>주행 거리</translation></message>
    <message id="setting.obdata.battery"><source></source><translation>전압</translation></message>
    <message id="setting.obdata.acp"><source></source><translation>가속 페달</translation></message>
    <message id="setting.obdata.fbk"><source></source><translation>풋 브레이크</translation></message>
    <message id="setting.obdata.rll"><source></source><translation>우측등</translation></message>
    <message id="setting.obdata.lll"><source></source><translation>좌측등</translation></message>
    <message id="setting.obdata.swa"><source></source><translation>조향각</translation></message>
    <message id="setting.obdata.sbt"><source></source><translation>안전벨트</translation></message>
    <message id="setting.obdata.gel"><source></source><translation>기어 단수</translation></message>
    <message id="setting.obdata.gep"><source></source><translation>변속 레버</translation></message>
    <message id="setting.obdata.sbk"><source></source><translation>주차 브레이크</translation></message>
    <message id="setting.obdata.tpa"><source></source><translation>TPA</translation></message>
    <message id="setting.obdata.abt"><source></source><translation>ABT</translation></message>
</context>
</TS>
