// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace marvo::cli {

/// What a command ends with; main() hands it to the shell.
enum ExitCode { Done = 0, Failed = 1, WrongUsage = 2 };

/// The words after the command's own name, as the shell gave them (file names are bytes, not text).
using Arguments = std::vector<std::string_view>;

/// One command of marvo-cli: writes its result to stdout, its errors to stderr.
struct Command
{
    std::string_view name;
    std::string_view summary; ///< one line of `marvo-cli --help`
    std::string_view usage;   ///< the text of `marvo-cli NAME --help`
    ExitCode (*run)(const Arguments&);
};

extern const Command inspectCommand;  ///< InspectCommand.cpp
extern const Command nmeaCommand;     ///< NmeaCommand.cpp
extern const Command listCommand;     ///< ListCommand.cpp
extern const Command settingsCommand; ///< SettingsCommand.cpp
extern const Command logCommand;      ///< LogCommand.cpp
extern const Command drivesCommand;   ///< DrivesCommand.cpp
extern const Command eventsCommand;   ///< EventsCommand.cpp
extern const Command archiveCommand;  ///< ArchiveCommand.cpp
extern const Command trackCommand;    ///< TrackCommand.cpp
extern const Command verifyCommand;   ///< VerifyCommand.cpp
extern const Command clipCommand;     ///< FilmCommands.cpp
extern const Command repairCommand;   ///< FilmCommands.cpp
extern const Command reportCommand;   ///< ReportCommand.cpp
extern const Command demoCommand;     ///< DemoCommand.cpp

/// Prints "marvo-cli NAME: MESSAGE" and where to find help to stderr; returns WrongUsage.
ExitCode wrongUsage(const Command& command, std::string_view message);
/// Prints "marvo-cli NAME: MESSAGE" to stderr; returns Failed.
ExitCode failed(const Command& command, std::string_view message);
/// Writes the text to stdout at once; false when that fails (a full disk). Ends the process by SIGPIPE when
/// nobody reads stdout any more.
bool writeOut(std::string_view text);

} // namespace marvo::cli
