// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/FileTree.h"

#include "support/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

namespace marvo {

namespace {

struct CloseListing
{
    void operator()(DIR* listing) const { ::closedir(listing); }
};

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;

class Lister
{
public:
    Lister(const LeaveOut& leaveOutOfRoot, const std::function<bool()>& mayGoOn, dev_t device)
        : m_leaveOutOfRoot(leaveOutOfRoot), m_mayGoOn(mayGoOn), m_device(device)
    {}

    /// Takes the descriptor.
    std::error_code list(Descriptor folder, const std::string& prefix, int depth)
    {
        const std::unique_ptr<DIR, CloseListing> listing(::fdopendir(*folder));
        if (!listing)
            return systemError();
        const int descriptor = folder.release();
        while (!m_mayGoOn || m_mayGoOn()) {
            errno = 0;
            const dirent* const entry = ::readdir(listing.get());
            if (entry == nullptr)
                return errno == 0 ? std::error_code() : systemError();
            const std::string_view name = entry->d_name;
            const bool isLeftOut = depth == 0 && m_leaveOutOfRoot && m_leaveOutOfRoot(name);
            if (name != "." && name != ".." && !isLeftOut)
                take(descriptor, entry->d_name, prefix + std::string(name), depth);
        }
        return {};
    }

    FileTree tree;

private:
    void take(int folder, const char* name, const std::string& path, int depth)
    {
        struct stat facts;
        if (::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
            odd(path, TreeOddity::Kind::CannotBeListed, systemError());
        } else if (S_ISREG(facts.st_mode)) {
            tree.files.push_back({.path = path,
                                  .size = static_cast<std::uint64_t>(facts.st_size),
                                  .modified = facts.st_mtim,
                                  .accessed = facts.st_atim,
                                  .inode = facts.st_ino});
        } else if (S_ISLNK(facts.st_mode)) {
            odd(path, TreeOddity::Kind::Link);
        } else if (!S_ISDIR(facts.st_mode)) {
            odd(path, TreeOddity::Kind::Special);
        } else if (facts.st_dev != m_device) {
            odd(path, TreeOddity::Kind::OtherDevice);
        } else if (depth >= deepestFolder) {
            odd(path, TreeOddity::Kind::TooDeep);
        } else {
            Descriptor inner(::openat(folder, name, folderFlags));
            const std::error_code error =
                inner ? list(std::move(inner), path + '/', depth + 1) : systemError();
            if (error)
                odd(path, TreeOddity::Kind::CannotBeListed, error);
        }
    }

    void odd(const std::string& path, TreeOddity::Kind kind, std::error_code error = {})
    {
        tree.oddities.push_back({.path = path, .kind = kind, .error = error});
    }

    const LeaveOut& m_leaveOutOfRoot;
    const std::function<bool()>& m_mayGoOn;
    dev_t m_device;
};

/// The folder of the last component, and that component.
std::pair<Descriptor, std::string> openParent(int folder, std::string_view path)
{
    Descriptor parent(::openat(folder, ".", folderFlags));
    for (std::size_t slash = path.find('/'); parent && slash != std::string_view::npos;
         slash = path.find('/')) {
        parent = Descriptor(::openat(*parent, std::string(path.substr(0, slash)).c_str(), folderFlags));
        path.remove_prefix(slash + 1);
    }
    return {std::move(parent), std::string(path)};
}

} // namespace

bool TreeFile::looksAs(const TreeFile& other) const
{
    return path == other.path && size == other.size && modified.tv_sec == other.modified.tv_sec &&
           modified.tv_nsec == other.modified.tv_nsec;
}

FileTree listTree(int folder, const LeaveOut& leaveOutOfRoot, const std::function<bool()>& mayGoOn)
{
    struct stat facts;
    Descriptor root(::openat(folder, ".", folderFlags));
    if (!root || ::fstat(*root, &facts) != 0) {
        FileTree none;
        none.error = systemError();
        return none;
    }
    Lister lister(leaveOutOfRoot, mayGoOn, facts.st_dev);
    lister.tree.error = lister.list(std::move(root), {}, 0);
    std::ranges::sort(lister.tree.files, {}, &TreeFile::path);
    std::ranges::sort(lister.tree.oddities, {}, &TreeOddity::path);
    return std::move(lister.tree);
}

Descriptor openFolder(const std::string& path)
{
    return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

Descriptor openFileWithin(int folder, std::string_view path)
{
    const auto [parent, name] = openParent(folder, path);
    if (!parent)
        return {};
    // Looked at first: the opening alone can do something to a device.
    struct stat facts;
    if (::fstatat(*parent, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return {};
    if (!S_ISREG(facts.st_mode)) {
        errno = EINVAL;
        return {};
    }
    Descriptor file(
        ::openat(*parent, name.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (file && (::fstat(*file, &facts) != 0 || !S_ISREG(facts.st_mode))) {
        file.reset();
        errno = EINVAL;
    }
    return file;
}

Descriptor openFolderWithin(int folder, std::string_view path)
{
    if (path.empty())
        return Descriptor(::openat(folder, ".", folderFlags));
    const auto [parent, name] = openParent(folder, path);
    return parent ? Descriptor(::openat(*parent, name.c_str(), folderFlags)) : Descriptor();
}

} // namespace marvo
