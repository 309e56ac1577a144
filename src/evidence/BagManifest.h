// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Sha256.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace marvo {

/// A manifest of a BagIt folder (RFC 8493): a line a file with its sum, white space, and its path, in which
/// "%0A", "%0D" and "%25" stand for LF, CR and "%".
struct BagManifest
{
    std::map<std::string, Sha256Sum, std::less<>> files; ///< by the path from the folder on
    /// Lines that are none of the above, lead out of the folder, name a file a second time, or have a sum
    /// with digits of both cases within the file, which no program writes.
    std::size_t badLines = 0;

    static BagManifest read(std::string_view text);
    /// As it is written: sorted by path, lower-case digits, two spaces.
    std::string text() const;
};

/// A path as it stands in a manifest, and back.
std::string escapedBagPath(std::string_view path);
std::string unescapedBagPath(std::string_view escaped);

/// True for the content of a "bagit.txt" of version 0.93 to 1.0 in UTF-8.
bool isBagDeclaration(std::string_view text);

/// "bytes.files" of a "Payload-Oxum" line of a "bag-info.txt"; empty without one.
std::string payloadOxumOf(std::string_view bagInfo);

} // namespace marvo
