// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace marvo {

/// One logged moment of a driving log (.drv). What has no meaning in its name is carried and not shown.
struct _FLASH_SAVE_VALUE_STRUCT
{
    static constexpr std::size_t fileSize = 40;

    std::uint16_t seq = 0;
    std::uint8_t yoil = 0;  ///< weekday, 0 = Sunday
    std::uint8_t value = 0; ///< 1 = valid fix
    std::uint8_t year = 0;  ///< less 1900
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint16_t lat = 0;         ///< degrees x 100 + whole minutes
    std::uint16_t latDecimals = 0; ///< of the minutes, four digits
    std::uint16_t lon = 0;
    std::uint16_t lonDecimals = 0;
    std::uint16_t cur_speed = 0;
    std::uint32_t driving_distance = 0; ///< tenths of a unit
    std::uint32_t reserved24 = 0;
    std::uint16_t max_speed = 0;
    std::int8_t reserved30 = 0;
    std::int8_t reserved31 = 0;
    std::int16_t X = 0; ///< 1/256
    std::int16_t Y = 0;
    std::int16_t Z = 0;
    std::int16_t battery = 0; ///< tenths of a volt
};

/// One logged moment of an OBD log (.obd). Negative is "not available" unless something else is said.
struct _OBD_SAVE_VALUE_STRUCT
{
    static constexpr std::size_t fileSize = 68;

    std::uint32_t seq = 0;
    std::uint8_t reserved4 = 0;
    std::uint8_t year = 0; ///< less 1900
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint8_t yoil = 0;         ///< weekday, 0 = Sunday
    std::uint16_t lat = 0;         ///< degrees x 100 + whole minutes
    std::uint16_t latDecimals = 0; ///< of the minutes, four digits
    std::uint16_t lon = 0;
    std::uint16_t lonDecimals = 0;
    std::int16_t gps_speed = 0;
    std::int8_t reserved22 = 0;
    std::int8_t reserved23 = 0;
    std::int16_t cur_speed = 0;
    std::int16_t rpm = 0;
    std::int32_t driving_distance = 0; ///< thousandths of a unit
    std::int16_t battery = 0;          ///< millivolts
    std::int16_t acp = 0;
    std::int16_t fbk = 0; ///< 0 = off, positive = on
    std::int16_t rll = 0; ///< as fbk
    std::int16_t lll = 0; ///< as fbk
    std::int16_t swa = 0; ///< 9999 = not available
    std::int16_t sbt = 0; ///< as fbk
    std::int16_t gel = 0; ///< 0, too, is not available
    std::int16_t gep = 0; ///< 1 = P, 2 = R, 3 = N, 4 = D
    std::int16_t sbk = 0; ///< 0 = off, 1 = on
    std::int16_t tpa = 0;
    std::int16_t abt = 0; ///< hundredths; 9999 = not available
    std::int16_t reserved56 = 0;
    std::int16_t reserved58 = 0;
    std::int16_t X = 0; ///< 1/256
    std::int16_t Y = 0;
    std::int16_t Z = 0;
};

/// Reads one record of the size that its type has in a file.
void decodeRecord(std::span<const std::byte> bytes, _FLASH_SAVE_VALUE_STRUCT& record);
void decodeRecord(std::span<const std::byte> bytes, _OBD_SAVE_VALUE_STRUCT& record);

} // namespace marvo
