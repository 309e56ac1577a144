// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Archive.h"
#include "archive/ArchiveWriter.h"
#include "archive/CardCopy.h"

#include <chrono>
#include <string_view>

namespace marvo {

/// The log of one copy, in `.marvo/transfers` of the archive: a line a file with what became of it. Nothing
/// depends on it: what cannot be written to it is lost.
class TransferLog
{
public:
    void open(const Archive& archive, std::string_view card, std::string_view cardIdentifier,
              std::string_view car);
    void there(std::string_view cardPath, const Sha256Sum& sum, std::uint64_t size);
    void placed(const PlacedFile& file);
    void note(const CardCopyProblem& problem);
    void close(const CardCopyResult& result, const CardCopyResult::ArchiveOutcome& outcome);

private:
    void line(std::string_view text);

    Descriptor m_file;
    std::string m_text; ///< not written yet
    std::chrono::steady_clock::time_point m_begin;
};

/// A problem as one line of English without its path, such as "read in part, 1234 bytes: Input/output error".
std::string problemText(const CardCopyProblem& problem);

/// A path for one line of text: backslash, CR and LF as "\\", "\r" and "\n".
std::string lineOfPath(std::string_view path);

} // namespace marvo
