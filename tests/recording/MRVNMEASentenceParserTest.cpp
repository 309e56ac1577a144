// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVNMEASentenceParser.h"
#include "recording/MRVMARVONMEASentenceParser.h"
#include "recording/NmeaFields.h"
#include "recording/RecordingBytes.h"
#include "recording/SentenceStream.h"

#include <algorithm>
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
    EXPECT_EQ(std::pair(full.NS, full.EW), std::pair('S', 'W'));
    EXPECT_EQ(full.SatelliteUsedCount, 8U);
    EXPECT_EQ(full.HDOP, double{0.9F});
    EXPECT_TRUE(parser.parse("$GPGGA,,,,,,,-1*")) << "what is empty leaves all as it was";
    MRVGpsData expected = full;
    expected.SatelliteUsedCount = 0xFFFFFFFF;
    EXPECT_EQ(state(), expected);
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
    EXPECT_FALSE(parser.parse(message(4, 4))) << "not the next one either";
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
    const std::string gga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9";
    for (const std::string& sentence :
         {""s, "$"s, "*"s, gga, gga + "*4*7", gga + "\xFF*", gga + "*\xC3", " " + gga + "*",
          "$gpgga,,4807.038*"s, "$GPGGA ,,4807.038*"s, "$GPVTG,084.4,T,,M,022.4,N*00"s,
          "$GPGSV,3,2,11,01,,,10*"s, "$GNRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394*6A"s}) {
        EXPECT_FALSE(parser.parse(sentence)) << sentence;
        MRVGpsData untouched = state();
        untouched.SatelliteCount = 0; // set before a satellite message is found to be out of turn
        EXPECT_EQ(untouched, MRVGpsData()) << sentence;
    }
}

TEST_F(Parser, ScansTheTimeOfRmcAtFixedWidths)
{
    const auto minus = [](int n) { return static_cast<std::uint16_t>(-n); };
    struct
    {
        std::string time, date;
        _SYSTEMTIME now;
    } const cases[] = {
        {"235958.987", "311299", {2099, 12, 0, 31, 23, 59, 58, 987}},
        {"123519", "230394", {}},
        {"123519.00", "230394", {}},
        {"123519.000", "2303941", {}},
        // Characters count, not bytes.
        {"1235\xC3\xA9.000x", "230394", {2094, 3, 0, 23, 12, 35, 0, 0}},
        {"abcdef.ghi", "xxxxxx", {2000, 0, 0, 0, 0, 0, 0, 0}},
        // What stands behind the first that fails is not read.
        {"12x519.123", "23x394", {2000, 0, 0, 23, 12, 0, 0, 0}},
        {"1235191123", "230394", {2094, 3, 0, 23, 12, 35, 19, 0}},
        // A sign counts towards the width.
        {"+1-2+3.-45", "-1+2-3", {1997, 2, 0, minus(1), 1, minus(2), 3, minus(45)}},
        {"12-x19.123", "230394", {2094, 3, 0, 23, 12, 0, 0, 0}},
        {" 1 2 3.456", " 1\t2 3", {2003, 2, 0, 1, 1, 2, 3, 456}},
    };
    for (const auto& c : cases) {
        parser.clear();
        EXPECT_TRUE(parser.parse("$GPRMC," + c.time + ",A,,,,,1,2," + c.date + "*00"));
        EXPECT_EQ(state().Now, c.now) << c.time << ' ' << c.date;
    }
}

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

/// The state behind a sentence that tells a time and some of a position.
MRVGpsData position(_SYSTEMTIME now, double latitude = -1, double longitude = -1, double speed = -1,
                    char NS = 'n', char EW = 'e')
{
    MRVGpsData state = stateBefore();
    state.Now = now;
    state.Latitude = latitude;
    state.Longitude = longitude;
    state.SpeedOverGround = speed;
    state.NS = NS;
    state.EW = EW;
    return state;
}

MRVGpsData course(_SYSTEMTIME now, unsigned satellites, double hdop, double speed, double direction)
{
    MRVGpsData state = position(now, -1, -1, speed);
    state.SatelliteUsedCount = satellites;
    state.HDOP = hdop;
    state.CourseOverGround = direction;
    return state;
}

