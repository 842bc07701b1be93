// The ports of the serial instruments without a panel: what is done and told, in which order.
#include "devices/view/PortWatch.h"

#include <gmock/gmock.h>

#include <optional>

#include "support/PanelRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string NameOf(Instrument instrument) {
    return std::array{"Mirror", "Magnescale", "Motor"}[static_cast<std::size_t>(instrument)];
}

class PortWatchRunTest : public ::testing::Test, private PortWatch::Listener {
protected:
    PortWatchRunTest() {
        rig.instruments.lostPorts = [this](Instrument instrument) { watch.Lost(instrument); };
        rig.journal.clear();
    }

    void Tick(Instrument instrument, int times = 1) {
        for (int tick = 0; tick < times; ++tick) {
            Timer(instrument).Fire();
        }
    }
    FakeTimer& Timer(Instrument instrument) {
        return *rig.timers.created.at(static_cast<std::size_t>(instrument));
    }
    FakeSerialPort& Port(Instrument instrument) {
        return instrument == Instrument::Mirror       ? rig.MirrorPort()
               : instrument == Instrument::Magnescale ? rig.GaugePort()
                                                      : rig.MotorPort();
    }
    // What the watch looks for, without the line that brings it.
    void Answer(Instrument instrument) {
        switch (instrument) {
            case Instrument::Mirror:
                rig.state.CurrentXYZ(0, 5);
                return rig.state.CurrentXYZ(1, 7);
            case Instrument::Magnescale:
                return rig.state.CurrentXYZ(2, 1234);
            case Instrument::Motor:
                rig.state.bMotorONOFF = true;
        }
    }
    bool IsForgotten(Instrument instrument) {
        return instrument == Instrument::Mirror
                   ? rig.state.CurrentXYZ(0) == NoPositionValue && rig.state.CurrentXYZ(1) == NoPositionValue
               : instrument == Instrument::Magnescale ? rig.state.CurrentXYZ(2) == NoPositionValue
                                                      : !rig.state.bMotorONOFF;
    }
    // Opens port 4 and forgets how.
    void Watch(Instrument instrument) {
        watch.Open(instrument);
        Port(instrument).TakeOutput();
        rig.journal.clear();
        rig.pointer.screen.clear();
    }
    QString Stored(Instrument instrument) {
        return rig.ini.GetString(QStringLiteral("COMPort"), QString::fromStdString(NameOf(instrument)),
                                 QStringLiteral("none"));
    }
    // What the journal holds of boxes and of what was told, without the wires.
    Journal Told() const {
        Journal told;
        for (const std::string& entry : rig.journal) {
            if (!entry.starts_with("port ") && !entry.starts_with("ControlONOFF")) {
                told.push_back(entry);
            }
        }
        return told;
    }

    PanelRig rig;
    std::optional<std::int32_t> chosen = 4;
    PortWatch watch{{rig.state, rig.communication, rig.ini, rig.failures, rig.pointer, rig.timers}, *this};

private:
    std::int32_t ChosenPort(Instrument) const override {
        return chosen ? *chosen : throw std::runtime_error("no number");
    }
    void PortStateChanged(Instrument instrument, PortState state) override {
        const auto word =
            std::array{
                "at rest", "watching", "connected", "refused", "lost", "not opened"}[static_cast<std::size_t>(
                state)];
        rig.journal.push_back(NameOf(instrument) + " " + word);
    }
    void TestAllowed(Instrument instrument, bool isAllowed) override {
        rig.journal.push_back(NameOf(instrument) + (isAllowed ? " test on" : " test off"));
    }
    void MotorUnlocked() override { rig.journal.push_back("Motor unlocked"); }
    void MirrorAnswers(bool doesAnswer) override {
        rig.journal.push_back(doesAnswer ? "mirror answers" : "mirror does not answer");
    }
};

class EachWatchedPortTest : public PortWatchRunTest, public ::testing::WithParamInterface<Instrument> {};
INSTANTIATE_TEST_SUITE_P(All, EachWatchedPortTest,
                         ::testing::Values(Instrument::Mirror, Instrument::Magnescale, Instrument::Motor),
                         [](const auto& each) { return NameOf(each.param); });

TEST_P(EachWatchedPortTest, IsForgottenOpenedByTheChosenNumberAndWatchedAtItsPeriod) {
    Answer(GetParam());
    watch.Open(GetParam());
    EXPECT_TRUE(IsForgotten(GetParam()));
    EXPECT_TRUE(watch.IsOpen(GetParam()));
    EXPECT_EQ(Port(GetParam()).commPort, 4);
    EXPECT_TRUE(Timer(GetParam()).enabled);
    EXPECT_EQ(Timer(GetParam()).interval, 150);
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " watching"));
}

