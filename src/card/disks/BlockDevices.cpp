// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/BlockDevices.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <linux/fs.h>
#include <set>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#ifndef BLKGETDISKSEQ
#define BLKGETDISKSEQ _IOR(0x12, 128, __u64)
#endif

namespace marvo {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

template <typename Number>
std::optional<Number> numberIn(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end != text.data() ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> splitAt(std::string_view text, std::string_view separators)
{
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t start = text.find_first_not_of(separators);
        if (start == std::string_view::npos)
            return parts;
        text.remove_prefix(start);
        parts.push_back(text.substr(0, text.find_first_of(separators)));
        text.remove_prefix(parts.back().size());
    }
}

/// The kernel writes a space, a tab, a line end and a backslash in these tables as "\040".
std::string unescaped(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view digits = text.substr(i).substr(0, 4);
        unsigned code = 0;
        if (digits.size() == 4 && digits[0] == '\\' &&
            std::from_chars(digits.data() + 1, digits.data() + 4, code, 8).ptr == digits.data() + 4) {
            plain += static_cast<char>(code);
            i += 3;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::optional<std::uint64_t> deviceNumber(std::string_view majorMinor)
{
    const std::size_t colon = majorMinor.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const auto major = numberIn<unsigned>(majorMinor.substr(0, colon));
    const auto minor = numberIn<unsigned>(majorMinor.substr(colon + 1));
    return major && minor ? std::optional<std::uint64_t>(makedev(*major, *minor)) : std::nullopt;
}

fs::path sysfsFolder(std::uint64_t device)
{
    std::error_code error;
    const fs::path link =
        "/sys/dev/block/" + std::to_string(major(device)) + ':' + std::to_string(minor(device));
    const fs::path folder = fs::canonical(link, error);
    return error ? link : folder; // never empty, which would mean the working folder
}

/// The folder of the partition's disk, or of the device itself.
fs::path wholeDiskFolder(const fs::path& folder)
{
    std::error_code error;
    return fs::exists(folder / "partition", error) ? folder.parent_path() : folder;
}

/// Adds the device of a folder, its partitions, and whatever is built upon any of them.
void collectFamily(const fs::path& folder, std::set<std::uint64_t>& devices)
{
    const auto number = deviceNumber(contentOf(folder / "dev"));
    if (!number || !devices.insert(*number).second)
        return;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (fs::exists(entry.path() / "partition", error))
            collectFamily(entry.path(), devices);
    }
    for (const auto& holder : fs::directory_iterator(folder / "holders", error)) {
        const fs::path target = fs::canonical(holder.path(), error);
        if (!error)
            collectFamily(target, devices);
    }
}

/// True when the path names one of the block devices, or a file that lies on one of them.
bool liesOn(const std::set<std::uint64_t>& devices, const std::string& path)
{
    struct stat status = {};
    return path.starts_with('/') && ::stat(path.c_str(), &status) == 0 &&
           devices.contains(S_ISBLK(status.st_mode) ? status.st_rdev : status.st_dev);
}

} // namespace

std::vector<MountLine> readMountLines(std::string_view mountinfo)
{
    // 36 35 98:0 /root /mount/point rw,noatime master:1 - vfat /dev/sdb1 rw
    std::vector<MountLine> lines;
    for (const std::string_view text : splitAt(mountinfo, "\n")) {
        const auto words = splitAt(text, " ");
        const auto dash = std::find(words.begin(), words.end(), "-");
        if (words.size() < 5 || std::distance(dash, words.end()) < 3)
            continue;
        if (const auto device = deviceNumber(words[2]))
            lines.push_back({*device, unescaped(words[4]), unescaped(dash[2])});
    }
    return lines;
}

std::vector<std::string> readSwapPaths(std::string_view swaps)
{
    std::vector<std::string> paths;
    for (const std::string_view line : splitAt(swaps, "\n")) {
        const auto words = splitAt(line, " \t");
        if (!words.empty() && words.front().starts_with('/'))
            paths.push_back(unescaped(words.front()));
    }
    return paths;
}

bool isSystemPath(std::string_view path)
{
    constexpr std::array exactly{std::string_view("/"), std::string_view("/home"),
                                 std::string_view("/cdrom")};
    // Live systems mount their own medium at the last three.
    constexpr std::array andBelow{
        std::string_view("/boot"),     std::string_view("/efi"),      std::string_view("/usr"),
        std::string_view("/var"),      std::string_view("/etc"),      std::string_view("/opt"),
        std::string_view("/srv"),      std::string_view("/root"),     std::string_view("/nix"),
        std::string_view("/run/live"), std::string_view("/lib/live"), std::string_view("/run/initramfs")};
    return std::ranges::find(exactly, path) != exactly.end() ||
           std::ranges::any_of(andBelow, [&](std::string_view folder) {
               return path == folder || (path.starts_with(folder) && path[folder.size()] == '/');
           });
}

bool carriesSystem(std::uint64_t device)
{
    const fs::path folder = sysfsFolder(device);
    std::set<std::uint64_t> family;
    collectFamily(wholeDiskFolder(folder), family);
    const std::vector<MountLine> mounts = readMountLines(contentOf("/proc/self/mountinfo"));
    if (family.empty() || mounts.empty())
        return true;
    for (const MountLine& mount : mounts) {
        // Some file systems, such as btrfs, show a number of their own.
        if (isSystemPath(mount.path) && (family.contains(mount.device) ||
                                         (mount.source.starts_with("/dev/") && liesOn(family, mount.source))))
            return true;
    }
    return std::ranges::any_of(readSwapPaths(contentOf("/proc/swaps")),
                               [&](const std::string& path) { return liesOn(family, path); });
}

std::uint64_t diskSequence(std::uint64_t device)
{
    return numberIn<std::uint64_t>(contentOf(wholeDiskFolder(sysfsFolder(device)) / "diskseq")).value_or(0);
}

std::uint64_t partitionStart(std::uint64_t device)
{
    constexpr std::uint64_t kernelSector = 512; // whatever the medium's own are
    return numberIn<std::uint64_t>(contentOf(sysfsFolder(device) / "start")).value_or(0) * kernelSector;
}

unsigned logicalSectorSize(std::uint64_t device)
{
    return numberIn<unsigned>(contentOf(wholeDiskFolder(sysfsFolder(device)) / "queue/logical_block_size"))
        .value_or(512);
}

std::optional<DescriptorFacts> descriptorFacts(int descriptor)
{
    struct stat status = {};
    int readOnly = 1;
    int sectorSize = 0;
    DescriptorFacts facts;
    if (::fstat(descriptor, &status) != 0 || !S_ISBLK(status.st_mode) ||
        ::ioctl(descriptor, BLKGETSIZE64, &facts.size) != 0 ||
        ::ioctl(descriptor, BLKROGET, &readOnly) != 0 || ::ioctl(descriptor, BLKSSZGET, &sectorSize) != 0)
        return std::nullopt;
    facts.device = status.st_rdev;
    facts.sectorSize = static_cast<unsigned>(sectorSize);
    facts.writable = readOnly == 0 && (::fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_RDWR;
    if (::ioctl(descriptor, BLKGETDISKSEQ, &facts.sequence) != 0)
        facts.sequence = 0;
    return facts;
}

} // namespace marvo
