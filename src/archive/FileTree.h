// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Descriptor.h"

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

/// A regular file below a folder.
struct TreeFile
{
    std::string path; ///< from the folder on, components joined by '/'; bytes
    std::uint64_t size = 0;
    timespec modified{};
    timespec accessed{};
    std::uint64_t inode = 0;

    /// Same name, size and time.
    bool looksAs(const TreeFile& other) const;
};

/// Something below a folder that is not a regular file, or could not be listed.
struct TreeOddity
{
    enum class Kind {
        Link,
        Special,       ///< a device, pipe or socket
        OtherDevice,   ///< a folder on which another file system is mounted
        TooDeep,       ///< more than `deepestFolder` levels, as in a file system that goes in circles
        CannotBeListed ///< a folder, or an entry of which the system tells nothing
    };
    std::string path;
    Kind kind = Kind::Special;
    std::error_code error; ///< of CannotBeListed
};

struct FileTree
{
    std::vector<TreeFile> files;      ///< sorted by path
    std::vector<TreeOddity> oddities; ///< sorted by path
    std::error_code error;            ///< why the folder itself could not be listed
};

inline constexpr int deepestFolder = 64;

/// A name of the folder's own that is no part of the tree; with it nothing below. May be empty.
using LeaveOut = std::function<bool(std::string_view name)>;

/// Lists every regular file below a folder (a descriptor), hidden ones included. Links are not followed,
/// other file systems not entered, files not opened. A requested stop is answered with what was found by
/// then.
FileTree listTree(int folder, const LeaveOut& leaveOutOfRoot = {}, const std::function<bool()>& mayGoOn = {});

/// Opens a folder, by a path that may go through links.
Descriptor openFolder(const std::string& path);
/// Opens a regular file below a folder for reading; no component of the path may be a link. Without one the
/// errno is EINVAL for what is no regular file.
Descriptor openFileWithin(int folder, std::string_view path);
/// Opens a folder below a folder in the same way. An empty path is the folder itself.
Descriptor openFolderWithin(int folder, std::string_view path);

} // namespace marvo
