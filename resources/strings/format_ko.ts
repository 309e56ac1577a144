<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="format.no_answer"><source></source><translation>디스크 서비스가 응답하지 않습니다. 다시 시도합니다.</translation></message>
    <message id="format.too_small"><source></source><translation>카드 용량이 너무 작습니다. 카메라에는 33 MB 이상이 필요합니다.</translation></message>
    <message id="format.too_large"><source></source><translation>카드 용량이 너무 큽니다. 카메라는 2 TiB까지 사용할 수 있습니다.</translation></message>
    <message id="format.sector_size"><source></source><translation>이 카드의 섹터는 %1바이트입니다. 카메라에는 512바이트 섹터가 필요합니다.</translation></message>
    <message id="setting.format.title"><source></source><translation>카드 포맷</translation></message>
    <message id="setting.format.volume"><source></source><translation>카드</translation></message>
    <message id="setting.format.device"><source></source><translation>장치</translation></message>
    <message id="setting.format.allocation_unit_size"><source></source><translation>할당 단위 크기</translation></message>
    <message id="setting.format.filesystem"><source></source><translation>파일 시스템</translation></message>
    <message id="setting.format.format"><source></source><translation>포맷</translation></message>
    <message id="setting.format.no_card"><source></source><translation>USB 카드 리더기에 카드가 없습니다</translation></message>
    <message id="setting.format.choose"><source></source><translation>카드를 선택하세요</translation></message>
    <message id="msg.cannot_format"><source></source><translation>카드를 포맷할 수 없습니다</translation></message>
    <message id="msg.format_complete"><source></source><translation>카드 포맷을 마쳤습니다</translation></message>
    <message id="msg.format.warning"><source></source><translation>이 카드를 포맷할까요?</translation></message>
    <message id="msg.format.will_erase"><source></source><translation>카드의 모든 내용이 지워집니다: %1</translation></message>
    <message id="msg.format.settings_stay"><source></source><translation>카메라 설정은 포맷 후 다시 복원됩니다.</translation></message>
    <message id="msg.format.settings_lost"><source></source><translation>카드의 카메라 설정을 읽을 수 없어 새 카메라의 설정으로 바뀝니다.</translation></message>
    <message id="format.contents.none"><source></source><translation>녹화 파일 없음</translation></message>
    <message id="format.contents.unknown"><source></source><translation>개수를 알 수 없는 녹화 파일</translation></message>
    <message id="format.contents.one"><source></source><translation>녹화 파일 1개</translation></message>
    <message id="format.contents.many"><source></source><translation>녹화 파일 %1개</translation></message>
    <message id="format.step.look"><source></source><translation>카드에 있는 내용을 확인하고 있습니다</translation></message>
    <message id="format.step.keep"><source></source><translation>카메라 설정을 복사해 두고 있습니다</translation></message>
    <message id="format.step.unmount"><source></source><translation>카드의 마운트를 해제하고 있습니다</translation></message>
    <message id="format.step.password"><source></source><translation>관리자 암호를 기다리고 있습니다</translation></message>
    <message id="format.step.prepare"><source></source><translation>새 파일 시스템을 준비하고 있습니다</translation></message>
    <message id="format.step.write"><source></source><translation>카드에 쓰고 있습니다. 카드를 빼지 마세요</translation></message>
    <message id="format.step.readback"><source></source><translation>쓴 내용을 확인하고 있습니다. 카드를 빼지 마세요</translation></message>
    <message id="format.step.mount"><source></source><translation>새 파일 시스템을 기다리고 있습니다. 카드를 빼지 마세요</translation></message>
    <message id="format.step.restore"><source></source><translation>카메라 설정을 복원하고 있습니다. 카드를 빼지 마세요</translation></message>
    <message id="msg.format.refused"><source></source><translation>암호 인증에 실패했습니다. 카드의 내용은 바뀌지 않았습니다.</translation></message>
    <message id="msg.format.dismissed"><source></source><translation>암호를 입력하지 않았습니다. 카드의 내용은 바뀌지 않았습니다.</translation></message>
    <message id="msg.format.nobody_asks"><source></source><translation>이 데스크톱에는 관리자 암호를 묻는 프로그램이 없습니다. 카드의 내용은 바뀌지 않았습니다.</translation></message>
    <message id="msg.format.changed"><source></source><translation>선택한 카드가 바뀌었거나 제거되었습니다. 아무것도 기록하지 않았습니다. 다시 선택하세요.</translation></message>
    <message id="msg.format.removed"><source></source><translation>기록하는 중에 카드가 제거되었습니다. 다시 꽂은 후 포맷하세요.</translation></message>
    <message id="msg.format.busy"><source></source><translation>다른 프로그램이 카드를 사용하고 있습니다. 그 프로그램을 닫고 다시 시도하세요.</translation></message>
    <message id="msg.format.unsuitable"><source></source><translation>이 크기의 카드에는 FAT32를 사용할 수 없습니다.</translation></message>
    <message id="msg.format.no_formatter"><source></source><translation>mkfs.fat 프로그램(dosfstools 패키지)이 설치되어 있지 않습니다.</translation></message>
    <message id="msg.format.mismatch"><source></source><translation>기록한 내용과 읽은 내용이 다릅니다. 카드의 수명이 다했을 수 있습니다.</translation></message>
    <message id="msg.format.erased"><source></source><translation>카드를 이 상태로는 사용할 수 없습니다. 다시 포맷하세요.</translation></message>
    <message id="msg.format.kept"><source></source><translation>카메라 설정의 복사본:
%1</translation></message>
    <message id="msg.format.not_mounted"><source></source><translation>카드를 포맷했지만 열 수 없습니다. 한 번 더 포맷하세요.</translation></message>
    <message id="msg.format.incomplete"><source></source><translation>카드에 기록한 내용이 남아 있지 않습니다.</translation></message>
</context>
</TS>
