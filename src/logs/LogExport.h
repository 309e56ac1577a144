// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "logs/DrivingLog.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace marvo {

/// Takes a piece of an export; an error ends it.
using LogExportSink = std::function<std::error_code(std::string_view piece)>;
/// Called now and then with the number of records written; returning false cancels the export.
using LogExportProgress = std::function<bool(std::uint64_t records)>;

/// Writes a log as comma-separated text: a line of titles, one for each column, then a line a record, all as
/// UTF-8 without quotes. The sink's error, operation_canceled when abandoned, or none.
std::error_code writeLogAsCsv(const DrivingLog& log, std::span<const std::string> titles,
                              const LogExportSink& sink, const LogExportProgress& progress = {});

/// As writeLogAsCsv(), into a file that is replaced as a whole or stays as it was. The file that the log was
/// read from is refused (file_exists).
std::error_code exportLog(const DrivingLog& log, std::span<const std::string> titles, const std::string& path,
                          const LogExportProgress& progress = {});

} // namespace marvo
