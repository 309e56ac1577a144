// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// A medium that ends or fails at any byte under everything that reads one.
#include "demo/Recording.h"
#include "faults/FaultySystem.h"
#include "logs/DrivingLog.h"
#include "logs/LogBytes.h"
#include "media/AviHeader.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/PlainWalk.h"
#include "recording/RecordingBytes.h"
#include "settings/SettingFile.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

namespace marvo {

namespace {

class ReadingFaults : public testing::TestWithParam<int>
{
protected:
    ~ReadingFaults() override { test::faultySystem = {}; }

    /// Reads once for each number of bytes that the medium gives, and once with them all.
    template <typename Read>
    void atEveryByte(std::size_t size, Read read)
    {
        for (std::size_t given = 0; given <= size; ++given) {
            test::faultySystem.readableUpTo = given;
            test::faultySystem.readError = GetParam();
            read(given);
            test::faultySystem = {};
            if (HasFailure())
                FAIL() << "after " << given << " bytes";
        }
    }

    test::TemporaryFolder m_folder;
};

TEST_P(ReadingFaults, theWalkKeepsWhatItHad)
{
    test::Bytes area;
    const std::string sentences = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n"
                                  "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    for (int i = 0; i < 4; ++i)
        area.longGps(i * 100, sentences).reading(i * 100, i);
    const std::string bytes = test::avi(area, static_cast<std::uint32_t>(area.data.size()));
    const std::string path = m_folder.write("a.avi", bytes);
    atEveryByte(bytes.size(), [&](std::size_t given) {
        const std::string there = bytes.substr(0, given);
        const test::PlainWalk plain(there);
        MRVBlackBoxData data;
        data.ExtractStreamInformation(path);
        ASSERT_EQ(data.m_GSensors().size(), plain.readings.size());
        for (std::size_t i = 0; i < plain.readings.size(); ++i)
            EXPECT_EQ(data.m_GSensors()[i].x, static_cast<float>(i) / 256);
        EXPECT_EQ(data.m_vGpsData().size(), plain.gpsSamples.size());
        EXPECT_EQ(data.m_NMEAs().size(), plain.sentences);
    });
}

TEST_P(ReadingFaults, theHeaderIsThereOrNot)
{
    const std::string path = m_folder.path("a.avi");
    demo::RecordingOptions options;
    options.frameCount = 2;
    ASSERT_FALSE(demo::writeRecording(path, options));
    const auto whole = std::get<AviHeader>(readAviHeader(path));
    bool hadHeader = false;
    atEveryByte(1500, [&](std::size_t) {
        const auto read = readAviHeader(path);
        const auto* header = std::get_if<AviHeader>(&read);
        EXPECT_TRUE(header != nullptr || !hadHeader) << "more bytes gave less";
        hadHeader = header != nullptr;
        if (header == nullptr) { // it is the medium's fault where it fails, not the recording's
            EXPECT_EQ(std::get<AviFault>(read) == AviFault::CannotRead, GetParam() != 0);
        } else {
            EXPECT_EQ(header->fileSizeBytes, whole.fileSizeBytes);
            EXPECT_TRUE(header->width == whole.width || header->width == 0) << header->width;
        }
    });
    EXPECT_TRUE(hadHeader);
}

TEST_P(ReadingFaults, settingsAreTakenAsFarAsTheyCame)
{
    _FILEDATA record;
    fillDefaultFileData(record);
    record.videoBitrate = 7000;
    const std::string path = m_folder.path("config.bin");
    ASSERT_FALSE(saveSettingFile(record, path));
    const FileDataBytes there = encodeFileData(record);
    FileDataBytes mark;
    mark.fill(std::byte{0x5A});
    atEveryByte(fileDataSize, [&](std::size_t given) {
        _FILEDATA read = decodeFileData(mark);
        const SettingFileRead result = readSettingFile(path, read);
        EXPECT_EQ(bool(result), given == fileDataSize);
        EXPECT_EQ(result.error.empty(), given == fileDataSize);
        // Of a medium that fails nothing is believed; a file that is short counts as far as it goes.
        FileDataBytes wanted = mark;
        if (GetParam() == 0 || given == fileDataSize)
            std::copy_n(there.begin(), given, wanted.begin());
        EXPECT_EQ(encodeFileData(read), wanted);
    });
}

TEST_P(ReadingFaults, aLogIsWholeOrNone)
{
    const std::string bytes = test::drivingLog(3, 3);
    const std::string path = m_folder.write("a.drv", bytes);
    atEveryByte(bytes.size(), [&](std::size_t given) {
        const DrivingLog::Reading reading = DrivingLog::read(path, flashDataLog());
        if (given == bytes.size()) {
            ASSERT_TRUE(reading.log);
            EXPECT_EQ(reading.log->recordCount(), 3U);
            return;
        }
        using enum DrivingLog::Fault;
        EXPECT_FALSE(reading.log);
        EXPECT_EQ(reading.fault, GetParam() == 0 && given < 12 ? NoLog : CannotRead);
        EXPECT_EQ(reading.detail.empty(), reading.fault == NoLog);
    });
}

INSTANTIATE_TEST_SUITE_P(AMedium, ReadingFaults, testing::Values(0, EIO),
                         [](const auto& kind) { return kind.param == 0 ? "ends" : "fails"; });

} // namespace

} // namespace marvo