TEST_P(EachWatchedPortTest, ANumberBelowZeroClosesItAndAWatchThatRunsCountsFromNothingAgain) {
    Watch(GetParam());
    Tick(GetParam(), 5);
    rig.journal.clear();
    chosen = -1;
    watch.Open(GetParam());
    EXPECT_FALSE(watch.IsOpen(GetParam()));
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " at rest"));
    Tick(GetParam(), 6);
    EXPECT_TRUE(Timer(GetParam()).enabled);
}

TEST_P(EachWatchedPortTest, IsTakenBackBeforeTheBoxWhereItsNumberCannotBeHad) {
    Watch(GetParam());
    chosen.reset();
    bool wasOpen = true;
    bool wasWatched = true;
    rig.boxes.whileShown = [&] {
        wasOpen = watch.IsOpen(GetParam());
        wasWatched = Timer(GetParam()).enabled;
    };
    Answer(GetParam());
    watch.Open(GetParam());
    EXPECT_FALSE(wasOpen);
    EXPECT_FALSE(wasWatched);
    EXPECT_TRUE(IsForgotten(GetParam()));
    const std::string name = NameOf(GetParam());
    const std::string box = "box " + name + " : Connection failed";
    EXPECT_THAT(Told(), GetParam() == Instrument::Motor
                            ? Journal({name + " not opened", "Motor unlocked", box})
                            : Journal({name + " not opened", box}));
    EXPECT_TRUE(rig.Log().contains(name + " : Connection failed"));
}

TEST_P(EachWatchedPortTest, IsStoppedWithoutAVerdictAndSaysSoOnlyIfItWasWatched) {
    watch.Stop(GetParam());
    EXPECT_THAT(Told(), IsEmpty());
    Watch(GetParam());
    watch.Stop(GetParam());
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " at rest"));
    EXPECT_FALSE(Timer(GetParam()).enabled);
    EXPECT_TRUE(watch.IsOpen(GetParam()));
    EXPECT_EQ(Stored(GetParam()), QStringLiteral("none"));
}

TEST_P(EachWatchedPortTest, ThatWasOpenedElsewhereIsWatchedAndAClosedOneIsSaidNotToOpen) {
    watch.Start(GetParam());
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " not opened"));
    EXPECT_TRUE(Timer(GetParam()).enabled);
    rig.OpenPorts();
    watch.Start(GetParam());
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " watching"));
}

TEST_P(EachWatchedPortTest, IsRefusedAtTheTickBehindSixAndCountsThatTickForTheNextWatch) {
    Watch(GetParam());
    Tick(GetParam(), 6);
    EXPECT_TRUE(Timer(GetParam()).enabled);
    Tick(GetParam());
    EXPECT_FALSE(Timer(GetParam()).enabled);
    EXPECT_EQ(Stored(GetParam()), QStringLiteral("-1"));
    Watch(GetParam());
    Tick(GetParam(), 5);
    EXPECT_TRUE(Timer(GetParam()).enabled);
    Tick(GetParam());
    EXPECT_FALSE(Timer(GetParam()).enabled);
}

TEST_P(EachWatchedPortTest, ThatIsLostKeepsItsWatchUpToAVerdictThatSaysLostAgain) {
    Watch(GetParam());
    Answer(GetParam());
    Port(GetParam()).Vanish();
    EXPECT_TRUE(IsForgotten(GetParam()));
    rig.journal.clear();
    Tick(GetParam(), 7);
    EXPECT_EQ(Told().front(), NameOf(GetParam()) + " lost");
    EXPECT_EQ(rig.boxes.Texts().size(), 1);
}

TEST_P(EachWatchedPortTest, IsTakenStockOfByItsOwnPortAlone) {
    watch.Open(GetParam());
    for (const Instrument each : {Instrument::Mirror, Instrument::Magnescale, Instrument::Motor}) {
        Answer(each);
    }
    rig.journal.clear();
    watch.TakeStock();
    EXPECT_THAT(Told(), ElementsAre(NameOf(GetParam()) + " at rest", NameOf(GetParam()) + " test on"));
    for (const Instrument each : {Instrument::Mirror, Instrument::Magnescale, Instrument::Motor}) {
        EXPECT_EQ(IsForgotten(each), each != GetParam());
    }
}

TEST_F(PortWatchRunTest, AMirrorThatAnswersIsStoredTestedAndMadeKnownBeforeItsErgoZIsSwitchedOff) {
    Watch(Instrument::Mirror);
    Answer(Instrument::Mirror);
    rig.journal.clear();
    Tick(Instrument::Mirror);
    EXPECT_THAT(rig.journal,
                ElementsAre("Mirror connected", "Mirror test on", "mirror answers", "port 4 > cZEN0\r"));
    EXPECT_EQ(Stored(Instrument::Mirror), QStringLiteral("4"));
}

