// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/FormatPlan.h"
#include "card/WritableVolume.h"

#include <functional>
#include <optional>
#include <string>

namespace marvo {

/// The fields of a FAT32 boot sector that this program uses.
struct BootSector
{
    std::uint16_t sectorSize = 0;
    std::uint8_t sectorsPerCluster = 0;
    std::uint16_t reservedSectors = 0;
    std::uint8_t fatCount = 0;
    std::uint32_t hiddenSectors = 0;
    std::uint32_t totalSectors = 0;
    std::uint32_t sectorsPerFat = 0;
    std::uint32_t rootCluster = 0;
    std::uint16_t infoSector = 0;
    std::uint16_t backupBootSector = 0;
    std::uint32_t volumeId = 0;
    std::string label; ///< 11 bytes, filled up with spaces
};

/// Reads the boot sector of a FAT32 volume; none for other bytes, or fewer than 512.
std::optional<BootSector> readBootSector(std::span<const std::byte> sector);

/// The volume's identifier as the system shows it: "1A2B-3C4D".
std::string volumeIdText(std::uint32_t volumeId);

/// Checks that a volume carries the freshly made, empty file system of the plan: boot sector and its backup,
/// the sector of counts, both FATs, the label and an otherwise empty root folder. None when all is as
/// planned, else what is not, one line in English.
std::optional<std::string> checkSystemArea(ByteSource& volume, const FormatPlan& plan);

/// Copies the plan's system area from a file image to the volume. The boot sector is wiped first and written
/// last, each synced, so that a card that is pulled out in between never looks like a whole one. Tells the
/// bytes of the area dealt with so far, the wiped boot sector being the first: as long as it has not been
/// called, the volume holds what it held.
std::error_code writeSystemArea(ByteSource& image, WritableVolume& volume, const FormatPlan& plan,
                                const std::function<void(std::uint64_t)>& onWritten = {});

/// True when the volume's system area holds the image's bytes.
bool systemAreaEquals(ByteSource& image, ByteSource& volume, const FormatPlan& plan);

} // namespace marvo
