// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/MediumReading.h"

#include "support/Descriptor.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace marvo {

namespace {

constexpr std::size_t pieceSize = 1024 * 1024;
constexpr std::size_t directAlignment = 4096;

struct FreeMemory
{
    void operator()(std::byte* memory) const { std::free(memory); }
};
using AlignedBuffer = std::unique_ptr<std::byte[], FreeMemory>;

/// One a thread: a card of many small files must not ask for as many buffers.
std::byte* pieceBuffer()
{
    thread_local const AlignedBuffer buffer(
        static_cast<std::byte*>(std::aligned_alloc(directAlignment, pieceSize)));
    return buffer.get();
}

/// True when no page of the file is in the system's cache.
bool isOutOfCache(int file, std::uint64_t size)
{
    constexpr std::uint64_t windowSize = std::uint64_t{256} * 1024 * 1024;
    const auto pageSize = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> pages;
    for (std::uint64_t start = 0; start < size; start += windowSize) {
        const std::uint64_t length = std::min(windowSize, size - start);
        void* const mapped = ::mmap(nullptr, length, PROT_READ, MAP_SHARED, file, static_cast<off_t>(start));
        if (mapped == MAP_FAILED)
            return false;
        pages.assign((length + pageSize - 1) / pageSize, 1);
        const bool isTold = ::mincore(mapped, length, pages.data()) == 0;
        ::munmap(mapped, length);
        if (!isTold || std::ranges::any_of(pages, [](unsigned char page) { return (page & 1) != 0; }))
            return false;
    }
    return true;
}

/// A second descriptor that reads around the cache; none where the file system has no such thing.
Descriptor openDirect(int file)
{
    Descriptor direct(::open(("/proc/self/fd/" + std::to_string(file)).c_str(),
                             O_RDONLY | O_DIRECT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    struct stat asked;
    struct stat opened;
    if (!direct || ::fstat(file, &asked) != 0 || ::fstat(*direct, &opened) != 0 ||
        asked.st_ino != opened.st_ino || asked.st_dev != opened.st_dev ||
        ::pread(*direct, pieceBuffer(), directAlignment, 0) < 0)
        return {};
    return direct;
}

} // namespace

MediumReading readMedium(int file, const OnBytesRead& onRead, std::optional<std::uint64_t> upTo)
{
    MediumReading result;
    struct stat facts;
    if (pieceBuffer() == nullptr || ::fstat(file, &facts) != 0) {
        result.error = errno;
        return result;
    }
    const auto size = static_cast<std::uint64_t>(std::max<off_t>(facts.st_size, 0));
    const std::uint64_t end = std::min(upTo.value_or(size), size);

    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    result.isPastCache = isOutOfCache(file, size);
    Descriptor direct;
    if (!result.isPastCache) {
        direct = openDirect(file);
        result.isPastCache = static_cast<bool>(direct);
    }
    if (!direct)
        ::posix_fadvise(file, 0, 0, POSIX_FADV_SEQUENTIAL);

    Sha256 sum;
    while (result.bytes < end) {
        const ssize_t count =
            ::pread(direct ? *direct : file, pieceBuffer(), pieceSize, static_cast<off_t>(result.bytes));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            result.error = errno;
        if (count <= 0)
            break;
        const std::uint64_t taken = std::min(static_cast<std::uint64_t>(count), end - result.bytes);
        sum.add({pieceBuffer(), static_cast<std::size_t>(taken)});
        result.bytes += taken;
        if (onRead && !onRead(taken)) {
            result.cancelled = true;
            break;
        }
        // A direct read that stops off a block's boundary was the last one.
        if (direct && static_cast<std::size_t>(count) % directAlignment != 0)
            break;
    }
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    result.sum = sum.finish();
    result.isWhole = result.error == 0 && !result.cancelled && result.bytes == upTo.value_or(size);
    return result;
}

} // namespace marvo
