// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "texts/InterfaceLanguage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace marvo {

/// The camera's settings, the one record of the file "config.bin" on its card.
///
/// The file holds the fields in this order as little-endian numbers without gaps, 272 bytes altogether;
/// fileDataFields tells where each stands and what a fresh camera has there. Any value can come from a card.
/// A flag is written as 0 or 1, any other number than 0 is read as on. A "segment" is the place of an item in
/// its control, from 0 on.
struct _FILEDATA
{
    std::uint16_t magic;         ///< 0x5726; not tested when read
    std::uint16_t checksum;      ///< see fileDataChecksum()
    std::uint32_t displayScreen; ///< 0 speed, time, date; 1 speed, time; 2 speed, date; 3 time
    std::uint32_t sdRatioAlways; ///< percent of the card for continuous recordings
    std::uint32_t sdRatioEvent;  ///< the rest to 100
    std::uint32_t sdRatioMotion;
    std::uint32_t powerVoltage;     ///< cut-off in mV of a 12 V system: 11600 to 12400 by 100; 0 not used
    std::uint32_t useExternalPower; ///< flag
    std::uint32_t powerTime;        ///< cut-off timer in hours: 12, 24, 36, 48; 0 not used
    std::uint32_t deviceParam8;     ///< the deviceParams are the camera's own; they are only kept
    std::uint32_t deviceParam9;
    std::uint32_t deviceParam10;
    std::uint32_t deviceParam11;
    std::uint32_t micLevel;        ///< from 1 on
    std::uint32_t speakerVolume;   ///< 39, 51, 63
    std::uint32_t videoResolution; ///< segment: 0 the higher one, 1 the lower one
    std::uint32_t videoBitrate;    ///< kbit/s, by 1000 from 6000 (resolution 0) or 3000 (1) on
    std::uint32_t videoFrameRate;  ///< frames per second x 256
    std::uint32_t videoBrightness; ///< 124 + 4 x segment
    std::uint32_t deviceParam18;
    std::uint32_t deviceParam19;
    std::uint32_t videoSharpness;       ///< from 1 on
    std::uint32_t videoNoiseFilter;     ///< from 1 on
    std::int32_t drivingThresholdX;     ///< hundredths of g
    std::int32_t drivingThresholdY;     ///< hundredths of g
    std::int32_t drivingThresholdZ;     ///< hundredths of g
    std::uint32_t alwaysModeTimeout;    ///< seconds before parking mode: 180, 300, 420, 600, 900
    std::int32_t parkingThresholdX;     ///< hundredths of g
    std::int32_t parkingThresholdY;     ///< hundredths of g
    std::int32_t parkingThresholdZ;     ///< hundredths of g
    std::uint32_t motionSensitivityFhd; ///< at the higher resolution: 65, 70, 90, 100, 130
    std::uint32_t motionSensitivityHd;  ///< at the lower resolution: 50, 60, 75, 100, 150
    std::uint32_t deviceParam31;
    std::int32_t deviceParam32;
    std::uint32_t deviceParam33;
    std::int32_t deviceParam34;
    std::uint32_t deviceParam35;
    std::uint32_t compositeMode; ///< segment of the video output
    std::uint32_t deviceParam37;
    std::int32_t osdSpeedDisplay; ///< segment: 0 off, 1 on
    std::int32_t carNumberSet;    ///< 1 with a car number, else 0; set by sealFileData()
    std::uint32_t deviceParam40;
    std::uint32_t speedUnit;           ///< 0 km/h, 1 mi/h
    std::int32_t timeZoneIndex;        ///< into the list of time zones; 28 is +09:00
    std::uint32_t summerTime;          ///< flag
    std::uint32_t drivingDay;          ///< day of the weekly alarm: 1 Monday to 7 Sunday, 0 none
    std::uint32_t autoDrivingMode;     ///< flag
    std::uint32_t autoParkingMode;     ///< flag
    std::uint32_t useMotion;           ///< flag: motion detection
    std::uint32_t recordingMode;       ///< 0 continuous and event, 1 event only
    std::uint32_t gsensorEnable;       ///< flag
    std::uint32_t voiceRecording;      ///< flag
    std::uint32_t safeTemperatureMode; ///< flag
    std::uint32_t hourlyNotice;        ///< flag
    std::uint32_t voiceGuidance;       ///< flag
    std::uint32_t ecoLow;              ///< 100 minus the lower end of the eco range
    std::uint32_t ecoHigh;             ///< 100 minus its upper end
    std::uint32_t routeSaveInterval;   ///< segment 0 to 7; or with OBD 1 to 4, plus 0x10 when also parked
    std::uint32_t useEcoDrive;         ///< flag
    std::uint32_t useEnvironment;      ///< flag, inverted against its control
    std::uint32_t dayTimeAE;           ///< segment of the daytime exposure
    std::uint32_t gpsOnParkingMode;    ///< 0 off, 1 on
    std::uint32_t voiceLanguage;       ///< cell of the language grid; 20 Malaysian
    std::uint32_t securityLedOff;      ///< flag, inverted against its control
    std::uint32_t gamma;               ///< segment
    std::array<char, 8> carNumber;     ///< UTF-8, padded with zero bytes; without any when all 8 are used
    std::uint32_t cplTinting;          ///< segment: 0 to 3
    std::uint32_t deviceParam67;

    bool operator==(const _FILEDATA&) const = default;
};

inline constexpr std::size_t fileDataSize = 272;
using FileDataBytes = std::array<std::byte, fileDataSize>;

/// The base record: what a camera holds after its card was formatted. Not sealed.
void fillDefaultFileData(_FILEDATA& record);
/// The base record with what differs for the language. Not sealed.
void fillDefaultFileDataForLanguage(_FILEDATA& record, InterfaceLanguage language);

/// Prepares a record for writing: sets carNumberSet, then checksum.
void sealFileData(_FILEDATA& record);
/// The exclusive or of the lower halves of the 67 words behind magic and checksum; what checksum should be.
std::uint16_t fileDataChecksum(const _FILEDATA& record);

/// The record as it stands in the file, and back. Every byte of the file belongs to a field, so nothing is
/// lost either way.
FileDataBytes encodeFileData(const _FILEDATA& record);
_FILEDATA decodeFileData(std::span<const std::byte, fileDataSize> bytes);

} // namespace marvo
