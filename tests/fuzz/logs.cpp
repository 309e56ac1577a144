// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Driving logs of both kinds: reading, cells, the way, export.
#include "logs/DrivingLog.h"
#include "logs/LogExport.h"
#include "MemoryFile.h"
#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    const fuzz::MemoryFile file(data, size);
    for (const LogDescription* description : {&flashDataLog(), &obdDriveInfoLog()}) {
        const auto reading = DrivingLog::read(file.path(), *description);
        REQUIRE((reading.log == nullptr) == (reading.fault != DrivingLog::Fault::None));
        if (!reading.log)
            continue;
        const DrivingLog& log = *reading.log;
        REQUIRE(log.recordCount() <= log.promisedCount());
        REQUIRE(log.recordCount() * description->recordSize <= size);
        REQUIRE(log.way().size() <= log.recordCount());

        std::string expected;
        const std::vector<std::string> titles(description->columns.size(), "t");
        for (std::size_t column = 0; column < titles.size(); ++column)
            expected += column == 0 ? "t" : ",t";
        DrivingLog::CellBuffer buffer;
        for (std::uint64_t row = 0; row < log.recordCount(); ++row) {
            expected += '\n';
            for (std::size_t column = 0; column < titles.size(); ++column) {
                const std::string_view cell = log.cellText(column, row, buffer);
                REQUIRE(cell.size() <= buffer.size());
                (column == 0 ? expected : expected += ',').append(cell);
            }
        }
        expected += '\n';
        std::string csv;
        REQUIRE(!writeLogAsCsv(log, titles, [&](std::string_view piece) {
            csv += piece;
            return std::error_code();
        }));
        REQUIRE(csv == expected);
    }
    return 0;
}
