#include "workbench/wires/LineFaults.h"

#include <gtest/gtest.h>

namespace workbench {

namespace {

std::string Sent(LineFaults& faults, const std::string& bytes) {
    const auto line = faults.Befall({bytes, WireLine::Manner::Paced});
    return line ? line->bytes : "(nothing)";
}

}  // namespace

TEST(LineFaultsTest, WithoutAFaultALineGoesOutAsItIs) {
    LineFaults faults;
    EXPECT_EQ(Sent(faults, "abc\r\n"), "abc\r\n");
}

TEST(LineFaultsTest, ASilentInstrumentSendsNothing) {
    LineFaults faults;
    faults.Silence(true);
    EXPECT_EQ(Sent(faults, "abc\r\n"), "(nothing)");
    faults.Silence(false);
    EXPECT_EQ(Sent(faults, "abc\r\n"), "abc\r\n");
}

TEST(LineFaultsTest, ALineCanBeCutInEveryPlaceAndOnlyTheNextOneIs) {
    const std::string line = "aD2R5\r\n";
    for (std::size_t kept = 0; kept <= line.size() + 1; ++kept) {
        LineFaults faults;
        faults.CutNext(kept);
        EXPECT_EQ(Sent(faults, line), kept == 0 ? "(nothing)" : line.substr(0, kept));
        EXPECT_FALSE(faults.Cuts());
        EXPECT_EQ(Sent(faults, line), line);
    }
}

TEST(LineFaultsTest, AGarbledLineDiffersInExactlyOneByte) {
    LineFaults faults;
    faults.Garble(100);
    const std::string line = "aD2R5\r\n";
    for (int turn = 0; turn < 100; ++turn) {
        EXPECT_TRUE(faults.Garbles());
        const std::string sent = Sent(faults, line);
        ASSERT_EQ(sent.size(), line.size());
        int different = 0;
        for (std::size_t place = 0; place < line.size(); ++place) {
            different += sent[place] != line[place] ? 1 : 0;
        }
        EXPECT_EQ(different, 1);
    }
    EXPECT_FALSE(faults.Garbles());
    EXPECT_EQ(Sent(faults, line), line);
}

TEST(LineFaultsTest, NoiseHasTheBytesAskedForAndTheSameInEveryRun) {
    LineFaults one;
    LineFaults other;
    const std::string noise = one.Noise(1000).bytes;
    EXPECT_EQ(noise.size(), 1000U);
    EXPECT_EQ(noise, other.Noise(1000).bytes);
    EXPECT_NE(noise, one.Noise(1000).bytes);
}

TEST(LineFaultsTest, ClearEndsThemAll) {
    LineFaults faults;
    faults.Silence(true);
    faults.Garble(5);
    faults.CutNext(2);
    faults.Clear();
    EXPECT_FALSE(faults.Silent() || faults.Garbles() || faults.Cuts());
    EXPECT_EQ(Sent(faults, "abc"), "abc");
}

}  // namespace workbench
