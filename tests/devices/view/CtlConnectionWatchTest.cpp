// The connection panel: the watches, tick by tick, and every state with every event.
#include "devices/view/CtlConnectionRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

QString Refusal(int row) {
    return QStringLiteral("Error : %1 : Communication connection").arg(NameOfRow(row));
}

class CtlConnectionWatchTest : public CtlConnectionRig {
protected:
    void ExpectAccepted(int row, const QString& port) {
        EXPECT_FALSE(Watch(row).enabled);
        EXPECT_TRUE(Port(row).open);
        EXPECT_TRUE(TestEnabled(row));
        EXPECT_EQ(Stored(row), port);
        EXPECT_EQ(State(row), QStringLiteral("Connected"));
        EXPECT_FALSE(Shown().contains(Refusal(row)));
    }
    void ExpectRefused(int row, const QString& state = QStringLiteral("No answer")) {
        EXPECT_FALSE(Watch(row).enabled);
        EXPECT_FALSE(Port(row).open);
        EXPECT_FALSE(TestEnabled(row));
        EXPECT_EQ(Stored(row), QStringLiteral("-1"));
        EXPECT_EQ(State(row), state);
        EXPECT_EQ(Shown().count(Refusal(row)), 1);
        EXPECT_THAT(Logged(), IsEmpty());
    }
};

struct AnswerAt {
    int row;
    int tick;  // the first that finds the answer
};

class EachTickTest : public CtlConnectionWatchTest, public ::testing::WithParamInterface<AnswerAt> {};

std::vector<AnswerAt> EveryTickOfEveryRow() {
    std::vector<AnswerAt> all;
    for (int row = 0; row < 3; ++row) {
        for (int tick = 1; tick <= 7; ++tick) {
            all.push_back({row, tick});
        }
    }
    return all;
}
INSTANTIATE_TEST_SUITE_P(All, EachTickTest, ::testing::ValuesIn(EveryTickOfEveryRow()), [](const auto& row) {
    return NameOfRow(row.param.row).toStdString() + std::to_string(row.param.tick);
});

TEST_P(EachTickTest, AnAnswerIsAcceptedAtTheNextTickUpToTheSeventh) {
    const auto [row, tick] = GetParam();
    Type(row, QStringLiteral("4"));
    StartWatch(row);
    Tick(row, tick - 1);
    EXPECT_TRUE(Watch(row).enabled);
    EXPECT_EQ(State(row), QStringLiteral("Waiting for an answer"));
    EXPECT_EQ(Stored(row), QStringLiteral("none"));
    Answer(row);
    Tick(row);
    ExpectAccepted(row, QStringLiteral("4"));
}

class EachInstrumentTest : public CtlConnectionWatchTest, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Rows, EachInstrumentTest, ::testing::Values(0, 1, 2), RowName);

TEST_P(EachInstrumentTest, ASilentOneIsRefusedAtTheSeventhTickAndNotBefore) {
    const int row = GetParam();
    rig.ini.WriteString(QStringLiteral("COMPort"), NameOfRow(row), QStringLiteral("5"));
    Button(TestOfRow(row)).Enabled(true);
    StartWatch(row);
    Tick(row, 6);
    EXPECT_TRUE(Watch(row).enabled);
    EXPECT_EQ(Stored(row), QStringLiteral("5"));
    EXPECT_THAT(Shown(), IsEmpty());
    Tick(row);
    ExpectRefused(row);
}

TEST_P(EachInstrumentTest, StartUpRunsTheSameWatchBeforeThePanelIsEverShown) {
    const int row = GetParam();
    OpenPorts();
    panel.txtNoChange(static_cast<std::int16_t>(row), QString::number(row + 1));
    panel.TimerONOFF(static_cast<std::int16_t>(row), true);
    Answer(row);
    Tick(row);
    ExpectAccepted(row, QString::number(row + 1));
}

