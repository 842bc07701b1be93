#include "drivers/gcode/Line.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace gcode {
namespace {

// A wire that gives its pieces one after the other, 10 ms apart.
class Pieces : public Wire {
public:
    explicit Pieces(std::deque<std::string> pieces) : pieces_(std::move(pieces)) {}
    bool Write(std::string_view bytes) override {
        written += bytes;
        return !isGone;
    }
    Reception Read(std::string& into, Time until) override {
        if (pieces_.empty()) {
            now = std::max(now, until);
            return isGone ? Reception::Gone : Reception::Nothing;
        }
        const Time next = now + std::chrono::milliseconds(10);
        if (next > until) {
            now = std::max(now, until);
            return Reception::Nothing;
        }
        now = next;
        into += pieces_.front();
        pieces_.pop_front();
        return Reception::Bytes;
    }
    Time Now() const override { return now; }

    Time now = std::chrono::seconds(1);
    std::string written;
    bool isGone = false;

private:
    std::deque<std::string> pieces_;
};

constexpr Time Soon = std::chrono::seconds(2);

TEST(GcodeLineTest, ALineComesTogetherFromItsPieces) {
    Pieces wire({"o", "k\r", "\n<Idle", "|x>\r\n"});
    Line line(wire);
    EXPECT_EQ(line.Next(Soon), "ok");
    EXPECT_EQ(line.Next(Soon), "<Idle|x>");
    EXPECT_EQ(line.Next(Soon), std::nullopt);
    EXPECT_FALSE(line.IsGone());
}

TEST(GcodeLineTest, EmptyLinesAreNoLines) {
    Pieces wire({"\r\n\r\n\nok\n"});
    Line line(wire);
    EXPECT_EQ(line.Next(Soon), "ok");
    EXPECT_EQ(line.Next(Soon), std::nullopt);
}

TEST(GcodeLineTest, ALineWithABadByteIsNoiseUpToItsEnd) {
    for (const std::string& bad : {std::string("\0", 1), std::string("\x7f"), std::string("\x80"),
                                   std::string("\xff"), std::string("\x1b")}) {
        Pieces wire({"o" + bad + "k\nok\n"});
        Line line(wire);
        EXPECT_EQ(line.Next(Soon), "ok");
        EXPECT_EQ(line.Next(Soon), std::nullopt);
        EXPECT_EQ(line.Dropped(), 1);
    }
}

TEST(GcodeLineTest, ALineThatIsTooLongIsNoiseUpToItsEndInWhateverPieces) {
    Pieces wire({std::string(700, 'a'), std::string(700, 'a'), std::string(5000, 'a'), "ok\nok\n"});
    Line line(wire);
    EXPECT_EQ(line.Next(Soon), "ok");
    EXPECT_EQ(line.Next(Soon), std::nullopt);
    EXPECT_EQ(line.Dropped(), 1);
    Pieces whole(
        {std::string(Line::LongestLine, 'a') + "\n" + std::string(Line::LongestLine + 1, 'b') + "\nok\n"});
    Line other(whole);
    EXPECT_EQ(other.Next(Soon), std::string(Line::LongestLine, 'a'));
    EXPECT_EQ(other.Next(Soon), "ok");
}

TEST(GcodeLineTest, WhatHasNoEndIsNoLineAndBecomesPartOfTheNext) {
    Pieces wire({"<Idle|MPos:1.0", "<Idle|MPos:2.000,0.000,0.000>\n"});
    Line line(wire);
    EXPECT_EQ(line.Next(wire.now + std::chrono::milliseconds(15)), std::nullopt);
    EXPECT_EQ(line.Next(Soon), "<Idle|MPos:1.0<Idle|MPos:2.000,0.000,0.000>");
}

TEST(GcodeLineTest, AWaitEndsAtItsTimeAndAtTheLimit) {
    Pieces wire({});
    Line line(wire);
    EXPECT_EQ(line.Next(wire.now + std::chrono::milliseconds(100)), std::nullopt);
    EXPECT_EQ(wire.now, std::chrono::milliseconds(1100));
    line.LimitWaits(std::chrono::milliseconds(1200));
    EXPECT_EQ(line.Next(Soon), std::nullopt);
    EXPECT_EQ(wire.now, std::chrono::milliseconds(1200));
    line.LiftLimit();
    EXPECT_EQ(line.Next(Soon), std::nullopt);
    EXPECT_EQ(wire.now, Soon);
}

TEST(GcodeLineTest, AWireThatNeverPausesHoldsNobodyBeyondHisTime) {
    std::deque<std::string> endless(10000, "aaaa\x01\n");
    Pieces wire(endless);
    Line line(wire);
    EXPECT_EQ(line.Next(wire.now + std::chrono::milliseconds(100)), std::nullopt);
    EXPECT_LE(wire.now, std::chrono::milliseconds(1120));
}

TEST(GcodeLineTest, APortThatHasGoneStaysGone) {
    Pieces wire({"ok\n"});
    wire.isGone = true;
    Line line(wire);
    EXPECT_EQ(line.Next(Soon), "ok");
    EXPECT_FALSE(line.IsGone());
    EXPECT_EQ(line.Next(Soon), std::nullopt);
    EXPECT_TRUE(line.IsGone());
    wire.isGone = false;
    EXPECT_FALSE(line.Send("?"));
}

}  // namespace
}  // namespace gcode
