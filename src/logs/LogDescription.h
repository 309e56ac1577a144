// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace marvo {

/// One column of a driving log's table.
struct LogColumn
{
    enum class Title { Key, Literal };

    std::string_view title; ///< a key of the string table, or the title itself
    int width;              ///< in points
    Title titleIs = Title::Key;
};

/// Describes one kind of driving log, for the table, the export and the command line tool.
struct LogDescription
{
    std::string_view fileType;   ///< of its files, lower case without the dot
    std::string_view exportName; ///< proposed for an export, without its type
    std::size_t recordSize;      ///< in bytes
    std::span<const LogColumn> columns;
    std::size_t latitudeColumn;
    std::size_t longitudeColumn;

    /// Writes the text of one cell, at most maxCellLength characters, and returns where it ends. The record
    /// has recordSize bytes, rows count from 0, and the column must exist.
    char* (*writeCell)(const std::byte* record, std::uint64_t row, std::size_t column, char* into);
    /// Writes all cells of a record with commas between and a line end after them, and returns where that
    /// ends: at most maxCellLength + 1 characters a column.
    char* (*writeLine)(const std::byte* record, std::uint64_t row, char* into);
};

/// The driving log that every camera keeps (.drv).
const LogDescription& flashDataLog();
/// The log of a camera with an OBD adapter (.obd).
const LogDescription& obdDriveInfoLog();

/// The log that a file of this name holds, whatever the case of its type; null for any other name.
const LogDescription* logOfFile(std::string_view path);

} // namespace marvo
