// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Sha256.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

class WorkControl;

/// Something in a package that is not as packed.
struct BagFinding
{
    enum class What {
        Changed,          ///< other bytes than its sum tells, or no regular file any more
        Missing,          ///< is listed, but not there
        Added,            ///< is there, but not listed
        CannotBeRead,     ///< the medium or its rights forbid it
        Malformed,        ///< a list or declaration that is not what BagIt says
        OtherFingerprint, ///< the package is another one than the fingerprint was told of
    };
    What what = What::Changed;
    std::string path; ///< from the package's folder on
    std::error_code error;
};

struct BagCheckResult
{
    std::error_code error; ///< why the folder could not be looked at
    bool isCancelled = false;
    std::vector<BagFinding> findings; ///< sorted by path
    std::size_t asPacked = 0;         ///< files, lists included that are listed themselves
    std::uint64_t bytes = 0;          ///< of these
    /// Sum of "tagmanifest-sha256.txt"; none without that file.
    std::optional<Sha256Sum> fingerprint;

    /// True when the package is complete and as it was packed.
    bool holds() const { return !error && !isCancelled && findings.empty(); }
};

struct BagCheckProgress
{
    std::uint64_t bytes = 0;
    std::uint64_t totalBytes = 0;
};

/// Checks a BagIt folder (RFC 8493) by its SHA-256 manifests; a folder without "manifest-sha256.txt" is
/// malformed. Each file that it lists must be there unchanged, and none else. The folder may be anybody's: no
/// link is followed, no device opened, no path leads out of it. Writes nothing. Any thread.
BagCheckResult checkBag(const std::string& folder, const std::optional<Sha256Sum>& expectedFingerprint,
                        WorkControl& control,
                        const std::function<void(const BagCheckProgress&)>& onProgress = {});

} // namespace marvo
