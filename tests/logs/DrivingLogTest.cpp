// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/DrivingLog.h"
#include "logs/CellText.h"
#include "logs/LogBytes.h"
#include "logs/LogExport.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <random>
#include <thread>
#include <unistd.h>

namespace marvo {
namespace {

using test::putAt;
using test::TemporaryFolder;

std::string cell(const LogDescription& log, const std::string& record, std::size_t column,
                 std::uint64_t row = 0)
{
    std::string text(maxCellLength, '?');
    const auto* bytes = reinterpret_cast<const std::byte*>(record.data());
    text.resize(static_cast<std::size_t>(log.writeCell(bytes, row, column, text.data()) - text.data()));
    return text;
}

/// What one field's bytes make of one column; all other bytes of the record are 0xEE, so that a column that
/// reads elsewhere shows it.
struct CellCase
{
    std::size_t column;
    const char* text;
    std::vector<std::pair<std::size_t, std::int64_t>> fields; ///< offset and value
    std::size_t width = 2;                                    ///< of each field, in bytes
};

void verify(const LogDescription& log, const std::vector<CellCase>& cases)
{
    for (const CellCase& one : cases) {
        std::string record(log.recordSize, '\xEE');
        for (const auto& [offset, value] : one.fields) {
            for (std::size_t i = 0; i < one.width; ++i)
                record[offset + i] = static_cast<char>(value >> 8 * i & 0xFF);
        }
        EXPECT_EQ(cell(log, record, one.column), one.text) << log.fileType << " column " << one.column;
    }
}

TEST(DrivingLogCells, ofTheDrivingLog)
{
    EXPECT_EQ(cell(flashDataLog(), std::string(40, '\xEE'), 0, 4'294'967'294), "4294967295");
    const std::vector<CellCase> cases = {
        {1, "65535", {{0, 65535}}},
        {2, "2155/255/00", {{4, 255}, {5, 255}, {6, 0}}, 1},
        {3, "09:05:00", {{7, 9}, {8, 5}, {9, 0}}, 1},
        {4, "SUN", {{2, 0}}, 1},
        {4, "SAT", {{2, 6}}, 1},
        {4, "-", {{2, 7}}, 1},
        {5, "0000.0000", {{10, 0}, {12, 0}}},
        {5, "65535.65535", {{10, 65535}, {12, 65535}}},
        {6, "00007.0000", {{14, 7}, {16, 0}}},
        {7, "400000000.0", {{20, 4'000'000'000}}, 4},
        {8, "60000", {{18, 60000}}},
        {9, "60000", {{28, 60000}}},
        {10, "A", {{3, 1}}, 1},
        {10, "V", {{3, 2}}, 1},
        {11, "+1.00", {{32, 256}}},
        {12, "-0.50", {{34, -128}}},
        {13, "-128.00", {{36, -32768}}},
        {14, "12.5", {{38, 125}}},
        {14, " 9.9", {{38, 99}}},
        {14, " 0.-5", {{38, -5}}},
        {14, "-12.-5", {{38, -125}}},
    };
    verify(flashDataLog(), cases);
}

TEST(DrivingLogCells, ofTheObdLog)
{
    std::vector<CellCase> cases = {
        {1, "70000", {{0, 70000}}, 4},
        {2, "2024/12/31", {{5, 124}, {6, 12}, {7, 31}}, 1},
        {3, "23:59:58", {{8, 23}, {9, 59}, {10, 58}}, 1},
        {4, "MON", {{11, 1}}, 1},
        {5, "3733.1234", {{12, 3733}, {14, 1234}}},
        {6, "12658.0040", {{16, 12658}, {18, 40}}},
        {10, "2147483.6", {{28, 2'147'483'647}}, 4},
        {10, "-", {{28, -1}}, 4},
        {11, "12.6", {{32, 12600}}},
        {11, "-", {{32, -1}}},
        {16, "-35", {{42, -35}}},
        {16, "9998", {{42, 9998}}},
        {16, "-", {{42, 9999}}},
        {18, "-", {{46, 0}}},
        {18, "3", {{46, 3}}},
        {22, "-5.0", {{54, -500}}},
        {22, "-", {{54, 9999}}},
        {22, "-0.0", {{54, -4}}},
        {23, "+1.00", {{60, 256}}},
        {24, "-0.50", {{62, -128}}},
        {25, "-0.00", {{64, -1}}},
    };
    const char* const gears[] = {"-", "P", "R", "N", "D", "-"};
    for (std::int64_t gear = 0; gear < std::ssize(gears); ++gear)
        cases.push_back({19, gears[gear], {{48, gear}}});
    const std::pair<std::size_t, std::size_t> numbers[] = {{7, 24}, {8, 20}, {9, 26}, {12, 34}, {21, 52}};
    for (const auto& [column, offset] : numbers) {
        cases.push_back({column, "32767", {{offset, 32767}}});
        cases.push_back({column, "-", {{offset, -1}}});
    }
    cases.push_back({20, "-", {{50, 2}}});
    const std::tuple<std::size_t, std::size_t, int> states[] = {
        {13, 36, 7}, {14, 38, 7}, {15, 40, 7}, {17, 44, 7}, {20, 50, 1}};
    for (const auto& [column, offset, on] : states) {
        cases.push_back({column, "OFF", {{offset, 0}}});
        cases.push_back({column, "ON", {{offset, on}}});
        cases.push_back({column, "-", {{offset, -1}}});
    }
    verify(obdDriveInfoLog(), cases);
}

/// The numbers with decimals are made of whole ones; printf says what they must be.
TEST(DrivingLogCells, decimalsAreThoseOfPrintf)
{
    const auto verifyText = [](auto write, const char* format, double value) {
        std::array<char, maxCellLength> written;
        CellText out(written.data(), 0);
        write(out);
        std::array<char, 64> expected;
        const int length = std::snprintf(expected.data(), expected.size(), format, value);
        ASSERT_EQ(std::string_view(written.data(), static_cast<std::size_t>(out.end() - written.data())),
                  std::string_view(expected.data(), static_cast<std::size_t>(length)));
    };
    for (int raw = -32768; raw <= 32767; ++raw) {
        const auto value = static_cast<std::int16_t>(raw);
        verifyText([&](CellText& out) { out.signedHundredthsOf256th(value); }, "%+.2f",
                   static_cast<double>(static_cast<float>(value)) * 0.00390625);
        verifyText([&](CellText& out) { out.tenths(value, 100); }, "%.1f", value / 100.0);
        verifyText([&](CellText& out) { out.tenths(value, 1000); }, "%.1f", value / 1000.0);
    }
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp): failures must be repeatable
    for (int round = 0; round < 100'000; ++round) {
        const auto any = static_cast<std::uint32_t>(random());
        verifyText([&](CellText& out) { out.tenths(any, 10); }, "%.1f", any / 10.0);
        const std::uint32_t half = any / 200 * 100 + 50; // between two tenths
        verifyText([&](CellText& out) { out.tenths(half, 1000); }, "%.1f", half / 1000.0);
    }
}

TEST(DrivingLogFile, isNamedByItsType)
{
    EXPECT_EQ(logOfFile("/card/DrvInfo/marvo_000.drv"), &flashDataLog());
    EXPECT_EQ(logOfFile("X.OBD"), &obdDriveInfoLog());
    for (const char* other : {"", "drv", ".dr", "/a.drv/b", "a.drv.csv"})
        EXPECT_EQ(logOfFile(other), nullptr) << other;
}

TEST(DrivingLogFile, cutAtEveryByte)
{
    const TemporaryFolder folder;
    const std::string whole = test::drivingLog(3, 3);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const auto reading = DrivingLog::read(folder.write("a.drv", whole.substr(0, size)), flashDataLog());
        ASSERT_EQ(reading.log == nullptr, size < 12);
        if (!reading.log) {
            EXPECT_EQ(reading.fault, DrivingLog::Fault::NoLog) << size;
            continue;
        }
        EXPECT_EQ(reading.log->recordCount(), (size - 12) / 40);
        EXPECT_EQ(reading.log->promisedCount(), 3U);
        EXPECT_EQ(reading.log->endsEarly(), size < whole.size());
    }
}

TEST(DrivingLogFile, countsThatAreNotTrue)
{
    const TemporaryFolder folder;
    const std::tuple<std::uint32_t, std::uint32_t, std::uint64_t> rows[] = {
        {0xFFFFFFFF, 2, 2}, {1, 5, 1}, {0, 5, 0}};
    for (const auto& [promised, written, expected] : rows) {
        const std::string bytes = test::drivingLog(promised, written) + "half a record";
        const auto reading = DrivingLog::read(folder.write("a.drv", bytes), flashDataLog());
        ASSERT_NE(reading.log, nullptr);
        EXPECT_EQ(reading.log->recordCount(), expected);
        EXPECT_EQ(reading.log->endsEarly(), promised > written);
    }
    // A hole of 170 GB takes no room on the disk, but would in memory.
    const std::string path = folder.write("a.drv", test::drivingLog(0xFFFFFFFF, 0));
    ASSERT_EQ(::truncate(path.c_str(), 12 + 0xFFFFFFFFLL * 40), 0);
    EXPECT_EQ(DrivingLog::read(path, flashDataLog()).fault, DrivingLog::Fault::NoMemory);
    for (const std::string& none : {folder.path("none.drv"), folder.path()})
        EXPECT_EQ(DrivingLog::read(none, flashDataLog()).fault, DrivingLog::Fault::CannotOpen);
}

TEST(DrivingLogFile, cutWhileItIsReadIsAFault)
{
    const TemporaryFolder folder;
    const std::string bytes = test::drivingLog(200'000, 200'000);
    const std::string path = folder.write("a.drv", bytes);
    std::atomic<bool> ended = false;
    std::jthread cutter([&] {
        while (!ended) {
            std::filesystem::resize_file(path, 100);
            std::filesystem::resize_file(path, bytes.size());
        }
    });
    for (int round = 0; round < 100; ++round) {
        const auto reading = DrivingLog::read(path, flashDataLog());
        if (!reading.log) {
            EXPECT_EQ(reading.fault, DrivingLog::Fault::CannotRead);
            EXPECT_FALSE(reading.detail.empty());
        } else {
            EXPECT_TRUE(reading.log->recordCount() == 200'000U || reading.log->recordCount() == 2U);
        }
    }
    ended = true;
}

TEST(DrivingLogWay, leavesOutWhatIsNoPlaceAndKeepsGaps)
{
    const TemporaryFolder folder;
    std::string file = test::logHeader(70'006);
    file += test::drivingRecord(0, 0, 0, 12658, 40);
    file += test::drivingRecord(1, 3733, 1234, 0, 0);
    file += test::drivingRecord(2, 3733, 1234);
    file += test::drivingRecord(3, 3733, 1234);
    // Some 18 m a record, and a gap of a degree in the middle.
    for (const int degrees : {3800, 4000}) {
        for (int i = 0; i < 35'000; ++i)
            file += test::drivingRecord(4, static_cast<std::uint16_t>(degrees + i / 100 % 60),
                                        static_cast<std::uint16_t>(i % 100 * 100));
    }
    file += test::drivingRecord(6, 0, 0, 0, 0) + test::drivingRecord(7, 4059, 9999);
    const auto log = DrivingLog::read(folder.write("a.drv", file), flashDataLog()).log;
    ASSERT_NE(log, nullptr);
    EXPECT_NEAR(log->position(2).latitude, 37.552057, 5e-7);
    EXPECT_NEAR(log->position(2).longitude, 126.966733, 5e-7);

    const auto way = log->way();
    EXPECT_LE(way.size(), 50'000U);
    EXPECT_GE(way.size(), 10'000U);
    EXPECT_NEAR(way.front().latitude, 37.552057, 5e-7);
    EXPECT_NEAR(way.back().latitude, 40 + 59.9999 / 60, 5e-7);
}

TEST(DrivingLogExport, everyRowOfManyPiecesIsThere)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("a.drv", test::drivingLog(30'000, 30'000));
    const auto log = DrivingLog::read(path, flashDataLog()).log;
    const std::vector<std::string> titles(flashDataLog().columns.size(), "a");
    std::string text;
    ASSERT_FALSE(writeLogAsCsv(*log, titles, [&](std::string_view piece) {
        text += piece;
        return std::error_code();
    }));
    std::size_t row = 0;
    DrivingLog::CellBuffer buffer;
    for (std::size_t at = text.find('\n') + 1; at < text.size(); at = text.find('\n', at) + 1, ++row) {
        const std::string begin = std::to_string(row + 1) + ',' + std::to_string(row % 65536) + ',';
        ASSERT_EQ(text.substr(at, begin.size()), begin);
        const std::string lat(log->cellText(5, row, buffer));
        ASSERT_NE(text.substr(at, text.find('\n', at) - at).find(lat), std::string::npos);
    }
    EXPECT_EQ(row, 30'000U);
}

} // namespace
} // namespace marvo
