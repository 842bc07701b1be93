#include "devices/links/clsMirror.h"

#include <limits>

#include "devices/links/MirrorRig.h"

namespace travo::test {
namespace {

using clsMirrorTest = MirrorRig;

TEST_F(clsMirrorTest, PortOpenSetsThePortUp) {
    Port().handshaking = Port().inputLen = Port().inputMode = 9;
    link->PortOpen(7);
    EXPECT_EQ(Port().commPort, 7);
    EXPECT_EQ(Port().settings, "9600,N,8,1");
    EXPECT_EQ(Port().handshaking, 0);
    EXPECT_EQ(Port().inputLen, 0);
    EXPECT_EQ(Port().inputMode, 0);
    EXPECT_EQ(Port().rThreshold, 1);
    EXPECT_TRUE(link->PortOpenCheck());
}

TEST_F(clsMirrorTest, PortOpenSendsStatusErgoLockMotorXYAndMagnificationInThisOrder) {
    link->PortOpen(1);
    EXPECT_EQ(journal, (Journal{"port 1 open", "port 1 > cSAS1\r", "port 1 > rWER\r", "port 1 > rPMR\r",
                                "port 1 > rD2R\r", "port 1 > rD1R\r", "port 1 > rMGR\r"}));
}

TEST_F(clsMirrorTest, AFailureInPortCloseIsReported) {
    Open();
    Port().failClose = true;
    link->PortClose();
    EXPECT_EQ(Reported(), QStringLiteral("Mirror : Communication failed"));
    Port().failClose = false;
}

struct Command {
    const char* bytes;
    void (*send)(clsMirror&);
};

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

const Command Commands[] = {
    {"rD2R\r", [](clsMirror& link) { link.RequestXData(); }},
    {"rD1R\r", [](clsMirror& link) { link.RequestYData(); }},
    {"rMGR\r", [](clsMirror& link) { link.RequestMagnificationData(); }},
    {"cD2A0\r", [](clsMirror& link) { link.SendXData(0); }},
    {"cD2A-180\r", [](clsMirror& link) { link.SendXData(-180); }},
    {"cD2A2147483647\r", [](clsMirror& link) { link.SendXData(Highest); }},
    {"cD1A180\r", [](clsMirror& link) { link.SendYData(180); }},
    {"cD1A-2147483648\r", [](clsMirror& link) { link.SendYData(Lowest); }},
    {"cMAG3\r", [](clsMirror& link) { link.SendMagnificationData(3); }},
    {"cMAG-32768\r", [](clsMirror& link) { link.SendMagnificationData(INT16_MIN); }},
    {"cWES1\r", [](clsMirror& link) { link.SendErgoLock(1); }},
    {"rWER\r", [](clsMirror& link) { link.RequestErgoLock(); }},
    {"cPMS1\r", [](clsMirror& link) { link.SendMotorONOFF(1); }},
    {"cPMS0\r", [](clsMirror& link) { link.SendMotorONOFF(0); }},
    {"cZEN0\r", [](clsMirror& link) { link.SendErgoZONOFF(0); }},
    {"rPMR\r", [](clsMirror& link) { link.RequestMotorONOFF(); }},
    {"rPNM\r", [](clsMirror& link) { link.RequestProgramName(); }},
    {"cSAS1\r", [](clsMirror& link) { link.StatusONOFF(1); }},
};

TEST_F(clsMirrorTest, EachCommandIsWrittenByteForByte) {
    Open();
    for (const Command& command : Commands) {
        command.send(*link);
        EXPECT_EQ(Port().TakeOutput(), command.bytes);
    }
}

TEST_F(clsMirrorTest, AnyCommandWithThePortClosedSendsNothingAndShowsNothing) {
    for (const Command& command : Commands) {
        command.send(*link);
    }
    EXPECT_EQ(journal, Journal{});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorTest, AFailedCommandGoesToTheCaller) {
    Open();
    Port().failOutput = true;
    EXPECT_THROW(link->RequestXData(), std::runtime_error);
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorTest, EveryKindOfEventMakesTheLinkReadItsInput) {
    Open();
    for (const int code : {1, 2, 3, 7, 1009}) {
        Port().Receive("aD2R" + std::to_string(code) + "\r\n", code);
    }
    EXPECT_EQ(journal, (Journal{"X 1", "X 2", "X 3", "X 7", "X 1009"}));
    EXPECT_EQ(Port().buffer, "");
}

TEST_F(clsMirrorTest, AnEventWithoutInputDoesNothing) {
    Open();
    Port().Tell(platform::ReceptionEvent);
    EXPECT_EQ(journal, Journal{});
}

TEST_F(clsMirrorTest, TheLastLineSurvivesAReopening) {
    Open();
    Receive("aD2R5\r\n");
    link->PortClose();
    Open();
    Receive("aD2R5\r\naD2R6\r\n");
    EXPECT_EQ(journal, Journal{"X 6"});
}

TEST_F(clsMirrorTest, TextWithoutALineEndSurvivesAReopening) {
    Open();
    Receive("aD2");
    link->PortClose();
    Open();
    Receive("R5\r\n");
    EXPECT_EQ(journal, Journal{"X 5"});
}

TEST_F(clsMirrorTest, TheFirstLineOfARunThatIsTheCharacter0IsDropped) {
    Open();
    Receive("0\r\naD2R5\r\n0\r\naD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"X 5", "X 5"}));
}

}  // namespace
}  // namespace travo::test
