// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The AVI header, from which the player takes length and size.
#include "media/AviHeader.h"
#include "MemoryFile.h"
#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    const fuzz::MemoryFile file(data, size);
    const auto result = readAviHeader(file.path());
    if (const auto* header = std::get_if<AviHeader>(&result)) {
        REQUIRE(header->fileSizeBytes == size);
        REQUIRE(header->durationMs >= 0 && header->streamDurationMs >= 0);
        for (const std::int64_t found : {std::int64_t{0}, std::int64_t{59000}, INT64_MAX})
            REQUIRE(header->durationMsBeside(found) >= 0);
    } else {
        REQUIRE(size > 0 || std::get<AviFault>(result) == AviFault::Empty);
    }
    return 0;
}
