// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/FormatPlan.h"

#include <limits>

namespace marvo {

namespace {

constexpr std::uint64_t largeVolume = std::uint64_t{7} << 30;
constexpr std::uint64_t fatEntryBytes = 4;

/// Lays out a volume of so many sectors as mkfs.fat does it without alignment.
FormatPlan layOut(std::uint32_t totalSectors, std::uint32_t sectorsPerCluster)
{
    FormatPlan plan;
    plan.totalSectors = totalSectors;
    plan.sectorsPerCluster = sectorsPerCluster;
    if (totalSectors <= FormatPlan::reservedSectors)
        return plan;
    const std::uint64_t forFatsAndData = totalSectors - FormatPlan::reservedSectors;
    // Each cluster takes its data and an entry in each FAT; two entries a FAT are taken by no cluster.
    const std::uint64_t atMost =
        (forFatsAndData * FormatPlan::sectorSize + FormatPlan::fatCount * 2 * fatEntryBytes) /
        (plan.clusterBytes() + FormatPlan::fatCount * fatEntryBytes);
    const std::uint64_t fatBytes = (atMost + 2) * fatEntryBytes;
    plan.sectorsPerFat =
        static_cast<std::uint32_t>((fatBytes + FormatPlan::sectorSize - 1) / FormatPlan::sectorSize);
    const std::uint64_t fatSectors = std::uint64_t{FormatPlan::fatCount} * plan.sectorsPerFat;
    if (fatSectors < forFatsAndData)
        plan.clusters = static_cast<std::uint32_t>((forFatsAndData - fatSectors) / sectorsPerCluster);
    return plan;
}

} // namespace

std::int64_t clusterSizeByVolumeSizeInKB(std::uint64_t volumeSize)
{
    return volumeSize < largeVolume ? 32 : 128;
}

std::optional<FormatPlan> makeFormatPlan(std::uint64_t volumeSize, std::uint64_t volumeStart)
{
    constexpr std::uint64_t mostSectors = std::numeric_limits<std::uint32_t>::max();
    const std::uint64_t sectors = volumeSize / FormatPlan::sectorSize;
    const std::uint64_t before = volumeStart / FormatPlan::sectorSize;
    if (sectors > mostSectors || before > mostSectors)
        return std::nullopt;
    for (std::int64_t value = clusterSizeByVolumeSizeInKB(volumeSize); value > 0; value /= 2) {
        FormatPlan plan = layOut(static_cast<std::uint32_t>(sectors), static_cast<std::uint32_t>(value));
        plan.hiddenSectors = static_cast<std::uint32_t>(before);
        if (plan.clusters >= fat32MinimumClusters)
            return plan;
    }
    return std::nullopt;
}

std::optional<Unsuitable> unsuitability(std::uint64_t volumeSize, unsigned sectorSize)
{
    if (sectorSize != FormatPlan::sectorSize)
        return Unsuitable::SectorSize;
    if (makeFormatPlan(volumeSize))
        return std::nullopt;
    return volumeSize < largeVolume ? Unsuitable::TooSmall : Unsuitable::TooLarge;
}

std::vector<std::string> formatterArguments(const FormatPlan& plan, const std::string& file)
{
    // Without -a the reserved sectors grow to a whole cluster.
    return {"-a",
            "-F",
            "32",
            "-n",
            FormatPlan::label,
            "-f",
            std::to_string(FormatPlan::fatCount),
            "-b",
            std::to_string(FormatPlan::backupBootSector),
            "-R",
            std::to_string(FormatPlan::reservedSectors),
            "-S",
            std::to_string(FormatPlan::sectorSize),
            "-s",
            std::to_string(plan.sectorsPerCluster),
            "-h",
            std::to_string(plan.hiddenSectors),
            file};
}

} // namespace marvo