TEST_P(EachInstrumentTest, TheStoredTextIsThePlainNumberOfTheBox) {
    const int row = GetParam();
    Type(row, QStringLiteral("007"));
    StartWatch(row);
    Answer(row);
    Tick(row);
    EXPECT_EQ(Stored(row), QStringLiteral("7"));
}

TEST_P(EachInstrumentTest, TheTickOfAVerdictCountsForTheNextWatch) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 7);
    ASSERT_EQ(Shown().size(), 1);
    StartWatch(row);
    Tick(row, 5);
    EXPECT_EQ(Shown().size(), 1);
    Tick(row);
    EXPECT_EQ(Shown().size(), 2);
}

TEST_P(EachInstrumentTest, ABoxRaisedInATickComesAfterTheWatchHasStopped) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 6);
    bool wasWatching = true;
    bool wasOpen = true;
    QString wasStored;
    rig.boxes.whileShown = [&] {
        wasWatching = Watch(row).enabled;
        wasOpen = Port(row).open;
        wasStored = Stored(row);
        Tick(row, 9);
    };
    Tick(row);
    EXPECT_FALSE(wasWatching);
    EXPECT_FALSE(wasOpen);
    EXPECT_EQ(wasStored, QStringLiteral("-1"));
    EXPECT_EQ(Shown().size(), 1);
}

TEST_P(EachInstrumentTest, AnAdapterThatIsUnpluggedWhileItsWatchRunsIsSaidAtOnceAndRefusedAtTheSeventhTick) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 2);
    Answer(row);
    Port(row).Vanish();
    EXPECT_EQ(State(row), QStringLiteral("Connection lost"));
    Tick(row, 4);
    EXPECT_TRUE(Watch(row).enabled);
    Tick(row);
    ExpectRefused(row, QStringLiteral("Connection lost"));
    EXPECT_EQ(Port(row).TakeOutput(), row == MagnescaleRow ? "Ar\r\nAr\r\n" : "");
}

TEST_F(CtlConnectionWatchTest, AllThreeRunAtOnce) {
    for (int row = 0; row < 3; ++row) {
        Type(row, QString::number(row + 1));
        StartWatch(row);
    }
    for (int tick = 1; tick <= 6; ++tick) {
        for (int row = 0; row < 3; ++row) {
            Tick(row);
        }
    }
    Answer(MagnescaleRow);
    for (int row = 0; row < 3; ++row) {
        Tick(row);
    }
    ExpectRefused(MirrorRow);
    ExpectAccepted(MagnescaleRow, QStringLiteral("2"));
    ExpectRefused(MotorRow);
    EXPECT_THAT(Shown(), ElementsAre(Refusal(MirrorRow), Refusal(MotorRow)));
}

TEST_F(CtlConnectionWatchTest, AVerdictInsideTheBoxOfAnotherLeavesBothAsTheyAre) {
    StartWatch(MirrorRow);
    StartWatch(MotorRow);
    Tick(MirrorRow, 6);
    Tick(MotorRow, 6);
    rig.boxes.whileShown = [this] { Tick(MotorRow); };
    Tick(MirrorRow);
    ExpectRefused(MirrorRow);
    ExpectRefused(MotorRow);
}

TEST_F(CtlConnectionWatchTest, AMirrorThatReportsOnlyYIsASuccessAtTheFirstTick) {
    StartWatch(MirrorRow);
    rig.MirrorPort().Receive("aD1R7\r\n");
    Tick(MirrorRow);
    EXPECT_EQ(rig.state.CurrentXYZ(0), NoPositionValue);
    ExpectAccepted(MirrorRow, QStringLiteral("1"));
}

