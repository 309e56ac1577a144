// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/StandardInput.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace marvo::cli {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

StandardInput failure(const char* what, int code)
{
    return {.source = nullptr, .error = what + std::generic_category().message(code)};
}

} // namespace

StandardInput StandardInput::open()
{
    const auto duplicate = [](int descriptor) { return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0); };
    const int input = duplicate(STDIN_FILENO);
    if (input < 0)
        return failure("", errno);
    if (auto file = std::make_unique<FileSource>(input); file->isOpen())
        return {.source = std::move(file), .error = {}};

    const File spool(std::tmpfile(), &std::fclose);
    if (!spool)
        return failure("no temporary file: ", errno);
    std::vector<char> block(256 * 1024);
    for (;;) {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failure("", errno);
        if (count == 0)
            break;
        if (std::fwrite(block.data(), 1, static_cast<std::size_t>(count), spool.get()) !=
            static_cast<std::size_t>(count))
            return failure("temporary file: ", errno);
    }
    if (std::fflush(spool.get()) != 0 || std::fseek(spool.get(), 0, SEEK_SET) != 0)
        return failure("temporary file: ", errno);
    const int descriptor = duplicate(::fileno(spool.get()));
    if (descriptor < 0)
        return failure("temporary file: ", errno);
    return {.source = std::make_unique<FileSource>(descriptor), .error = {}};
}

} // namespace marvo::cli
