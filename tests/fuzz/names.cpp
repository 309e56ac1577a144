// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// File names of a card, which need not be UTF-8, and the times in them.
#include "media/MediaScan.h"
#include "require.h"
#include "support/Utf8.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    std::string name(data, data + size);
    std::ranges::replace(name, '\0', '?'); // what no path can hold
    const MRVMedia media(name);
    REQUIRE(media.path().empty() || media.path().front() == '/');
    REQUIRE(media.mediaGroupName().size() <= media.mediaName().size());
    REQUIRE(media.yyyymmddhhmiss().size() == 14);
    REQUIRE(media.mediaDivision() >= 0 && media.mediaDivision() <= 2);
    REQUIRE(media.month() <= 99 && media.second() <= 99 && media.year() <= 9999);
    REQUIRE(media.compareDate(media) == 0);
    REQUIRE(mediaDirection(name) >= FrontMedia && mediaDirection(name) <= UnknownMedia);
    const MRVMedia other(name + "x.avi");
    REQUIRE((media.compareDate(other) < 0) == (other.compareDate(media) > 0));
    createMediaByPath(name);
    REQUIRE(utf8Length(name) <= name.size());
    return 0;
}
