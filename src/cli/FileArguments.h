// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Commands.h"

#include <optional>
#include <string>

namespace marvo::cli {

enum class OutputFormat { Text, Json };

/// Which sentences NMEA text is read for.
enum class Sentences { Standard, Dialect };

/// The arguments of a command that shows one file of NMEA sentences: FILE, --json and --dialect in any order;
/// "--" ends the options.
struct FileArguments
{
    std::string file;
    OutputFormat format = OutputFormat::Text;
    Sentences sentences = Sentences::Standard;

    /// None after a message to stderr when the arguments are anything else.
    static std::optional<FileArguments> parse(const Command& command, const Arguments& arguments);
};

} // namespace marvo::cli
