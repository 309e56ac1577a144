// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVMARVONMEASentenceParser.h"
#include "recording/MRVNMEASentenceParser.h"
#include "recording/NmeaFields.h"
#include "recording/RecordingBytes.h"
#include "recording/SentenceStream.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace marvo {
namespace {

using namespace std::string_literals;

class Parser : public testing::Test
{
protected:
    Parser() { MRVNMEASentenceParser::setSatelliteListState({}); }
    const MRVGpsData& state() const { return parser.m_Current(); }

    MRVNMEASentenceParser parser;
};

TEST_F(Parser, ReadsSpeedCourseAndTimeFromRmc)
{
    EXPECT_TRUE(parser.parse("$GPRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A"));
    EXPECT_EQ(state().SpeedOverGround, double{22.4F});
    EXPECT_EQ(state().CourseOverGround, double{84.4F});
    EXPECT_EQ(state().Now, (_SYSTEMTIME{2094, 3, 0, 23, 12, 35, 19, 0}));
    EXPECT_EQ(state().Latitude, 0);
    EXPECT_TRUE(parser.parse("$GPRMC*"));
    EXPECT_EQ(state().SpeedOverGround, 0);
    EXPECT_EQ(state().Now.wYear, 2094);
}

TEST_F(Parser, ReadsThePositionFromGga)
{
    EXPECT_TRUE(parser.parse("$GPGGA,123519,4807.038,S,01131.000,W,1,08,0.9,545.4,M,46.9,M,,*47"));
    const MRVGpsData full = state();
    EXPECT_EQ(full.Latitude, double{4807.038F});
    EXPECT_EQ(full.Longitude, 1131.0);
    EXPECT_EQ(full.NS, 'S');
    EXPECT_EQ(full.EW, 'W');
    EXPECT_EQ(full.SatelliteUsedCount, 8U);
    EXPECT_EQ(full.HDOP, double{0.9F});
    EXPECT_TRUE(parser.parse("$GPGGA,,,,,,,-1*"));
    EXPECT_EQ(state().Latitude, full.Latitude);
    EXPECT_EQ(state().NS, 'S');
    EXPECT_EQ(state().EW, 'W');
    EXPECT_EQ(state().HDOP, full.HDOP);
    EXPECT_EQ(state().SatelliteUsedCount, 0xFFFFFFFFU);
    parser.clear();
    EXPECT_EQ(state(), MRVGpsData());
}

TEST_F(Parser, ReadsTheSatellitesUsedFromGsa)
{
    EXPECT_TRUE(parser.parse("$GPGSA,A,3,04,05,,300,-1,24,99999999999,,,,,7,2.5,1.3,2.1*39"));
    EXPECT_EQ(state().SatelliteUsed,
              (std::array<std::uint8_t, 12>{4, 5, 0, 44, 255, 24, 255, 0, 0, 0, 0, 7}));
    EXPECT_EQ(state().PDOP, 2.5);
    EXPECT_EQ(state().HDOP, double{1.3F});
    EXPECT_EQ(state().VDOP, double{2.1F});
}

TEST_F(Parser, FillsTheChannelsOverACycleOfGsv)
{
    const auto message = [](int number, int satellites) {
        std::string text = "$GPGSV,4," + std::to_string(number) + ",15";
        for (int i = 0; i < satellites; ++i)
            text += "," + std::to_string(number * 10 + i) + ",45,123," + std::to_string(number + i);
        return text + "*00";
    };
    EXPECT_TRUE(parser.parse(message(1, 4)));
    EXPECT_FALSE(parser.parse(message(3, 4)));
    EXPECT_EQ(state().SVonChannel[4], _PAIR());
    for (const int number : {2, 3, 4})
        EXPECT_TRUE(parser.parse(message(number, 4)));
    EXPECT_EQ(state().SatelliteCount, 15U);
    EXPECT_EQ(state().SVonChannel[0], (_PAIR{10, 1}));
    EXPECT_EQ(state().SVonChannel[11], (_PAIR{33, 6}));
    EXPECT_EQ(MRVNMEASentenceParser::satelliteListState(),
              (MRVNMEASentenceParser::SatelliteListState{.lastMessage = 4, .nextChannel = 12}));

    EXPECT_TRUE(parser.parse(message(1, 1))) << "a shorter cycle leaves the channels behind it";
    EXPECT_EQ(state().SVonChannel[1], (_PAIR{11, 2}));
    EXPECT_TRUE(parser.parse("$GPGSV,1,1,00,99,,,99*00"))
        << "no satellites: nothing but their number changes";
    EXPECT_EQ(state().SatelliteCount, 0U);
    EXPECT_EQ(state().SVonChannel[0], (_PAIR{10, 1}));

    MRVNMEASentenceParser other;
    EXPECT_TRUE(other.parse(message(2, 1))) << "the count goes on in another parser";
    EXPECT_EQ(other.m_Current().SVonChannel[1], (_PAIR{20, 2}));
}

TEST_F(Parser, TakesWholeGroupsOfGsvOnly)
{
    EXPECT_TRUE(parser.parse("$GPGSV,1,1,02,777,45,123*00"));
    EXPECT_EQ(MRVNMEASentenceParser::satelliteListState().nextChannel, 0);
    EXPECT_TRUE(parser.parse("$GPGSV,1,1,02,777,45,123,,-5,1,2,+9,3,4,5*00"));
    EXPECT_EQ(state().SVonChannel[0], (_PAIR{77, 0}));
    EXPECT_EQ(state().SVonChannel[1], (_PAIR{251, 9}));
    EXPECT_EQ(state().SVonChannel[2], _PAIR());
}

TEST_F(Parser, RefusesWhatItDoesNotKnow)
{
    const std::string_view refused[] = {"",
                                        "$",
                                        "*",
                                        "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9",
                                        "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9*4*7",
                                        "$GPGGA,\xFF,4807.038,N,01131.000,E,1,08,0.9*47",
                                        "$GPGGA,,4807.038,N,01131.000,E,1,08,0.9*\xC3",
                                        "$GPVTG,084.4,T,,M,022.4,N*00",
                                        "$GNRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394*6A",
                                        "$gpgga,,4807.038*",
                                        " $GPGGA,,4807.038*",
                                        "$GPGGA ,,4807.038*",
                                        "$GPGSV,3,2,11,01,,,10*"};
    for (const std::string_view sentence : refused) {
        EXPECT_FALSE(parser.parse(sentence)) << sentence;
        MRVGpsData untouched = state();
        untouched.SatelliteCount = 0; // set before a satellite message is found to be out of turn
        EXPECT_EQ(untouched, MRVGpsData()) << sentence;
    }
    EXPECT_EQ(state().SatelliteCount, 11U);
}

struct TimeCase
{
    const char* name;
    std::string time;
    std::string date;
    _SYSTEMTIME now;
};
void PrintTo(const TimeCase& c, std::ostream* os) { *os << c.name; }

class RmcTime : public testing::TestWithParam<TimeCase>
{};

TEST_P(RmcTime, IsScannedAtFixedWidths)
{
    MRVNMEASentenceParser parser;
    EXPECT_TRUE(parser.parse("$GPRMC," + GetParam().time + ",A,,,,,1,2," + GetParam().date + "*00"));
    EXPECT_EQ(parser.m_Current().Now, GetParam().now);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RmcTime,
    testing::Values(
        TimeCase{"Whole", "235958.987", "311299", {2099, 12, 0, 31, 23, 59, 58, 987}},
        TimeCase{"WithoutDecimals", "123519", "230394", {}},
        TimeCase{"TwoDecimals", "123519.00", "230394", {}},
        TimeCase{"DateTooLong", "123519.000", "2303941", {}},
        TimeCase{"CharactersCountNotBytes", "1235\xC3\xA9.000x", "230394", {2094, 3, 0, 23, 12, 35, 0, 0}},
        TimeCase{"Letters", "abcdef.ghi", "xxxxxx", {2000, 0, 0, 0, 0, 0, 0, 0}},
        TimeCase{"StopsAtTheFirstThatFails", "12x519.123", "23x394", {2000, 0, 0, 23, 12, 0, 0, 0}},
        TimeCase{"PointMissing", "1235191123", "230394", {2094, 3, 0, 23, 12, 35, 19, 0}},
        TimeCase{"SignsCountTowardsTheWidth",
                 "+1-2+3.-45",
                 "-1+2-3",
                 {1997, 2, 0, 65535, 1, 65534, 3, static_cast<std::uint16_t>(-45)}},
        TimeCase{"SignAlone", "12-x19.123", "230394", {2094, 3, 0, 23, 12, 0, 0, 0}},
        TimeCase{"WhiteSpaceIsSkipped", " 1 2 3.456", " 1\t2 3", {2003, 2, 0, 1, 1, 2, 3, 456}}),
    [](const auto& row) { return std::string(row.param.name); });

struct DialectCase
{
    const char* name;
    std::string sentence;
    std::optional<MRVGpsData> state; ///< none for a sentence that is refused
};
void PrintTo(const DialectCase& c, std::ostream* os) { *os << c.name; }

/// What every sentence of the table meets: no field as it is when nothing has been read.
MRVGpsData stateBefore()
{
    MRVGpsData state;
    state.NS = 'n';
    state.EW = 'e';
    state.SatelliteCount = state.SatelliteUsedCount = 99;
    state.PDOP = state.HDOP = state.VDOP = state.Latitude = state.Longitude = state.SpeedOverGround =
        state.CourseOverGround = -1;
    state.Now = {1, 2, 3, 4, 5, 6, 7, 8};
    return state;
}

template <typename Change>
MRVGpsData changed(Change&& change)
{
    MRVGpsData state = stateBefore();
    state.Now = {};
    change(state);
    return state;
}

class Dialect : public testing::TestWithParam<DialectCase>
{};

TEST_P(Dialect, ChangesWhatTheSentenceTells)
{
    MRVMARVONMEASentenceParser parser;
    parser.setM_Current(stateBefore());
    EXPECT_EQ(parser.parse(GetParam().sentence), GetParam().state.has_value());
    const MRVGpsData& state = parser.m_Current();
    const MRVGpsData expected = GetParam().state.value_or(stateBefore());
    EXPECT_EQ(state.Now, expected.Now);
    EXPECT_EQ(std::pair(state.NS, state.EW), std::pair(expected.NS, expected.EW));
    EXPECT_EQ(state.SpeedOverGround, expected.SpeedOverGround);
    EXPECT_EQ(state, expected);
    parser.clear();
    EXPECT_EQ(parser.m_Current(), MRVGpsData());
}

void fullPosition(MRVGpsData& state)
{
    state.Now = {0, 0, 0, 0, 13, 45, 2, 0};
    state.Latitude = 3723.2475F;
    state.Longitude = 12158.3416F;
    state.SpeedOverGround = 35.5;
    state.NS = 'N';
}

/// What "$GC" assigns when its fields are empty.
void emptyCourse(MRVGpsData& state)
{
    state.Now.wYear = 2000;
    state.SpeedOverGround = state.CourseOverGround = state.HDOP = 0;
    state.SatelliteUsedCount = 0;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Dialect,
    testing::Values(
        DialectCase{"Position", "$GA,134502,A,3723.2475,12158.3416,35.5,N,W*00", changed([](auto& state) {
                        fullPosition(state);
                        state.EW = 'W';
                    })},
        DialectCase{"VoidKeepsTheHemisphere", "$GA,134502,Void,3723.2475,12158.3416,35.5,N,W*",
                    changed(fullPosition)},
        DialectCase{"NoStatusIsNotVoid", "$GA,,,,,,,W*00", changed([](auto& state) { state.EW = 'W'; })},
        DialectCase{"SmallVIsNotVoid", "$GA,,v,,,,,W*00", changed([](auto& state) { state.EW = 'W'; })},
        DialectCase{"PositionCutShort", "$GA,1345*",
                    changed([](auto& state) { state.Now = {0, 0, 0, 0, 13, 45, 0, 0}; })},
        DialectCase{"PositionWithoutFields", "$GA*", changed([](auto&) {})},
        DialectCase{"PositionWithDecimalsAndLetters", "$GA,134502.750,A,x,12e1,+.5knots,South*",
                    changed([](auto& state) {
                        state.Now = {0, 0, 0, 0, 13, 45, 2, 0};
                        state.Latitude = 0;
                        state.Longitude = 120;
                        state.SpeedOverGround = .5;
                        state.NS = 'S';
                    })},
        DialectCase{"Course", "$GC,134502,260513,,,7,1.2,35.5,84.0*00", changed([](auto& state) {
                        state.Now = {2013, 5, 0, 26, 13, 45, 2, 0};
                        state.SatelliteUsedCount = 7;
                        state.HDOP = 1.2F;
                        state.SpeedOverGround = 35.5;
                        state.CourseOverGround = 84;
                    })},
        DialectCase{"CourseWithoutFields", "$GC*", changed(emptyCourse)},
        DialectCase{"CourseThatDoesNotScan", "$GC,1x4502,x,9,9,-1,,nan,84*", changed([](auto& state) {
                        emptyCourse(state);
                        state.Now.wHour = 1;
                        state.SatelliteUsedCount = 0xFFFFFFFF;
                        state.CourseOverGround = 84;
                    })},
        DialectCase{
            "StandardRmc", "$GPRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A", {}},
        DialectCase{"LongerName", "$GAA,134502*", {}}, DialectCase{"OtherName", "$GB,134502*", {}},
        DialectCase{"NoStar", "$GA,134502,A", {}}, DialectCase{"TwoStars", "$GC,134502*0*", {}},
        DialectCase{"NotUtf8", "$GA,134502,A,,,,\xFF*", {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DialectTime, LosesItsDateWithEveryPosition)
{
    MRVMARVONMEASentenceParser parser;
    EXPECT_TRUE(parser.parse("$GC,134502,260513*"));
    EXPECT_TRUE(parser.parse("$GA,134503*"));
    EXPECT_EQ(parser.m_Current().Now, (_SYSTEMTIME{0, 0, 0, 0, 13, 45, 3, 0}));
}

TEST(Numbers, AreLeadingDecimals)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const std::pair<std::string, float> cases[] = {{"", 0},
                                                   {"3723.2475", 3723.2475F},
                                                   {"  +5.5x", 5.5F},
                                                   {"-.5", -.5F},
                                                   {"5.", 5},
                                                   {".", 0},
                                                   {"-", 0},
                                                   {"+-5", 0},
                                                   {"1e2", 100},
                                                   {"1e", 1},
                                                   {"1e+", 1},
                                                   {"1E-2z", .01F},
                                                   {"inf", 0},
                                                   {"-infinity", 0},
                                                   {"nan", 0},
                                                   {"0x10", 0},
                                                   {"1,5", 1},
                                                   {"- 5", 0},
                                                   {"12abc", 12},
                                                   {"16777217", 16777216},
                                                   {"1e39", infinity},
                                                   {"-1e999999999999", -infinity},
                                                   {"1e-999999999999", 0},
                                                   {"-1e-60", 0},
                                                   {"0e99999", 0},
                                                   {std::string(400, '9'), infinity},
                                                   {"." + std::string(400, '0') + "1", 0},
                                                   {"0." + std::string(50, '0') + "1e60", 1e9F},
                                                   {"1" + std::string(500, '0') + "e-499", 10}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(nmeaNumber(text), value) << text;
}

TEST(Integers, SaturateAt32Bits)
{
    const std::pair<std::string_view, std::int32_t> cases[] = {{"", 0},
                                                               {"08", 8},
                                                               {" +7.9", 7},
                                                               {"-3x", -3},
                                                               {"0x10", 0},
                                                               {".5", 0},
                                                               {"1e3", 1},
                                                               {"+-1", 0},
                                                               {"2147483648", INT32_MAX},
                                                               {"-99999999999", INT32_MIN},
                                                               {"x", 0}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(nmeaInteger(text), value) << text;
}

using Sentences = std::vector<std::string>;

Sentences sentencesOf(std::string_view text)
{
    Sentences result;
    splitSentences(text, [&](std::string_view sentence) { result.emplace_back(sentence); });
    return result;
}

TEST(Splitting, CutsAtTerminatorsAndRestartsAtDollars)
{
    EXPECT_EQ(sentencesOf("$GA\r\n$GB\n$GC\0$GD"s), (Sentences{"$GA", "$GB", "$GC"}));
    EXPECT_EQ(sentencesOf("noise$GA$GB\r$XY\n$G\n$\nG\n\n\r"), (Sentences{"$GB", "$G"}));
    EXPECT_EQ(sentencesOf("$GA$\n$GB$X\n"), Sentences{});
    EXPECT_EQ(sentencesOf(""), Sentences{});
}

/// Gives a text in reads of any sizes.
class RaggedSource : public MemorySource
{
public:
    RaggedSource(std::string_view text, unsigned seed, unsigned longest)
        : MemorySource(test::bytesOf(text)), m_random(seed), m_longest(longest)
    {}
    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        return MemorySource::readAt(
            offset, into.first(std::min<std::size_t>(into.size(), m_random() % m_longest + 1)));
    }

private:
    std::mt19937 m_random;
    unsigned m_longest;
};

TEST(SplittingASource, IsThatOfTheWholeText)
{
    std::mt19937 random(3);
    for (unsigned round = 0; round < 300; ++round) {
        std::string text;
        for (auto n = random() % 200; n > 0; --n)
            text += "$$GP,*\r\n\0x"[random() % 10];
        RaggedSource source(text, round, 1 + round % 9);
        Sentences sentences;
        splitSource(source, [&](std::string_view sentence, SentenceFit fit) {
            EXPECT_EQ(fit, SentenceFit::Whole);
            sentences.emplace_back(sentence);
        });
        ASSERT_EQ(sentences, sentencesOf(text)) << round;
    }
}

TEST(SplittingASource, KeepsNoSentenceThatIsTooLong)
{
    const auto sentence = [](char second, std::size_t size) {
        return "$"s + second + std::string(size - 2, 'x');
    };
    const std::string text = sentence('G', longestSentence) + "\n" + sentence('G', longestSentence + 1) +
                             "\n" + sentence('X', longestSentence * 3) + "\n" +
                             sentence('G', longestSentence * 9) + "$GA\r" +
                             sentence('G', longestSentence * 9) + "\r" + std::string(900'000, '-') + "$GB\n" +
                             sentence('G', longestSentence * 9);
    for (const unsigned longest : {300'000U, 70'000U, 1'000U}) {
        RaggedSource source(text, longest, longest);
        std::vector<std::size_t> sizes; // 0 for one that is too long
        splitSource(source, [&](std::string_view whole, SentenceFit fit) {
            EXPECT_EQ(fit == SentenceFit::TooLong, whole.empty());
            sizes.push_back(whole.size());
        });
        EXPECT_EQ(sizes, (std::vector<std::size_t>{longestSentence, 0, 3, 0, 3})) << longest;
    }
}

} // namespace
} // namespace marvo
