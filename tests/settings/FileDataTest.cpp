// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/FileDataFields.h"
#include "settings/SettingFile.h"
#include "settings/SettingFileWriting.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace marvo {

namespace {

using test::TemporaryFolder;

FileDataBytes randomBytes(unsigned seed)
{
    std::mt19937 random(seed);
    FileDataBytes bytes;
    std::ranges::generate(bytes, [&] { return static_cast<std::byte>(random() & 0xFF); });
    return bytes;
}

std::string asText(const FileDataBytes& bytes)
{
    std::string text;
    for (const std::byte byte : bytes)
        text += static_cast<char>(byte);
    return text;
}

/// The words of a fresh camera's file from offset 4 on, in the order of the file, set down once more by hand.
constexpr std::int64_t englishWords[] = {
    1,  70,  10, 20, 12100, 0,  0,  3,    0,  1,    1,   3,    48, 0, 9000, 7680, 128, 128, 128, 3, 2, 55, 70,
    50, 300, 15, 15, 15,    90, 75, 4095, 97, 3600, 92,  60,   0,  0, 1,    0,    0,   0,   28,  0, 0, 1,  1,
    1,  0,   1,  1,  1,     1,  1,  1,    1,  3,    176, 3000, 1,  0, 1,    0,    0,   0,   0,   0, 1};

TEST(FileData, defaultsStandAtTheirOffsets)
{
    static_assert(std::size(englishWords) == 67);
    _FILEDATA record;
    fillDefaultFileDataForLanguage(record, InterfaceLanguage::English);
    sealFileData(record);
    const FileDataBytes bytes = encodeFileData(record);
    EXPECT_EQ(asText(bytes).substr(0, 8), std::string("\x26\x57\x0C\x19\x01\0\0\0", 8));
    for (std::size_t i = 0; i < std::size(englishWords); ++i) {
        std::int64_t word = 0;
        for (std::size_t j = 4; j-- > 0;)
            word = word << 8 | std::to_integer<int>(bytes[4 + 4 * i + j]);
        EXPECT_EQ(word, englishWords[i]) << "offset " << 4 + 4 * i;
    }
}

TEST(FileData, languagesDifferInFourFields)
{
    _FILEDATA base;
    _FILEDATA korean;
    _FILEDATA english;
    fillDefaultFileData(base);
    fillDefaultFileDataForLanguage(korean, InterfaceLanguage::Korean);
    fillDefaultFileDataForLanguage(english, InterfaceLanguage::English);
    EXPECT_EQ(base, korean);
    EXPECT_EQ(base.checksum, 0);
    english.videoBitrate = 8000;
    english.motionSensitivityFhd = 100;
    english.motionSensitivityHd = 100;
    english.voiceLanguage = 0;
    EXPECT_EQ(english, base);
    sealFileData(base);
    EXPECT_EQ(base.checksum, 0x2574);
}

TEST(FileData, everyByteGoesThroughUnchanged)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        const FileDataBytes bytes = randomBytes(seed);
        EXPECT_EQ(encodeFileData(decodeFileData(bytes)), bytes) << seed;
    }
}

TEST(FileData, signedFieldsAreSignedAndUnsignedOnesAreNot)
{
    FileDataBytes bytes;
    bytes.fill(std::byte{0xFF});
    const _FILEDATA record = decodeFileData(bytes);
    std::vector<std::string_view> negative;
    for (const FileDataField& field : fileDataFields()) {
        if (!field.isText() && field.number(record) == -1)
            negative.push_back(field.name);
    }
    EXPECT_EQ(negative, (std::vector<std::string_view>{
                            "drivingThresholdX", "drivingThresholdY", "drivingThresholdZ",
                            "parkingThresholdX", "parkingThresholdY", "parkingThresholdZ", "deviceParam32",
                            "deviceParam34", "osdSpeedDisplay", "carNumberSet", "timeZoneIndex"}));
    EXPECT_EQ(record.magic, 0xFFFF);
    EXPECT_EQ(record.powerVoltage, 0xFFFFFFFFU);
}

