// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace marvo {

/// Makes SIGTERM, SIGINT and SIGHUP remove the temporary files before they end the process; a signal that was
/// ignored stays ignored. A write beyond the process's file size limit (SIGXFSZ) becomes a failed write. Call
/// once when the program starts, before any thread.
void cleanUpOnTermination();

/// Registers a file for removal if the process is asked to end while this object lives. It can be registered
/// before it exists; no other file may ever have its name.
///
/// There is room for 64 files, far more than are ever written at once. A file beyond that is not removed.
class TemporaryNote
{
public:
    TemporaryNote() = default;
    ~TemporaryNote() { drop(); }
    TemporaryNote(const TemporaryNote&) = delete;
    TemporaryNote& operator=(const TemporaryNote&) = delete;

    /// The folder is a descriptor, which stays open until drop().
    void take(int folder, std::string_view name);
    void drop();

private:
    int m_slot = -1;
};

/// Delays a requested end while it lives. For short moments in which a file is half written. Any thread.
class TerminationPause
{
public:
    TerminationPause();
    ~TerminationPause();
    TerminationPause(const TerminationPause&) = delete;
    TerminationPause& operator=(const TerminationPause&) = delete;
};

} // namespace marvo
