// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/CardLayout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marvo {

/// The camera's cluster value for a volume of so many bytes: 32 below 7 x 2^30, else 128. It is shown as "KB"
/// and handed to the formatter as sectors per cluster.
std::int64_t clusterSizeByVolumeSizeInKB(std::uint64_t volumeSize);

/// A file system with fewer clusters is by definition no FAT32.
inline constexpr std::uint32_t fat32MinimumClusters = 65525;

/// How a volume is to be formatted: FAT32, two FATs, backup boot sector 6, 32 reserved sectors of 512 bytes.
struct FormatPlan
{
    static constexpr std::uint32_t sectorSize = 512;
    static constexpr std::uint32_t reservedSectors = 32;
    static constexpr std::uint32_t fatCount = 2;
    static constexpr std::uint32_t backupBootSector = 6;
    static constexpr const char* label = cardVolumeLabel;

    std::uint32_t totalSectors = 0;
    std::uint32_t hiddenSectors = 0; ///< before the volume on its medium
    std::uint32_t sectorsPerCluster = 0;
    std::uint32_t sectorsPerFat = 0;
    std::uint32_t clusters = 0;

    std::uint64_t volumeSize() const { return std::uint64_t{totalSectors} * sectorSize; } ///< bytes
    std::uint64_t clusterBytes() const { return std::uint64_t{sectorsPerCluster} * sectorSize; }
    std::uint64_t fatOffset() const { return std::uint64_t{reservedSectors} * sectorSize; }
    std::uint64_t fatBytes() const { return std::uint64_t{sectorsPerFat} * sectorSize; }
    std::uint64_t rootOffset() const { return fatOffset() + fatCount * fatBytes(); }
    /// All that a new file system consists of: what stands before the root folder, and its one cluster.
    std::uint64_t systemAreaBytes() const { return rootOffset() + clusterBytes(); }
};

/// The plan for a volume of so many bytes that begins so many bytes into its medium: with the cluster value
/// of the camera, or the largest one below that still makes enough clusters. None when no value does (under
/// 33 MB), or when the volume is larger than FAT32 can count (2 TiB).
std::optional<FormatPlan> makeFormatPlan(std::uint64_t volumeSize, std::uint64_t volumeStart = 0);

/// Why no card of the camera can be made of a volume.
enum class Unsuitable { TooSmall, TooLarge, SectorSize };
/// None when one can. Both in bytes.
std::optional<Unsuitable> unsuitability(std::uint64_t volumeSize, unsigned sectorSize);

/// The arguments for mkfs.fat that make the plan come true in a file of the volume's size.
std::vector<std::string> formatterArguments(const FormatPlan& plan, const std::string& file);

} // namespace marvo
