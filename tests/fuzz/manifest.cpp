// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Lists of sums from packages and archives of strangers.
#include "archive/SumsList.h"
#include "evidence/BagManifest.h"
#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    const std::string text(data, data + size);
    const BagManifest manifest = BagManifest::read(text);
    for (const auto& [path, sum] : manifest.files) {
        REQUIRE(isPathWithin(path));
        REQUIRE(unescapedBagPath(escapedBagPath(path)) == path);
    }
    const BagManifest again = BagManifest::read(manifest.text());
    REQUIRE(again.files == manifest.files && again.badLines == 0);

    SumsList sums;
    sums.read(text);
    for (const auto& [path, sum] : sums.entries())
        REQUIRE(isPathWithin(path));
    SumsList same;
    same.read(sums.text());
    REQUIRE(same.entries() == sums.entries() && same.badLines().size() == sums.badLines().size());
    isBagDeclaration(text);
    payloadOxumOf(text);
    return 0;
}
