// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/LogRecords.h"

#include "support/ByteReader.h"

namespace marvo {

namespace {

/// Fields that follow each other without a gap.
template <typename... Field>
void read(ByteReader& reader, Field&... fields)
{
    ((fields = reader.littleEndian<Field>()), ...);
}

} // namespace

void decodeRecord(std::span<const std::byte> bytes, _FLASH_SAVE_VALUE_STRUCT& r)
{
    ByteReader reader(bytes.first<_FLASH_SAVE_VALUE_STRUCT::fileSize>());
    read(reader, r.seq, r.yoil, r.value, r.year, r.month, r.day, r.hour, r.minute, r.second, r.lat,
         r.latDecimals, r.lon, r.lonDecimals, r.cur_speed, r.driving_distance, r.reserved24, r.max_speed,
         r.reserved30, r.reserved31, r.X, r.Y, r.Z, r.battery);
}

void decodeRecord(std::span<const std::byte> bytes, _OBD_SAVE_VALUE_STRUCT& r)
{
    ByteReader reader(bytes.first<_OBD_SAVE_VALUE_STRUCT::fileSize>());
    read(reader, r.seq, r.reserved4, r.year, r.month, r.day, r.hour, r.minute, r.second, r.yoil, r.lat,
         r.latDecimals, r.lon, r.lonDecimals, r.gps_speed, r.reserved22, r.reserved23, r.cur_speed, r.rpm,
         r.driving_distance, r.battery, r.acp, r.fbk, r.rll, r.lll, r.swa, r.sbt, r.gel, r.gep, r.sbk, r.tpa,
         r.abt, r.reserved56, r.reserved58, r.X, r.Y, r.Z);
}

} // namespace marvo