TEST(Dialect, ChangesWhatTheSentenceTells)
{
    const _SYSTEMTIME time{0, 0, 0, 0, 13, 45, 2, 0};
    const double latitude = 3723.2475F;
    const double longitude = 12158.3416F;
    const std::pair<std::string, MRVGpsData> accepted[] = {
        {"$GA,134502,A,3723.2475,12158.3416,35.5,N,W*00",
         position(time, latitude, longitude, 35.5, 'N', 'W')},
        // Void: the hemisphere stays.
        {"$GA,134502,Void,3723.2475,12158.3416,35.5,N,W*", position(time, latitude, longitude, 35.5, 'N')},
        {"$GA,,,,,,,W*00", position({}, -1, -1, -1, 'n', 'W')},
        {"$GA,,v,,,,,W*00", position({}, -1, -1, -1, 'n', 'W')},
        {"$GA,1345*", position({0, 0, 0, 0, 13, 45, 0, 0})},
        {"$GA*", position({})},
        {"$GA,134502.750,A,x,12e1,+.5knots,South*", position(time, 0, 120, .5, 'S')},
        {"$GC,134502,260513,,,7,1.2,35.5,84.0*00", course({2013, 5, 0, 26, 13, 45, 2, 0}, 7, 1.2F, 35.5, 84)},
        // Unlike "$GA", "$GC" assigns empty fields.
        {"$GC*", course({2000, 0, 0, 0, 0, 0, 0, 0}, 0, 0, 0, 0)},
        {"$GC,1x4502,x,9,9,-1,,nan,84*", course({2000, 0, 0, 0, 1, 0, 0, 0}, 0xFFFFFFFF, 0, 0, 84)},
    };
    for (const auto& [sentence, expected] : accepted) {
        MRVMARVONMEASentenceParser parser;
        parser.setM_Current(stateBefore());
        EXPECT_TRUE(parser.parse(sentence));
        EXPECT_EQ(parser.m_Current(), expected) << sentence;
    }
    for (const char* refused :
         {"$GPRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A", "$GAA,134502*",
          "$GB,134502*", "$GA,134502,A", "$GC,134502*0*", "$GA,134502,A,,,,\xFF*"}) {
        MRVMARVONMEASentenceParser parser;
        parser.setM_Current(stateBefore());
        EXPECT_FALSE(parser.parse(refused)) << refused;
        EXPECT_EQ(parser.m_Current(), stateBefore()) << refused;
    }
}

template <auto read>
auto each(const std::vector<std::string>& texts)
{
    std::vector<decltype(read(std::string_view()))> values;
    std::ranges::transform(texts, std::back_inserter(values), read);
    return values;
}

TEST(Numbers, AreLeadingDecimals)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(each<nmeaNumber>({"3723.2475", "  +5.5x", "-.5", "5.", "1e2", "1e", "1e+", "1E-2z", "1,5",
                                "16777217", "1e39", "-1e999999999999", std::string(400, '9'),
                                "0." + std::string(50, '0') + "1e60", "1" + std::string(500, '0') + "e-499"}),
              (std::vector<float>{3723.2475F, 5.5F, -.5F, 5, 100, 1, 1, .01F, 1, 16777216, infinity,
                                  -infinity, infinity, 1e9F, 10}));
    EXPECT_EQ(each<nmeaNumber>({"", ".", "-", "+-5", "inf", "-infinity", "nan", "0x10", "- 5",
                                "1e-999999999999", "-1e-60", "0e99999", "." + std::string(400, '0') + "1"}),
              std::vector<float>(13));
    EXPECT_EQ(each<nmeaInteger>({"08", " +7.9", "-3x", "1e3", "2147483648", "-99999999999"}),
              (std::vector{8, 7, -3, 1, INT32_MAX, INT32_MIN}));
    EXPECT_EQ(each<nmeaInteger>({"", "0x10", ".5", "+-1", "x"}), std::vector<int>(5));
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
    EXPECT_EQ(sentencesOf("noise$GA$GB\r$XY\n$G\n$\nG\n\n\r$GA$\n$GB$X\n"), (Sentences{"$GB", "$G"}));
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