TEST(FileData, theSealCoversTheLowerHalvesOfAllWordsButTheFirst)
{
    for (unsigned seed = 0; seed < 10; ++seed) {
        FileDataBytes bytes = randomBytes(seed);
        const std::uint16_t before = fileDataChecksum(decodeFileData(bytes));
        std::uint16_t folded = 0;
        for (std::size_t at = 4; at < bytes.size(); at += 4) {
            folded = static_cast<std::uint16_t>(folded ^ std::to_integer<int>(bytes[at]) ^
                                                std::to_integer<int>(bytes[at + 1]) << 8);
        }
        EXPECT_EQ(before, folded);
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            bytes[at] ^= std::byte{0x40};
            EXPECT_EQ(fileDataChecksum(decodeFileData(bytes)) != before, at >= 4 && at % 4 < 2) << at;
            bytes[at] ^= std::byte{0x40};
        }
    }
}

TEST(FileData, sealingTellsWhetherThereIsACarNumber)
{
    _FILEDATA record = decodeFileData(randomBytes(1));
    for (const std::array<char, 8>& number : {std::array<char, 8>{'1'}, std::array<char, 8>{'\0', 'x'}}) {
        record.carNumber = number;
        sealFileData(record);
        EXPECT_EQ(record.carNumberSet, number[0] ? 1 : 0);
        EXPECT_EQ(record.checksum, fileDataChecksum(record)) << "the seal does not count itself";
    }
}

TEST(FileDataFields, carNumberTakesEightBytesOfText)
{
    const FileDataField* field = findFileDataField("carNumber");
    ASSERT_NE(field, nullptr);
    _FILEDATA record{};
    EXPECT_TRUE(field->setText(record, "12345678"));
    EXPECT_EQ(field->text(decodeFileData(encodeFileData(record))), "12345678");
    EXPECT_FALSE(field->setText(record, "123456789"));
    EXPECT_FALSE(field->setText(record, "\xC3"));
    EXPECT_FALSE(field->setText(record, std::string_view("1\0"
                                                         "2",
                                                         3)));
    EXPECT_EQ(field->text(record), "12345678");
    EXPECT_TRUE(field->setText(record, "1"));
    EXPECT_EQ(record.carNumber, (std::array<char, 8>{'1'}));
    EXPECT_FALSE(field->setNumber(record, 0));
}

/// A file cut anywhere, also within a word, replaces just the bytes that it has.
TEST(SettingFile, readsWhatAFileOfAnyLengthHolds)
{
    const TemporaryFolder folder;
    const std::string content = asText(randomBytes(3)) + std::string(28, 'x');
    const FileDataBytes held = randomBytes(4);
    for (std::size_t length = 0; length <= content.size(); ++length) {
        const std::string path = folder.write("config.bin", content.substr(0, length));
        _FILEDATA record = decodeFileData(held);
        const SettingFileRead read = readSettingFile(path, record);
        EXPECT_EQ(static_cast<bool>(read), length >= 272);
        EXPECT_EQ(read.extent, length < 272 ? SettingFileExtent::Short : SettingFileExtent::Whole);
        EXPECT_EQ(read.error.empty(), length >= 272);
        const std::size_t replaced = std::min<std::size_t>(length, 272);
        ASSERT_EQ(asText(encodeFileData(record)), content.substr(0, replaced) + asText(held).substr(replaced))
            << length;
    }
}

TEST(SettingFile, writesTheBytesOfTheRecordAndTellsOfFailures)
{
    const TemporaryFolder folder;
    const FileDataBytes bytes = randomBytes(6);
    const _FILEDATA held = decodeFileData(bytes);
    for (const std::string& path : {folder.path("missing"), folder.path(), folder.path("no/config.bin")}) {
        _FILEDATA record = held;
        const SettingFileRead read = readSettingFile(path, record);
        EXPECT_EQ(read.extent, SettingFileExtent::None) << path;
        EXPECT_NE(read.error, "");
        EXPECT_EQ(record, held);
    }
    folder.write("config.bin", std::string(300, 'x'));
    EXPECT_EQ(writeSettingFile(held, folder.path("config.bin")), std::nullopt);
    EXPECT_EQ(folder.read("config.bin"), asText(bytes));
    EXPECT_EQ(writeSettingFile(held, folder.path("no/config.bin")), localised("msg.file_open_fail"));
}

} // namespace

} // namespace marvo
