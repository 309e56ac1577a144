// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/RunCli.h"
#include "recording/MRVNMEASentenceParser.h"
#include "recording/RecordingBytes.h"
#include "TemporaryFolder.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <random>

namespace marvo {
namespace {

using test::Bytes;
using test::CliRun;
using test::runCli;
using testing::AllOf;
using testing::HasSubstr;

const std::string rmc = "$GPRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
const std::string gga = "$GPGGA,123519,4807.038,S,01131.000,\xC2\xB5,1,08,1e39,545.4,M,46.9,M,,*47\r\n";
const std::string gsv = "$GPGSV,3,1,09,12,,,40,13,,,41*7F\r\n";

QJsonObject object(const CliRun& result)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(result.output), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << result.output.substr(0, 400);
    EXPECT_TRUE(result.output.ends_with("}\n"));
    return document.object();
}

std::string compact(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

class Cli : public testing::Test
{
protected:
    std::string file(const std::string& content) const
    {
        const std::string path = folder.path("file");
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    test::TemporaryFolder folder;
};

TEST_F(Cli, InspectWritesEverythingThatWasRead)
{
    const std::string path =
        file(avi(Bytes().reading(-1, 1, -2, 3).longGps(INT64_MAX, rmc + gga + gsv).reading(7)));
    const CliRun result = runCli({"inspect", "--json", path});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QJsonObject root = object(result);
    EXPECT_EQ(root.size(), 6);
    EXPECT_EQ(root[QStringLiteral("file")].toString().toStdString(), path);
    EXPECT_TRUE(root[QStringLiteral("result")].toBool());
    EXPECT_EQ(compact(root[QStringLiteral("m_GSensors")]), "[[[0.00390625,-0.0078125,0.01171875],[0,0,1]]]");
    EXPECT_EQ(compact(root[QStringLiteral("m_vGSensorData")]), "[[[-1,1,-2,3,21],[7,0,0,256,21]]]");
    EXPECT_NE(result.output.find("\"m_vGpsData\":[{\"nTimestamp\":9223372036854775807,\"dwExtLength\":" +
                                 std::to_string((rmc + gga + gsv).size()) +
                                 ",\"nQualityIndicator\":1,\"fLatitude\":3733.1234,\"fLongitude\":12658.5,"
                                 "\"fSpeed\":59.9,\"KM\":49}]"),
              std::string::npos)
        << result.output;
    const QJsonArray states = root[QStringLiteral("m_NMEAs")].toArray();
    ASSERT_EQ(states.size(), 3);
    // The character of EW is the first byte of what stood there.
    const std::string last =
        "{\"SVonChannel\":[[12,40],[13,41],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0],"
        "[0,0],[0,0]],\"SatelliteUsed\":[0,0,0,0,0,0,0,0,0,0,0,0],\"NS\":\"S\",\"EW\":\"\xC3\x82"
        "\",\"SatelliteCount\":9,\"SatelliteUsedCount\":8,\"PDOP\":0,\"HDOP\":null,\"VDOP\":0,"
        "\"Latitude\":4807.0380859375,\"Longitude\":1131,\"SpeedOverGround\":"
        "22.399999618530273,\"CourseOverGround\":84.4000015258789,\"Now\":[2094,3,0,23,12,"
        "35,19,0]}]}\n";
    EXPECT_TRUE(result.output.ends_with(last)) << result.output;
}

TEST_F(Cli, InspectSumsUpInWords)
{
    const CliRun result =
        runCli({"inspect", file(avi(Bytes().reading(9000, 512).longGps(9000, gga).reading(10500)))});
    EXPECT_EQ(result.exitCode, 0);
    for (const char* line :
         {"Camera data         complete\n", "Duration of data    1.5 s\n", "G-sensor readings   2\n",
          "First fix           -37.552057, -126.975000 at 0.0 s\n", "Distance            0.000 km\n",
          "Top speed           59.9 at 0.0 s, in the camera's own unit (marker byte '1')\n",
          "Strongest reading   2.24 g at 0.0 s (X=+2.00 Y=0.00 Z=+1.00)\n"})
        EXPECT_NE(result.output.find(line), std::string::npos) << line << result.output;
}

TEST_F(Cli, InspectStandsHostileNumbers)
{
    std::string area = Bytes().reading(INT64_MIN).data;
    for (const std::uint64_t bits : {0x7FF8000000000000ULL, 0xFFEFFFFFFFFFFFFFULL, 0x7FF0000000000000ULL}) {
        area += Bytes().reading(INT64_MAX).text("0GPS").number(INT64_MAX).number(std::uint64_t{0}).data;
        area += Bytes().number(bits).number(bits).number(bits).text({"\xFF\0", 2}).data;
    }
    const std::string path = file(avi(Bytes{area}));
    const CliRun text = runCli({"inspect", path});
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_LT(text.output.size(), 1000U + path.size());
    EXPECT_THAT(text.output,
                AllOf(HasSubstr("First fix           none\n"), HasSubstr("Duration of data    2e+16 s\n")));
    const CliRun json = runCli({"inspect", path, "--json"});
    EXPECT_NE(json.output.find("\"fSpeed\":null,\"KM\":255"), std::string::npos) << json.output;
    object(json);
}

TEST_F(Cli, InspectTellsDamageFromAFileItCannotOpen)
{
    const std::string damaged = file(avi(Bytes().reading(0).gps(0, "", '1', -1)));
    EXPECT_NE(runCli({"inspect", damaged}).output.find("Camera data         damaged;"), std::string::npos);
    const CliRun json = runCli({"inspect", "--json", damaged});
    EXPECT_EQ(json.exitCode, 0);
    EXPECT_FALSE(object(json)[QStringLiteral("result")].toBool(true));
    EXPECT_EQ(object(json)[QStringLiteral("m_GSensors")].toArray().size(), 1);
    const CliRun noArea = runCli({"inspect", file("no recording at all")});
    EXPECT_NE(noArea.output.find("Camera data         none found"), std::string::npos);

    for (const std::string option : {"--", "--json"}) {
        const CliRun result = runCli({"inspect", option, "/dev/zero"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "marvo-cli inspect: cannot open /dev/zero: Not a regular file\n");
    }
    EXPECT_EQ(runCli({"inspect", "/proc/self/mem", "--json"}).exitCode, 1) << "reading failed";
}

TEST_F(Cli, NmeaTellsOfEachSentence)
{
    const std::string text = "noise" + rmc + "$GLGSV*1\n$PABC*1\n" + gga + gsv + "$GPGSV,3,3,09*1\r$GPGGA,1*";
    const std::string path = file(text);
    const CliRun fromFile = runCli({"nmea", path, "--json"});
    EXPECT_EQ(fromFile.exitCode, 0);
    const QJsonObject root = object(fromFile);
    EXPECT_EQ(compact(root[QStringLiteral("accepted")]), "[[true,false,true,true,false]]");
    const QJsonArray snapshots = root[QStringLiteral("snapshots")].toArray();
    ASSERT_EQ(snapshots.size(), 5);
    EXPECT_EQ(snapshots[3].toObject()[QStringLiteral("SatelliteCount")].toInt(), 9);

    EXPECT_EQ(runCli({"nmea", "--json", "-"}, {.inputPath = path}).output, fromFile.output);
    EXPECT_EQ(runCli({"nmea", "--json", "-"}, {.pipedInput = text}).output, fromFile.output);
    const CliRun summary = runCli({"nmea", "--", path});
    EXPECT_TRUE(summary.output.starts_with("Sentences           5\nAccepted            3\n"))
        << summary.output;
    const std::string south =
        "$GPGGA,,3723.2475,S,12158.5,W,1,08*\r" + rmc + "$GPRMC,123520.000,A,,,,,1,2,230394*\r";
    EXPECT_THAT(runCli({"nmea", file(south)}).output,
                AllOf(HasSubstr("First time          2094-03-23 12:35:19.000 UTC\n"),
                      HasSubstr("Last position       -37.387459, -121.975000\n"),
                      HasSubstr("Top speed           22.4 knots (41.5 km/h)\n")));
    EXPECT_THAT(runCli({"nmea", file(rmc)}).output, HasSubstr("Last position       none\n"));
    EXPECT_EQ(runCli({"nmea", "-", "--json"}).output, "{\"accepted\":[],\"snapshots\":[]}\n");
}

TEST_F(Cli, WritesEachOfManyStatesAsTheParserHasIt)
{
    // Each sentence changes little of the state before it; the first satellite message is out of turn.
    std::mt19937 random(7);
    const auto digit = [&] { return std::to_string(random() % 10); };
    std::string text = "$GPGSV,4,3,09,01,,,11*\r";
    Bytes area;
    MRVNMEASentenceParser parser;
    QJsonArray expected;
    for (int i = 0; i < 3000; ++i) {
        const std::string choices[] = {"$GPRMC,12351" + digit() + ".000,A,,,,,1,2,230394*\r",
                                       "$GPRMC,123510.000,A,,,,," + digit() + ",2,230394*\r",
                                       "$GPGGA,,480" + digit() + ",N,1,E,1,08,1*\r",
                                       "$GPGGA,,4800,S,1" + digit() + ",W,1,0" + digit() + ",1*\r",
                                       "$GPGSA,A,3,0" + digit() + ",,,,,,,,,,,,1,1," + digit() + "*\r",
                                       "$GPGSV,2," + std::to_string(random() % 3 + 1) + ",09,0" + digit() +
                                           ",,,4" + digit() + "*\r"};
        text += choices[random() % std::size(choices)];
    }
    text += "$GPGSV,4,1,09,01,,,11*\r$GPGSV,4,2,09,01,,,11*\r"; // the first would go on from here
    MRVNMEASentenceParser::setSatelliteListState({});
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find('\r', begin)) != std::string::npos; begin = end + 1) {
        area.longGps(0, text.substr(begin, end + 1 - begin));
        parser.parse(text.substr(begin, end - begin));
        const MRVGpsData& s = parser.m_Current();
        expected.append(QJsonArray{s.Now.wSecond, s.Latitude, s.Longitude, s.SpeedOverGround, s.VDOP,
                                   s.SVonChannel[0].second, s.SVonChannel[2].first, s.SatelliteUsed[0],
                                   int(s.SatelliteUsedCount), QString(QLatin1Char(s.NS))});
    }
    const std::string sentences = file(text);
    const QJsonObject nmea = object(runCli({"nmea", "--json", sentences}));
    EXPECT_EQ(nmea[QStringLiteral("accepted")].toArray().size(), expected.size());
    const QJsonObject inspected = object(runCli({"inspect", "--json", file(avi(area))}));
    for (const QJsonValue& list : {nmea[QStringLiteral("snapshots")], inspected[QStringLiteral("m_NMEAs")]}) {
        QJsonArray read;
        for (const QJsonValue& state : list.toArray()) {
            const auto at = [&](const char* name) { return state[QLatin1String(name)]; };
            read.append(QJsonArray{at("Now")[6], at("Latitude"), at("Longitude"), at("SpeedOverGround"),
                                   at("VDOP"), at("SVonChannel")[0][1], at("SVonChannel")[2][0],
                                   at("SatelliteUsed")[0], at("SatelliteUsedCount"), at("NS")});
        }
        EXPECT_TRUE(read == expected);
    }
}

TEST_F(Cli, ReadsTheDialectOnlyWhenAskedTo)
{
    const std::string ga = "$GA,134502,A,3723.2475,12158.3416,35.5,S,W*00\r\n";
    const std::string gc = "$GC,134502,260513,,,7,1.2,35.5,84.0*00\r\n";
    const std::string own = file(avi(Bytes().reading(0).longGps(0, ga + gc).reading(1500)));
    const auto lastOf = [](const QJsonObject& read) {
        return read[QStringLiteral("m_NMEAs")].toArray()[1].toObject();
    };
    const QJsonObject plain = object(runCli({"inspect", "--json", own}));
    EXPECT_FALSE(plain.contains(QStringLiteral("dialect")));
    EXPECT_EQ(lastOf(plain)[QStringLiteral("NS")], QStringLiteral("N"));

    const QJsonObject dialect = object(runCli({"inspect", "--dialect", "--json", own}));
    EXPECT_TRUE(dialect[QStringLiteral("dialect")].toBool());
    EXPECT_EQ(lastOf(dialect)[QStringLiteral("NS")], QStringLiteral("S"));
    EXPECT_EQ(lastOf(dialect)[QStringLiteral("SatelliteUsedCount")], 7);
    const std::string text = runCli({"inspect", own, "--dialect"}).output;
    EXPECT_NE(text.find("Dialect             all 2 sentences"), std::string::npos) << text;
    EXPECT_NE(text.find("First fix           -37.552057, -126.975000"), std::string::npos) << text;

    const std::string mixed = file(avi(Bytes().reading(0).longGps(0, ga + rmc)));
    EXPECT_NE(runCli({"inspect", "--dialect", mixed}).output.find("Dialect             1 of 2 "),
              std::string::npos);
    EXPECT_FALSE(
        object(runCli({"inspect", "--dialect", "--json", mixed}))[QStringLiteral("dialect")].toBool(true));
    const std::string none = file(avi(Bytes().reading(0)));
    EXPECT_FALSE(
        object(runCli({"inspect", "--dialect", "--json", none}))[QStringLiteral("dialect")].toBool(true));
    const std::string sentences = file(gc + rmc + ga);
    const QJsonObject read = object(runCli({"nmea", "--json", "--dialect", sentences}));
    EXPECT_EQ(compact(read[QStringLiteral("accepted")]), "[[true,false,true]]");
    EXPECT_NE(runCli({"nmea", sentences, "--dialect"})
                  .output.find("Last time           13:45:02.000 UTC, no date\n"),
              std::string::npos);
}

TEST_F(Cli, RefusesWrongUsage)
{
    const std::vector<std::vector<std::string>> wrong = {
        {}, {"--json"}, {"a", "b"}, {"--xml", "a"}, {"a", "-j"}, {"--", "--json", "a"}};
    for (const std::string command : {"inspect", "nmea"}) {
        for (std::vector<std::string> words : wrong) {
            words.insert(words.begin(), command);
            const CliRun result = runCli(words);
            EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(words);
            EXPECT_EQ(result.output, "");
            EXPECT_TRUE(result.errors.starts_with("marvo-cli " + command + ": ")) << result.errors;
        }
        EXPECT_EQ(runCli({command, "--", "--json"}).exitCode, 1) << "a file of that name";
        const CliRun help = runCli({command, "--help"});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_TRUE(help.output.starts_with("Usage: marvo-cli " + command + " FILE"));
    }
}

TEST_F(Cli, FailsWhenNobodyTakesTheResult)
{
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += rmc;
    const std::string path = file(text);
    for (const std::string command : {"inspect", "nmea"}) {
        for (const std::string option : {"--", "--json"})
            EXPECT_EQ(runCli({command, option, path}, {.outputPath = "/dev/full"}).exitCode, 1) << option;
    }
    EXPECT_EQ(runCli({"nmea", "-", "--json"}, {.inputPath = "/"}).exitCode, 1);
}

} // namespace
} // namespace marvo
