// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/SystemArea.h"

#include "support/ByteReader.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace marvo {

namespace {

constexpr std::size_t sectorSize = FormatPlan::sectorSize;
constexpr std::size_t blockSize = std::size_t{1} << 20;
using Bytes = std::vector<std::byte>;

Bytes readBytes(ByteSource& source, std::uint64_t offset, std::size_t count)
{
    Bytes bytes(count);
    bytes.resize(source.readAt(offset, bytes));
    return bytes;
}

std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t offset)
{
    ByteReader reader(bytes);
    reader.skip(offset);
    return reader.littleEndian<std::uint32_t>();
}

std::string textAt(std::span<const std::byte> bytes, std::size_t offset, std::size_t count)
{
    if (offset + count > bytes.size())
        return {};
    std::string text(count, '\0');
    std::memcpy(text.data(), bytes.data() + offset, count);
    return text;
}

bool allZero(std::span<const std::byte> bytes)
{
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte{0}; });
}

std::string paddedLabel()
{
    std::string label = FormatPlan::label;
    label.resize(11, ' ');
    return label;
}

/// Calls part(offset, count) for the range in blocks until one is false; false then.
template <typename Part>
bool inBlocks(std::uint64_t from, std::uint64_t to, Part part)
{
    for (std::uint64_t offset = from; offset < to; offset += blockSize) {
        if (!part(offset, static_cast<std::size_t>(std::min<std::uint64_t>(blockSize, to - offset))))
            return false;
    }
    return true;
}

std::optional<std::string> checkBootSector(std::span<const std::byte> bytes, const FormatPlan& plan)
{
    const auto boot = readBootSector(bytes);
    if (!boot)
        return "no FAT32 boot sector";
    struct Field
    {
        const char* name;
        std::uint64_t found;
        std::uint64_t planned;
    };
    for (const Field& field : {
             Field{"sector size", boot->sectorSize, FormatPlan::sectorSize},
             Field{"sectors per cluster", boot->sectorsPerCluster, plan.sectorsPerCluster},
             Field{"reserved sectors", boot->reservedSectors, FormatPlan::reservedSectors},
             Field{"number of FATs", boot->fatCount, FormatPlan::fatCount},
             Field{"hidden sectors", boot->hiddenSectors, plan.hiddenSectors},
             Field{"number of sectors", boot->totalSectors, plan.totalSectors},
             Field{"sectors per FAT", boot->sectorsPerFat, plan.sectorsPerFat},
             Field{"root cluster", boot->rootCluster, 2},
             Field{"information sector", boot->infoSector, 1},
             Field{"backup boot sector", boot->backupBootSector, FormatPlan::backupBootSector},
         }) {
        if (field.found != field.planned)
            return std::string(field.name) + ": " + std::to_string(field.found) + " instead of " +
                   std::to_string(field.planned);
    }
    if (boot->label != paddedLabel())
        return "label: \"" + boot->label + "\"";
    return std::nullopt;
}

std::optional<std::string> checkInformationSector(std::span<const std::byte> bytes, const FormatPlan& plan)
{
    if (bytes.size() < sectorSize || wordAt(bytes, 0) != 0x41615252 || wordAt(bytes, 484) != 0x61417272 ||
        wordAt(bytes, 508) != 0xAA550000)
        return "no information sector";
    if (wordAt(bytes, 488) != plan.clusters - 1) // the root folder has the other one
        return "free clusters: " + std::to_string(wordAt(bytes, 488));
    return std::nullopt;
}

/// One FAT of a file system whose only chain is the root folder's one cluster.
bool isEmptyFat(ByteSource& volume, std::uint64_t offset, const FormatPlan& plan)
{
    constexpr std::size_t used = 3 * 4;
    return inBlocks(offset, offset + plan.fatBytes(), [&](std::uint64_t at, std::size_t count) {
        const Bytes bytes = readBytes(volume, at, count);
        if (bytes.size() != count)
            return false;
        if (at != offset)
            return allZero(bytes);
        // The upper four bits of an entry mean nothing.
        return (wordAt(bytes, 0) & 0x0FFFFFFF) == 0x0FFFFFF8 &&
               (wordAt(bytes, 4) & 0x0FFFFFFF) == 0x0FFFFFFF &&
               (wordAt(bytes, 8) & 0x0FFFFFFF) >= 0x0FFFFFF8 && allZero(std::span(bytes).subspan(used));
    });
}

