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
    const std::tuple<const char*, std::string, int> rows[] = {
        {"en", std::string("\x26\x57\x0C\x19\x01\0\0\0", 8), 0x190C},
        {"ko", std::string("\x26\x57\x74\x25\x01\0\0\0", 8), 0x2574},
        {"base", std::string("\x26\x57\0\0\x01\0\0\0", 8), 0x2574},
    };
    for (const auto& [language, start, computed] : rows) {
        const CliRun written = settings({"--defaults", language});
        EXPECT_EQ(written.exitCode, 0) << written.errors;
        EXPECT_EQ(written.output, "");
        EXPECT_EQ(m_folder.read("config.bin").size(), 272U);
        EXPECT_THAT(m_folder.read("config.bin"), StartsWith(start));
        const CliRun shown = settings({"--json"});
        EXPECT_EQ(settings({"--defaults", language, "--json"}).output, shown.output);
        EXPECT_EQ(parsed(shown).size(), 69);
        EXPECT_EQ(parsed(shown)[QStringLiteral("computedChecksum")].toInt(), computed);
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
    settings({"--defaults", "en"});
    const std::string before = m_folder.read("config.bin");
    const auto refused = [&](const std::vector<std::string>& words, int exitCode) {
        const CliRun run = settings(words);
        EXPECT_EQ(run.exitCode, exitCode) << testing::PrintToString(words) << run.errors;
        EXPECT_THAT(run.errors, StartsWith("marvo-cli settings: "));
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(m_folder.read("config.bin"), before) << testing::PrintToString(words);
    };
    for (const char* assignment :
         {"nonsense=1", "SpeedUnit=1", "computedChecksum=1", "=1", "powerVoltage=-1",
          "powerVoltage=4294967296", "powerVoltage=99999999999999999999999999",
          "drivingThresholdX=2147483648", "drivingThresholdX=-2147483649", "magic=65536",
          "powerVoltage=", "powerVoltage=12x", "powerVoltage=0x10", "powerVoltage= 1", "powerVoltage=+1",
          "powerVoltage=1.0", "carNumber=123456789", "carNumber=\xFF"})
        refused({"--set", "speedUnit=1", assignment}, 1);
    const std::vector<std::string> usages[] = {{"--set", "speedUnit=1", "--set"},
                                               {"--set", "speedUnit"},
                                               {"--set", "speedUnit=1", "another"},
                                               {"--set", "speedUnit=1", "--unknown"},
                                               {"--set", "speedUnit=1", "--defaults", "ko"},
                                               {"--defaults"},
                                               {"--defaults", "de"},
                                               {"--defaults", "ko", "--defaults", "ko"},
                                               {"speedUnit=1"}};
    for (const auto& words : usages)
        refused(words, 2);
    EXPECT_EQ(runCli({"settings"}).exitCode, 2);
}

TEST_F(SettingsCommand, refusesShortAndMissingFilesAndTakesTheStartOfLongOnes)
{
    EXPECT_EQ(settings({"--set", "speedUnit=1"}).exitCode, 1);
    EXPECT_FALSE(std::filesystem::exists(m_file));
    for (const std::size_t size : {0, 271}) {
        m_folder.write("config.bin", std::string(size, 'x'));
        EXPECT_THAT(settings({"--json"}).errors, HasSubstr(std::to_string(size) + " of 272"));
        EXPECT_EQ(settings({"--set", "speedUnit=1"}).exitCode, 1);
        EXPECT_EQ(m_folder.read("config.bin"), std::string(size, 'x'));
    }
    m_folder.write("config.bin", std::string(300, '\xFE'));
    EXPECT_EQ(parsed(settings({"--json"}))[QStringLiteral("carNumber")].toString(),
              QString(8, QChar(0xFFFD)));
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