TEST_F(PortWatchRunTest, AGaugeThatAnswersHasItsKeysLockedFirstAndIsAskedOnceMore) {
    watch.Open(Instrument::Magnescale);
    EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Hourglass));
    Answer(Instrument::Magnescale);
    rig.journal.clear();
    Tick(Instrument::Magnescale);
    EXPECT_THAT(rig.journal, ElementsAre("port 4 > KEYOFF\r\n", "Magnescale connected", "Magnescale test on",
                                         "port 4 > Ar\r\n"));
    EXPECT_EQ(rig.pointer.screen.back(), PointerShape::Default);
    EXPECT_EQ(Stored(Instrument::Magnescale), QStringLiteral("4"));
}

TEST_F(PortWatchRunTest, AMotorThatAnswersIsStoredAndMayBeTested) {
    Watch(Instrument::Motor);
    Answer(Instrument::Motor);
    Tick(Instrument::Motor);
    EXPECT_THAT(rig.journal, ElementsAre("Motor connected", "Motor test on"));
    EXPECT_EQ(Stored(Instrument::Motor), QStringLiteral("4"));
}

TEST_F(PortWatchRunTest, ASilentMirrorIsClosedAndLosesItsTestAndItsViewBehindTheBox) {
    Watch(Instrument::Mirror);
    Tick(Instrument::Mirror, 7);
    EXPECT_THAT(rig.journal,
                ElementsAre("Mirror refused", "port 4 close", "box Error : Mirror : Communication connection",
                            "Mirror test off", "mirror does not answer"));
}

TEST_F(PortWatchRunTest, ASilentGaugeIsClosedAndTheHourglassGoesBeforeTheBox) {
    Watch(Instrument::Magnescale);
    Tick(Instrument::Magnescale, 6);
    rig.journal.clear();
    rig.boxes.whileShown = [this] {
        EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Default));
        EXPECT_EQ(Stored(Instrument::Magnescale), QStringLiteral("-1"));
    };
    Tick(Instrument::Magnescale);
    EXPECT_THAT(rig.journal,
                ElementsAre("Magnescale refused", "port 4 close",
                            "box Error : Magnescale : Communication connection", "Magnescale test off"));
}

TEST_F(PortWatchRunTest, ASilentMotorIsUnlockedBeforeTheBoxAndLosesItsTestBehindIt) {
    Watch(Instrument::Motor);
    Tick(Instrument::Motor, 7);
    EXPECT_THAT(rig.journal, ElementsAre("Motor refused", "port 4 close", "Motor unlocked",
                                         "box Error : Motor : Communication connection", "Motor test off"));
}

TEST_F(PortWatchRunTest, AMirrorOfOneAxisIsEnoughUpToTheSixthTickAndTooLittleAtTheSeventh) {
    Watch(Instrument::Mirror);
    Tick(Instrument::Mirror, 5);
    rig.state.CurrentXYZ(1, 7);
    Tick(Instrument::Mirror);
    EXPECT_EQ(Stored(Instrument::Mirror), QStringLiteral("4"));
    watch.TakeStock();
    Watch(Instrument::Mirror);
    Tick(Instrument::Mirror, 6);
    rig.state.CurrentXYZ(1, 7);
    Tick(Instrument::Mirror);
    EXPECT_EQ(Stored(Instrument::Mirror), QStringLiteral("-1"));
}

TEST_F(PortWatchRunTest, LossIsToldWithWhatGoesWithIt) {
    rig.OpenPorts();
    rig.MirrorPort().Vanish();
    rig.GaugePort().Vanish();
    rig.MotorPort().Vanish();
    EXPECT_THAT(Told(), ElementsAre("PortLost 0", "Mirror lost", "Mirror test off", "mirror does not answer",
                                    "PortLost 1", "Magnescale lost", "Magnescale test off", "PortLost 2",
                                    "Motor lost", "Motor unlocked", "Motor test off"));
}

TEST_F(PortWatchRunTest, StoppingAllTakesTheHourglassDownOnlyWhereTheGaugeIsWatched) {
    Watch(Instrument::Mirror);
    watch.StopAll();
    EXPECT_THAT(rig.pointer.screen, IsEmpty());
    Watch(Instrument::Magnescale);
    watch.StopAll();
    EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Default));
    EXPECT_FALSE(Timer(Instrument::Magnescale).enabled);
}

}  // namespace
}  // namespace travo::test