std::optional<std::string> checkRootFolder(ByteSource& volume, const FormatPlan& plan)
{
    constexpr std::size_t entryBytes = 32;
    constexpr std::byte volumeLabel{0x08};
    const Bytes root = readBytes(volume, plan.rootOffset(), static_cast<std::size_t>(plan.clusterBytes()));
    if (root.size() != plan.clusterBytes())
        return "the root folder cannot be read";
    if (textAt(root, 0, 11) != paddedLabel() || root[11] != volumeLabel)
        return "no label in the root folder";
    if (!allZero(std::span(root).subspan(entryBytes)))
        return "the root folder is not empty";
    return std::nullopt;
}

} // namespace

std::optional<BootSector> readBootSector(std::span<const std::byte> sector)
{
    // at  size            at  size
    //  0   3 jump         32   4 number of sectors     48   2 information sector
    // 11   2 sector size  36   4 sectors per FAT       50   2 backup boot sector
    // 13   1 per cluster  40   2 flags                 66   1 0x29: the next two are there
    // 14   2 reserved     42   2 version               67   4 volume identifier
    // 16   1 FATs         44   4 root cluster          71  11 label
    // 28   4 hidden                                    82   8 "FAT32   "         510 2 0x55 0xAA
    if (sector.size() < sectorSize || sector[510] != std::byte{0x55} || sector[511] != std::byte{0xAA} ||
        textAt(sector, 82, 8) != "FAT32   " || sector[66] != std::byte{0x29})
        return std::nullopt;
    ByteReader reader(sector);
    BootSector boot;
    reader.skip(11);
    boot.sectorSize = reader.littleEndian<std::uint16_t>();
    boot.sectorsPerCluster = reader.littleEndian<std::uint8_t>();
    boot.reservedSectors = reader.littleEndian<std::uint16_t>();
    boot.fatCount = reader.littleEndian<std::uint8_t>();
    reader.skip(11);
    boot.hiddenSectors = reader.littleEndian<std::uint32_t>();
    boot.totalSectors = reader.littleEndian<std::uint32_t>();
    boot.sectorsPerFat = reader.littleEndian<std::uint32_t>();
    reader.skip(4);
    boot.rootCluster = reader.littleEndian<std::uint32_t>();
    boot.infoSector = reader.littleEndian<std::uint16_t>();
    boot.backupBootSector = reader.littleEndian<std::uint16_t>();
    reader.skip(15);
    boot.volumeId = reader.littleEndian<std::uint32_t>();
    boot.label = textAt(sector, 71, 11);
    return boot;
}

std::string volumeIdText(std::uint32_t volumeId)
{
    char text[16];
    std::snprintf(text, sizeof text, "%04X-%04X", volumeId >> 16, volumeId & 0xFFFF);
    return text;
}

std::optional<std::string> checkSystemArea(ByteSource& volume, const FormatPlan& plan)
{
    const Bytes boot = readBytes(volume, 0, sectorSize);
    if (auto fault = checkBootSector(boot, plan))
        return fault;
    const Bytes backup = readBytes(volume, FormatPlan::backupBootSector * sectorSize, sectorSize);
    if (backup != boot)
        return "the backup boot sector differs";
    if (auto fault = checkInformationSector(readBytes(volume, sectorSize, sectorSize), plan))
        return fault;
    for (std::uint32_t fat = 0; fat < FormatPlan::fatCount; ++fat) {
        if (!isEmptyFat(volume, plan.fatOffset() + fat * plan.fatBytes(), plan))
            return "FAT " + std::to_string(fat + 1) + " is damaged";
    }
    return checkRootFolder(volume, plan);
}

std::error_code writeSystemArea(ByteSource& image, WritableVolume& volume, const FormatPlan& plan,
                                const std::function<void(std::uint64_t)>& onWritten)
{
    if (std::error_code error = volume.writeAt(0, Bytes(sectorSize)))
        return error;
    if (onWritten)
        onWritten(sectorSize);
    if (std::error_code error = volume.sync())
        return error;

    std::error_code error;
    const auto copy = [&](std::uint64_t offset, std::size_t count) {
        const Bytes bytes = readBytes(image, offset, count);
        error =
            bytes.size() == count ? volume.writeAt(offset, bytes) : std::make_error_code(std::errc::io_error);
        if (!error && offset > 0 && onWritten)
            onWritten(offset + count);
        return !error;
    };
    if (!inBlocks(sectorSize, plan.systemAreaBytes(), copy))
        return error;
    error = volume.sync();
    if (!error && copy(0, sectorSize))
        error = volume.sync();
    return error;
}

bool systemAreaEquals(ByteSource& image, ByteSource& volume, const FormatPlan& plan)
{
    return inBlocks(0, plan.systemAreaBytes(), [&](std::uint64_t offset, std::size_t count) {
        const Bytes expected = readBytes(image, offset, count);
        return expected.size() == count && readBytes(volume, offset, count) == expected;
    });
}

} // namespace marvo
