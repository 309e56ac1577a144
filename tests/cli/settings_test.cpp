// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/RunCli.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marvo::test {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class SettingsCommand : public testing::Test
{
protected:
    static QJsonObject parsed(const CliRun& run)
    {
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        return QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object();
    }

    CliRun settings(std::vector<std::string> words, const CliOptions& options = {}) const
    {
        words.insert(words.begin(), {"settings", m_file});
        return runCli(words, options);
    }

    TemporaryFolder m_folder;
    std::string m_file = m_folder.path("config.bin");
};

TEST_F(SettingsCommand, writesDefaultsAndShowsThem)
{
    struct Row
    {
        const char* language;
        std::string start;
        int bitrate;
        int checksum;
        int computed;
    };
    const Row rows[] = {
        {"en", std::string("\x26\x57\x0C\x19\x01\0\0\0", 8), 9000, 0x190C, 0x190C},
        {"ko", std::string("\x26\x57\x74\x25\x01\0\0\0", 8), 8000, 0x2574, 0x2574},
        {"base", std::string("\x26\x57\0\0\x01\0\0\0", 8), 8000, 0, 0x2574},
    };
    for (const Row& row : rows) {
        const CliRun written = settings({"--defaults", row.language});
        EXPECT_EQ(written.exitCode, 0) << written.errors;
        EXPECT_EQ(written.output, "");
        EXPECT_EQ(m_folder.read("config.bin").size(), 272U);
        EXPECT_THAT(m_folder.read("config.bin"), StartsWith(row.start));
        const CliRun shown = settings({"--json"});
        EXPECT_EQ(settings({"--defaults", row.language, "--json"}).output, shown.output);
        const QJsonObject json = parsed(shown);
        EXPECT_EQ(json.size(), 69);
        EXPECT_EQ(json[QStringLiteral("videoBitrate")].toInt(), row.bitrate);
        EXPECT_EQ(json[QStringLiteral("checksum")].toInt(), row.checksum);
        EXPECT_EQ(json[QStringLiteral("computedChecksum")].toInt(), row.computed);
    }
}

TEST_F(SettingsCommand, setsFieldsOfEveryTypeToTheEndsOfTheirRange)
{
    settings({"--defaults", "en"});
    const QJsonObject json = parsed(settings({"--set", "magic=65535", "powerVoltage=4294967295", "--set",
                                              "drivingThresholdX=-2147483648", "osdSpeedDisplay=2147483647",
                                              "carNumber=12\xEA\xB0\x80"
                                              "345",
                                              "checksum=7", "carNumberSet=0", "--json"}));
    EXPECT_EQ(json[QStringLiteral("magic")].toInt(), 65535);
    EXPECT_EQ(json[QStringLiteral("powerVoltage")].toDouble(), 4294967295.0);
    EXPECT_EQ(json[QStringLiteral("drivingThresholdX")].toInteger(), -2147483648LL);
    EXPECT_EQ(json[QStringLiteral("osdSpeedDisplay")].toInteger(), 2147483647);
    EXPECT_EQ(json[QStringLiteral("carNumber")].toString(), QStringLiteral("12\uAC00345"));
    EXPECT_EQ(json[QStringLiteral("carNumberSet")].toInt(), 1);
    EXPECT_EQ(json[QStringLiteral("checksum")], json[QStringLiteral("computedChecksum")]);
    EXPECT_EQ(json[QStringLiteral("speedUnit")].toInt(), 0);
    EXPECT_EQ(m_folder.read("config.bin").substr(256, 8), "12\xEA\xB0\x80"
                                                          "345");

    EXPECT_EQ(parsed(settings({"--set", "carNumber=", "--json"}))[QStringLiteral("carNumberSet")].toInt(), 0);
    EXPECT_EQ(m_folder.read("config.bin").substr(256, 8), std::string(8, '\0'));
}

