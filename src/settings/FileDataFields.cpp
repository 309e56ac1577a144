// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/FileDataFields.h"

#include "support/Utf8.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <type_traits>
#include <utility>

namespace marvo {

namespace {

constexpr FileDataField fields[] = {
    {"magic", 0, &_FILEDATA::magic, 0x5726},
    {"checksum", 2, &_FILEDATA::checksum, 0},
    {"displayScreen", 4, &_FILEDATA::displayScreen, 1},
    {"sdRatioAlways", 8, &_FILEDATA::sdRatioAlways, 70},
    {"sdRatioEvent", 12, &_FILEDATA::sdRatioEvent, 10},
    {"sdRatioMotion", 16, &_FILEDATA::sdRatioMotion, 20},
    {"powerVoltage", 20, &_FILEDATA::powerVoltage, 12100},
    {"useExternalPower", 24, &_FILEDATA::useExternalPower, 0},
    {"powerTime", 28, &_FILEDATA::powerTime, 0},
    {"deviceParam8", 32, &_FILEDATA::deviceParam8, 3},
    {"deviceParam9", 36, &_FILEDATA::deviceParam9, 0},
    {"deviceParam10", 40, &_FILEDATA::deviceParam10, 1},
    {"deviceParam11", 44, &_FILEDATA::deviceParam11, 1},
    {"micLevel", 48, &_FILEDATA::micLevel, 3},
    {"speakerVolume", 52, &_FILEDATA::speakerVolume, 48},
    {"videoResolution", 56, &_FILEDATA::videoResolution, 0},
    {"videoBitrate", 60, &_FILEDATA::videoBitrate, 8000},
    {"videoFrameRate", 64, &_FILEDATA::videoFrameRate, 7680},
    {"videoBrightness", 68, &_FILEDATA::videoBrightness, 128},
    {"deviceParam18", 72, &_FILEDATA::deviceParam18, 128},
    {"deviceParam19", 76, &_FILEDATA::deviceParam19, 128},
    {"videoSharpness", 80, &_FILEDATA::videoSharpness, 3},
    {"videoNoiseFilter", 84, &_FILEDATA::videoNoiseFilter, 2},
    {"drivingThresholdX", 88, &_FILEDATA::drivingThresholdX, 55},
    {"drivingThresholdY", 92, &_FILEDATA::drivingThresholdY, 70},
    {"drivingThresholdZ", 96, &_FILEDATA::drivingThresholdZ, 50},
    {"alwaysModeTimeout", 100, &_FILEDATA::alwaysModeTimeout, 300},
    {"parkingThresholdX", 104, &_FILEDATA::parkingThresholdX, 15},
    {"parkingThresholdY", 108, &_FILEDATA::parkingThresholdY, 15},
    {"parkingThresholdZ", 112, &_FILEDATA::parkingThresholdZ, 15},
    {"motionSensitivityFhd", 116, &_FILEDATA::motionSensitivityFhd, 100},
    {"motionSensitivityHd", 120, &_FILEDATA::motionSensitivityHd, 100},
    {"deviceParam31", 124, &_FILEDATA::deviceParam31, 4095},
    {"deviceParam32", 128, &_FILEDATA::deviceParam32, 97},
    {"deviceParam33", 132, &_FILEDATA::deviceParam33, 3600},
    {"deviceParam34", 136, &_FILEDATA::deviceParam34, 92},
    {"deviceParam35", 140, &_FILEDATA::deviceParam35, 60},
    {"compositeMode", 144, &_FILEDATA::compositeMode, 0},
    {"deviceParam37", 148, &_FILEDATA::deviceParam37, 0},
    {"osdSpeedDisplay", 152, &_FILEDATA::osdSpeedDisplay, 1},
    {"carNumberSet", 156, &_FILEDATA::carNumberSet, 0},
    {"deviceParam40", 160, &_FILEDATA::deviceParam40, 0},
    {"speedUnit", 164, &_FILEDATA::speedUnit, 0},
    {"timeZoneIndex", 168, &_FILEDATA::timeZoneIndex, 28},
    {"summerTime", 172, &_FILEDATA::summerTime, 0},
    {"drivingDay", 176, &_FILEDATA::drivingDay, 0},
    {"autoDrivingMode", 180, &_FILEDATA::autoDrivingMode, 1},
    {"autoParkingMode", 184, &_FILEDATA::autoParkingMode, 1},
    {"useMotion", 188, &_FILEDATA::useMotion, 1},
    {"recordingMode", 192, &_FILEDATA::recordingMode, 0},
    {"gsensorEnable", 196, &_FILEDATA::gsensorEnable, 1},
    {"voiceRecording", 200, &_FILEDATA::voiceRecording, 1},
    {"safeTemperatureMode", 204, &_FILEDATA::safeTemperatureMode, 1},
    {"hourlyNotice", 208, &_FILEDATA::hourlyNotice, 1},
    {"voiceGuidance", 212, &_FILEDATA::voiceGuidance, 1},
    {"ecoLow", 216, &_FILEDATA::ecoLow, 1},
    {"ecoHigh", 220, &_FILEDATA::ecoHigh, 1},
    {"routeSaveInterval", 224, &_FILEDATA::routeSaveInterval, 3},
    {"useEcoDrive", 228, &_FILEDATA::useEcoDrive, 176},
    {"useEnvironment", 232, &_FILEDATA::useEnvironment, 3000},
    {"dayTimeAE", 236, &_FILEDATA::dayTimeAE, 1},
    {"gpsOnParkingMode", 240, &_FILEDATA::gpsOnParkingMode, 0},
    {"voiceLanguage", 244, &_FILEDATA::voiceLanguage, 0},
    {"securityLedOff", 248, &_FILEDATA::securityLedOff, 0},
    {"gamma", 252, &_FILEDATA::gamma, 0},
    {"carNumber", 256, &_FILEDATA::carNumber},
    {"cplTinting", 264, &_FILEDATA::cplTinting, 0},
    {"deviceParam67", 268, &_FILEDATA::deviceParam67, 1},
};

template <typename Record, typename Value>
Value valueType(Value Record::*);

/// Calls the action with a value of the type that the member has.
template <typename Action>
constexpr auto withType(const FileDataField::Member& member, Action action)
{
    return std::visit([&](auto pointer) { return action(decltype(valueType(pointer)){}); }, member);
}

constexpr std::size_t sizeOf(const FileDataField& field)
{
    return withType(field.member, [](auto value) { return sizeof(value); });
}

constexpr bool isWithoutGaps()
{
    std::size_t offset = 0;
    for (const FileDataField& field : fields) {
        if (field.offset != offset)
            return false;
        offset += sizeOf(field);
    }
    return offset == fileDataSize;
}
static_assert(isWithoutGaps());

/// The range of the numbers that a field can hold; empty for text.
constexpr std::pair<std::int64_t, std::int64_t> rangeOf(const FileDataField& field)
{
    return withType(field.member, []<typename Value>(Value) -> std::pair<std::int64_t, std::int64_t> {
        if constexpr (std::is_integral_v<Value>)
            return {std::numeric_limits<Value>::min(), std::numeric_limits<Value>::max()};
        else
            return {0, -1};
    });
}

} // namespace

std::size_t FileDataField::size() const { return sizeOf(*this); }

std::int64_t FileDataField::lowest() const { return rangeOf(*this).first; }

std::int64_t FileDataField::highest() const { return rangeOf(*this).second; }

std::int64_t FileDataField::number(const _FILEDATA& record) const
{
    return std::visit(
        [&](auto pointer) -> std::int64_t {
            if constexpr (std::is_integral_v<decltype(valueType(pointer))>)
                return record.*pointer;
            else
                return 0;
        },
        member);
}

bool FileDataField::setNumber(_FILEDATA& record, std::int64_t number) const
{
    if (number < lowest() || number > highest())
        return false;
    std::visit(
        [&](auto pointer) {
            using Value = decltype(valueType(pointer));
            if constexpr (std::is_integral_v<Value>)
                record.*pointer = static_cast<Value>(number);
        },
        member);
    return true;
}

std::string_view FileDataField::text(const _FILEDATA& record) const
{
    const auto* pointer = std::get_if<std::array<char, 8> _FILEDATA::*>(&member);
    if (pointer == nullptr)
        return {};
    const auto& bytes = record.*(*pointer);
    const auto end = std::ranges::find(bytes, '\0');
    return std::string_view(bytes.data(), static_cast<std::size_t>(end - bytes.begin()));
}

bool FileDataField::setText(_FILEDATA& record, std::string_view text) const
{
    const auto* pointer = std::get_if<std::array<char, 8> _FILEDATA::*>(&member);
    if (pointer == nullptr || text.size() > size() || !isValidUtf8(text) ||
        text.find('\0') != std::string_view::npos)
        return false;
    auto& bytes = record.*(*pointer);
    bytes.fill('\0');
    std::ranges::copy(text, bytes.begin());
    return true;
}

std::span<const FileDataField> fileDataFields() { return fields; }

const FileDataField* findFileDataField(std::string_view name)
{
    const auto field = std::ranges::find(fields, name, &FileDataField::name);
    return field == std::end(fields) ? nullptr : &*field;
}

} // namespace marvo
