// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvo {

/// A mounted file system, as a line of /proc/self/mountinfo tells it.
struct MountLine
{
    std::uint64_t device = 0; ///< number of the block device; of no meaning for file systems without one
    std::string path;
    std::string source; ///< "/dev/sdb1", or whatever the file system calls it
};
/// Reads the lines of /proc/self/mountinfo; what is no such line is passed over.
std::vector<MountLine> readMountLines(std::string_view mountinfo);

/// The paths in the first column of /proc/swaps.
std::vector<std::string> readSwapPaths(std::string_view swaps);

/// True for a place in the file system that the machine runs from, such as "/", "/boot/efi" or "/home".
bool isSystemPath(std::string_view path);

/// True when any part of the disk that the block device belongs to holds such a place or swap space, be it
/// through an encrypted or logical volume. Also true when the system does not say.
bool carriesSystem(std::uint64_t device);

/// Which medium is in the drive, as a number that the system never gives twice (its disk sequence number); 0
/// where the system counts none.
std::uint64_t diskSequence(std::uint64_t device);

/// Where a partition begins on its medium, in bytes; 0 for a whole medium.
std::uint64_t partitionStart(std::uint64_t device);
/// Bytes of a sector of its medium; 512 when the system does not say.
unsigned logicalSectorSize(std::uint64_t device);

/// The device behind an open descriptor.
struct DescriptorFacts
{
    std::uint64_t device = 0;
    std::uint64_t size = 0;     ///< bytes
    std::uint64_t sequence = 0; ///< as diskSequence()
    unsigned sectorSize = 0;    ///< bytes
    bool writable = false;      ///< both the device and the descriptor
};
/// None when it is no block device, or one that has gone.
std::optional<DescriptorFacts> descriptorFacts(int descriptor);

} // namespace marvo