TEST_F(SettingsCommand, refusesAndWritesNothing)
{
    struct Row
    {
        std::vector<std::string> words;
        int exitCode;
    };
    const Row rows[] = {
        {{"--set", "speedUnit=1", "nonsense=1"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=-1"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=4294967296"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=99999999999999999999999999"}, 1},
        {{"--set", "speedUnit=1", "drivingThresholdX=2147483648"}, 1},
        {{"--set", "speedUnit=1", "drivingThresholdX=-2147483649"}, 1},
        {{"--set", "speedUnit=1", "magic=65536"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage="}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=12x"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=0x10"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage= 1"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=+1"}, 1},
        {{"--set", "speedUnit=1", "powerVoltage=1.0"}, 1},
        {{"--set", "speedUnit=1", "SpeedUnit=1"}, 1},
        {{"--set", "speedUnit=1", "carNumber=123456789"}, 1},
        {{"--set", "speedUnit=1", "carNumber=\xFF"}, 1},
        {{"--set", "speedUnit=1", "computedChecksum=1"}, 1},
        {{"--set", "speedUnit=1", "=1"}, 1},
        {{"--set", "speedUnit=1", "--set"}, 2},
        {{"--set", "speedUnit"}, 2},
        {{"--set", "speedUnit=1", "another"}, 2},
        {{"--set", "speedUnit=1", "--unknown"}, 2},
        {{"--set", "speedUnit=1", "--defaults", "ko"}, 2},
        {{"--defaults"}, 2},
        {{"--defaults", "de"}, 2},
        {{"--defaults", "ko", "--defaults", "ko"}, 2},
        {{"speedUnit=1"}, 2},
    };
    settings({"--defaults", "en"});
    const std::string before = m_folder.read("config.bin");
    for (const Row& row : rows) {
        const CliRun run = settings(row.words);
        EXPECT_EQ(run.exitCode, row.exitCode) << row.words.back() << ": " << run.errors;
        EXPECT_THAT(run.errors, StartsWith("marvo-cli settings: "));
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(m_folder.read("config.bin"), before) << row.words.back();
    }
    EXPECT_EQ(runCli({"settings"}).exitCode, 2);
}

TEST_F(SettingsCommand, refusesShortAndMissingFilesAndTakesTheStartOfLongOnes)
{
    EXPECT_EQ(settings({"--set", "speedUnit=1"}).exitCode, 1);
    EXPECT_FALSE(std::filesystem::exists(m_file));
    for (const std::size_t size : {0, 100, 271}) {
        m_folder.write("config.bin", std::string(size, 'x'));
        EXPECT_THAT(settings({"--json"}).errors, HasSubstr(std::to_string(size) + " of 272"));
        EXPECT_EQ(settings({"--set", "speedUnit=1"}).exitCode, 1);
        EXPECT_EQ(m_folder.read("config.bin"), std::string(size, 'x'));
    }
    m_folder.write("config.bin", std::string(300, '\xFE'));
    const QJsonObject json = parsed(settings({"--json"}));
    EXPECT_EQ(json[QStringLiteral("drivingThresholdX")].toInt(), static_cast<int>(0xFEFEFEFE));
    EXPECT_EQ(json[QStringLiteral("deviceParam67")].toDouble(), 0xFEFEFEFE);
    EXPECT_EQ(json[QStringLiteral("carNumber")].toString(), QString(8, QChar(0xFFFD)));
    EXPECT_EQ(settings({"--set", "speedUnit=1"}).exitCode, 0);
    const std::string after = m_folder.read("config.bin");
    EXPECT_EQ(after.size(), 272U);
    EXPECT_EQ(after.substr(0, 2), "\xFE\xFE");
    EXPECT_EQ(after.substr(168), std::string(104, '\xFE'));
}

TEST_F(SettingsCommand, keepsTheOldFileWhenTheNewOneCannotBeWritten)
{
    settings({"--defaults", "en"});
    const std::string before = m_folder.read("config.bin");
    const CliRun run = settings({"--set", "speedUnit=1"}, {.outputPath = {}, .fileSizeLimit = 100});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(m_folder.read("config.bin"), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path()), {}), 1);

    EXPECT_THAT(runCli({"settings", m_folder.path(), "--defaults", "en"}).errors,
                HasSubstr("Is a directory"));
    EXPECT_THAT(runCli({"settings", m_folder.path("no/config.bin"), "--defaults", "en"}).errors,
                HasSubstr("No such file or directory"));
}

} // namespace

} // namespace marvo::test
