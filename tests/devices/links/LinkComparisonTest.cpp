// Random text, cut at random places and let in at random moments, through the links and through their
// plain references.
#include "devices/links/LinkComparison.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace travo::test {
namespace {

using Fragments = std::vector<std::string>;

const Fragments MirrorFragments{"\r",
                                "\n",
                                "\r\n",
                                "\r\n",
                                "\r\n",
                                "\r\n",
                                "RZ1\r",
                                "MZ-2\r",
                                "WZ",
                                "ZE",
                                "RE\r",
                                "aD2R",
                                "aD1R",
                                "aMGR",
                                "aPMR1",
                                "1",
                                "2",
                                "-7",
                                "40000",
                                "32768",
                                "3000000000",
                                "nD2A2\r\n",
                                "nMAG",
                                "nZEN1",
                                "q",
                                "o",
                                "sSAA",
                                "sSAA1,2,0,1,2,0,0,0\r\n",
                                "sSAA3,4,0,1,2,1,1,0\r\n",
                                "sSAA5,6,,0,1,1,0,\r\n",
                                ",",
                                " ",
                                "\x80",
                                "\xFF"};
const Fragments MotorFragments{"\r",        "\r", "\r", "A",   "Z", "N", "Remote Drive ",
                               "Accessory", "12", "\n", "\xE4"};
const Fragments GaugeFragments{
    "A",        "A", "+",       "-",  ".",   "0",   "1", "5", "00.100", "A+01.234\r\n",
    "A-00.500", "x", "9999999", "e9", "nan", "\r\n"};
const Fragments Marks{std::string(1, PieceMark), std::string(1, PieceMark), std::string(1, InnerPieceMark),
                      std::string(1, OtherEventMark)};

constexpr std::size_t LongestSingly = 4096;

std::string RandomScript(std::mt19937& random, const Fragments& fragments) {
    const auto below = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    std::string script;
    const std::size_t length = 1 + below(60);
    const std::size_t oneMarkIn = 1 + below(8);
    for (std::size_t fragment = 0; fragment < length; ++fragment) {
        const std::string& text = fragments[below(fragments.size())];
        const std::size_t cut = below(text.size() + 1);
        script += text.substr(0, cut);
        if (below(oneMarkIn) == 0) {
            script += Marks[below(Marks.size())];
        }
        script += text.substr(cut);
    }
    // Once in a while all of it arrives one byte at a time.
    if (below(10) == 0 && script.size() <= LongestSingly) {
        std::string single;
        for (const char byte : script) {
            single += {byte, PieceMark};
        }
        return single;
    }
    return script;
}

// The events that were met, so that a test cannot pass on scripts that bring nothing.
template <typename Compare>
std::set<std::string> CompareAtRandom(const Fragments& fragments, Compare&& compare, int rounds = 20000) {
    std::mt19937 random(20080703);
    std::set<std::string> met;
    for (int round = 0; round < rounds; ++round) {
        const std::string script = RandomScript(random, fragments);
        const LinkComparison result = compare(script);
        EXPECT_EQ(result.link, result.reference) << ::testing::PrintToString(script);
        for (const std::string& event : result.reference) {
            met.insert(event.substr(0, event.find(' ')));
        }
        if (::testing::Test::HasFailure()) {
            break;
        }
    }
    return met;
}

TEST(LinkComparisonTest, TheMirrorLinkEqualsItsReferenceOnRandomTextAndCuts) {
    EXPECT_EQ(CompareAtRandom(MirrorFragments, CompareMirror),
              (std::set<std::string>{"X", "XY", "Y", "box", "ergo", "magnification", "motor"}));
}

TEST(LinkComparisonTest, TheMotorLinkEqualsItsReferenceOnRandomTextAndCuts) {
    EXPECT_EQ(CompareAtRandom(MotorFragments, CompareMotor),
              (std::set<std::string>{"box", "identified", "serve", "unknown", "unlock"}));
}

TEST(LinkComparisonTest, TheGaugeLinkEqualsItsReferenceOnRandomTextAndCuts) {
    EXPECT_EQ(CompareAtRandom(GaugeFragments, CompareGauge), std::set<std::string>{"Z"});
}

// Lengths about that of the longest line, of noise and of what a line begins with.
Fragments WithLongOnes(Fragments fragments) {
    for (const char* const begin : {"", "RZ", "aD2R", "A"}) {
        for (const std::size_t size : {30000U, 65532U, 65536U, 65537U, 70000U}) {
            fragments.push_back(begin + std::string(size, '0'));
        }
    }
    return fragments;
}

TEST(LinkComparisonTest, TheLinksEqualTheirReferencesOnLinesOfAnyLength) {
    constexpr int Rounds = 150;
    EXPECT_TRUE(CompareAtRandom(WithLongOnes(MirrorFragments), CompareMirror, Rounds).contains("dropped"));
    EXPECT_TRUE(CompareAtRandom(WithLongOnes(MotorFragments), CompareMotor, Rounds).contains("dropped"));
    Fragments gauge = WithLongOnes({"+", "1", ".", "A+01.234"});
    EXPECT_TRUE(CompareAtRandom(gauge, CompareGauge, Rounds).contains("dropped"));
}

TEST(LinkComparisonTest, InnerPiecesComeWithinWhatTheLinkLetsOut) {
    std::string script = "nD2A2\r\naD1R";
    script += PieceMark;
    script += "aD2R1\r\naD2R";
    script += InnerPieceMark;
    script += "7\r\n";
    const LinkComparison result = CompareMirror(script);
    EXPECT_EQ(result.link, (std::vector<std::string>{"box nD2A2 : Mirror : Parametar Error", "X 1", "Y 7"}));
    EXPECT_EQ(result.link, result.reference);
}

}  // namespace
}  // namespace travo::test
