<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="setting.basic.display_setting"><source></source><translation>카메라 화면 표시</translation></message>
    <message id="setting.basic.display_setting_speed_time_date"><source></source><translation>속도, 시간, 날짜</translation></message>
    <message id="setting.basic.display_setting_speed_time"><source></source><translation>속도, 시간</translation></message>
    <message id="setting.basic.display_setting_speed_date"><source></source><translation>속도, 날짜</translation></message>
    <message id="setting.basic.display_setting_time"><source></source><translation>시간</translation></message>
    <message id="setting.basic.recordimg_mode"><source></source><translation>녹화 모드</translation></message>
    <message id="setting.basic.always_event"><source></source><translation>상시 및 이벤트</translation></message>
    <message id="setting.basic.event_only"><source></source><translation>이벤트만</translation></message>
    <message id="setting.basic.enable_gsensor"><source></source><translation>충격 감지 사용 (G센서)</translation></message>
    <message id="setting.basic.driving_impact_sensitivity"><source></source><translation>주행 중 충격 감도</translation></message>
    <message id="setting.basic.parking_impact_sensitivity"><source></source><translation>주차 중 충격 감도</translation></message>
    <message id="setting.basic.customize"><source></source><translation>사용자 지정</translation></message>
    <message id="setting.basic.axis_fmt"><source></source><translation>%1 (g)</translation></message>
    <message id="insensitive"><source></source><translation>둔감</translation></message>
    <message id="sensitive"><source></source><translation>민감</translation></message>
    <message id="setting.basic.others"><source></source><translation>기타</translation></message>
    <message id="setting.basic.enable_security_led"><source></source><translation>보안 LED 사용</translation></message>
    <message id="setting.basic.enable_high_temperature_safety_mode"><source></source><translation>고온 보호 모드 사용</translation></message>
    <message id="setting.basic.auto_switch_driving_mode"><source></source><translation>주행 모드 자동 전환</translation></message>
    <message id="setting.basic.auto_switch_parking_mode"><source></source><translation>주차 모드 자동 전환</translation></message>
    <message id="setting.basic.stanby_time_parking_mode"><source></source><translation>주차 모드 전환 대기 시간</translation></message>
    <message id="setting.basic.stanby_time"><source></source><translation>대기 시간</translation></message>
    <message id="setting.basic.3min"><source></source><translation>3분</translation></message>
    <message id="setting.basic.5min"><source></source><translation>5분</translation></message>
    <message id="setting.basic.7min"><source></source><translation>7분</translation></message>
    <message id="setting.basic.10min"><source></source><translation>10분</translation></message>
    <message id="setting.basic.15min"><source></source><translation>15분</translation></message>
    <message id="setting.basic.video_out"><source></source><translation>영상 출력</translation></message>
    <message id="setting.basic.video_out_ntsc"><source></source><translation>NTSC</translation></message>
    <message id="setting.basic.video_out_pal"><source></source><translation>PAL</translation></message>
    <message id="setting.basic.video_out_use"><source></source><translation>카메라의 영상 출력 단자에 연결한 화면에 사용됩니다.</translation></message>
    <message id="setting.basic.car_number_input"><source></source><translation>차량 번호</translation></message>
    <message id="setting.basic.cutoff_voltage_setting"><source></source><translation>주차 중 전원 차단</translation></message>
    <message id="setting.basic.set_voltage"><source></source><translation>차단 전압</translation></message>
    <message id="setting.basic.set_timer"><source></source><translation>차단 타이머</translation></message>
    <message id="setting.basic.use_external_power"><source></source><translation>외부 전원 사용</translation></message>
    <message id="setting.basic.power_guide"><source></source><translation>차량 배터리를 보호합니다. 외부 전원을 사용하면 전원을 차단하지 않습니다.</translation></message>
    <message id="unuse"><source></source><translation>사용 안 함</translation></message>
    <message id="nHour_fmt"><source></source><translation>%1시간</translation></message>
    <message id="msg.on_hightemperatureprotection"><source></source><translation>고온 보호 모드를 사용합니다. 온도가 너무 높아지면 식을 때까지 녹화를 멈춥니다.</translation></message>
    <message id="msg.off_hightemperatureprotection"><source></source><translation>고온 보호 모드를 사용하지 않습니다. 고온으로 카메라가 손상될 수 있습니다.</translation></message>
</context>
</TS>