TEST_F(CtlConnectionWatchTest,
       AMirrorThatReportsOneAxisOnlyIsAcceptedUpToTheSixthTickAndRefusedAtTheSeventh) {
    for (const char* const line : {"aD1R7\r\n", "aD2R5\r\n"}) {
        panel.Shown();
        StartWatch(MirrorRow);
        Tick(MirrorRow, 5);
        rig.MirrorPort().Receive(line);
        Tick(MirrorRow);
        ExpectAccepted(MirrorRow, QStringLiteral("1"));

        panel.Shown();
        StartWatch(MirrorRow);
        Tick(MirrorRow, 6);
        rig.MirrorPort().Receive(std::string("aMGR1\r\n") + line);
        Tick(MirrorRow);
        ExpectRefused(MirrorRow);
        rig.boxes.shown.clear();
    }
}

TEST_F(CtlConnectionWatchTest,
       AMirrorIsMadeKnownToTheBirdsEyeViewBeforeItsErgoZIsSwitchedOffARefusedOneBehindTheBox) {
    StartWatch(MirrorRow);
    Tick(MirrorRow, 6);
    rig.journal.clear();
    Tick(MirrorRow);
    EXPECT_THAT(rig.journal,
                testing::ElementsAre("port 1 close", testing::StartsWith("box "), "chkMirror false"));
    StartWatch(MirrorRow);
    Answer(MirrorRow);
    rig.journal.clear();
    Tick(MirrorRow);
    EXPECT_THAT(rig.journal, testing::ElementsAre("chkMirror true", "port 1 > cZEN0\r"));
}

TEST_F(CtlConnectionWatchTest, AGaugeWhoseFirstValueHasArrivedByTheSeventhTickIsAcceptedALaterOneIsRefused) {
    StartWatch(MagnescaleRow);
    Tick(MagnescaleRow, 6);
    Answer(MagnescaleRow);
    Tick(MagnescaleRow);
    ExpectAccepted(MagnescaleRow, QStringLiteral("1"));

    panel.Shown();
    StartWatch(MagnescaleRow);
    Tick(MagnescaleRow, 7);
    Answer(MagnescaleRow);
    ExpectRefused(MagnescaleRow);
}

TEST_F(CtlConnectionWatchTest, TheGaugeIsAskedOnEveryTick) {
    StartWatch(MagnescaleRow);
    Tick(MagnescaleRow, 6);
    EXPECT_EQ(rig.GaugePort().TakeOutput(), "Ar\r\nAr\r\nAr\r\nAr\r\nAr\r\nAr\r\n");
    Answer(MagnescaleRow);
    Tick(MagnescaleRow);
    EXPECT_EQ(rig.GaugePort().TakeOutput(), "KEYOFF\r\nAr\r\n");
}

TEST_F(CtlConnectionWatchTest, ARefusedGaugeIsSentNothingMore) {
    StartWatch(MagnescaleRow);
    Tick(MagnescaleRow, 6);
    rig.GaugePort().TakeOutput();
    Tick(MagnescaleRow);
    EXPECT_EQ(rig.GaugePort().TakeOutput(), "");
}

TEST_F(CtlConnectionWatchTest, BothVerdictsOnTheGaugeTakeTheHourglassAway) {
    StartWatch(MagnescaleRow);
    Answer(MagnescaleRow);
    Tick(MagnescaleRow);
    EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Hourglass, PointerShape::Default));
    panel.Shown();
    StartWatch(MagnescaleRow);
    rig.boxes.whileShown = [this] { EXPECT_EQ(rig.pointer.screen.back(), PointerShape::Default); };
    Tick(MagnescaleRow, 7);
    EXPECT_EQ(rig.pointer.screen.size(), 4U);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_F(CtlConnectionWatchTest, ARefusedMotorUnlocksItsSetButton) {
    StartWatch(MotorRow);
    EXPECT_FALSE(Button(MotorRow).Enabled());
    bool wasUnlocked = false;
    rig.boxes.whileShown = [&] { wasUnlocked = TestEnabled(MotorRow); };
    Tick(MotorRow, 7);
    EXPECT_TRUE(wasUnlocked);
    EXPECT_TRUE(Button(MotorRow).Enabled());
    EXPECT_FALSE(TestEnabled(MotorRow));
}

}  // namespace
}  // namespace travo::test
