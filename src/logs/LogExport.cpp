// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/LogExport.h"

#include "support/AtomicFile.h"

#include <filesystem>
#include <vector>

namespace marvo {

namespace {

constexpr std::size_t pieceSize = 256 * 1024;

} // namespace

std::error_code writeLogAsCsv(const DrivingLog& log, std::span<const std::string> titles,
                              const LogExportSink& sink, const LogExportProgress& progress)
{
    std::string heading;
    for (const std::string& title : titles)
        heading.append(&title == titles.data() ? "" : ",").append(title);
    if (const std::error_code error = sink(heading + '\n'))
        return error;

    const LogDescription& description = log.description();
    const std::size_t longestLine = description.columns.size() * (maxCellLength + 1);
    std::vector<char> piece(pieceSize + longestLine);
    char* end = piece.data();
    for (std::uint64_t row = 0; row < log.recordCount(); ++row) {
        end = description.writeLine(log.record(row), row, end);
        const auto filled = static_cast<std::size_t>(end - piece.data());
        if (filled < pieceSize && row + 1 < log.recordCount())
            continue;
        if (progress && !progress(row))
            return std::make_error_code(std::errc::operation_canceled);
        if (const std::error_code error = sink({piece.data(), filled}))
            return error;
        end = piece.data();
    }
    if (progress && !progress(log.recordCount()))
        return std::make_error_code(std::errc::operation_canceled);
    return {};
}

std::error_code exportLog(const DrivingLog& log, std::span<const std::string> titles, const std::string& path,
                          const LogExportProgress& progress)
{
    std::error_code ignored; // what cannot be compared is not there, or will be refused when it is opened
    if (std::filesystem::equivalent(path, log.path(), ignored))
        return std::make_error_code(std::errc::file_exists);
    AtomicFile file;
    if (const std::error_code error = file.open(path))
        return error;
    const auto sink = [&](std::string_view piece) { return file.write(piece); };
    if (const std::error_code error = writeLogAsCsv(log, titles, sink, progress))
        return error;
    return file.commit();
}

} // namespace marvo
