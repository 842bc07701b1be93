// What the camera is told without waiting, over a real bus.
#include <gtest/gtest.h>

#include "platform/LiveBusRig.h"
#include "platform/qt/QtLiveCamera.h"

namespace travo::test {

namespace {

using platform::LiveCameraFailure;

const QLatin1String Attach("LiveAttach");
const QLatin1String Magnification("LiveChangeMagnification");
const QLatin1String Points("LiveCalibPoints");
const QLatin1String Leave("LivePanelLeave");

// What is not answered is waited for as long as a test may take.
constexpr QtLiveCamera::Limits Endless{std::chrono::milliseconds(10000), std::chrono::hours(1),
                                       std::chrono::milliseconds(2000)};

TEST(QtLiveCameraAnnouncementsTest, AnnouncementsGoOutInTheirOrderWithoutACallBehindThem) {
    LiveBusRig stage;
    Told told;
    stage.camera.Create(told);
    stage.camera.Announce(Leave);
    stage.camera.Announce(Points);
    stage.camera.Announce(Leave);
    const QString calls = stage.bus.File(QStringLiteral("calls"));
    EXPECT_TRUE(ServeUntil([&] { return ReadText(calls).count(QLatin1Char('\n')) >= 3; }));
    EXPECT_EQ(stage.Calls(), (Texts{"LivePanelLeave", "LiveCalibPoints", "LivePanelLeave"}));
    EXPECT_EQ(told.texts, Texts{});
}

TEST(QtLiveCameraAnnouncementsTest, ACallGoesOutBehindAllAnnouncementsAndItsTimeBeginsThen) {
    LiveBusRig stage(Hasty);
    Told told;
    stage.camera.Create(told);
    stage.Play("slow");
    stage.camera.Announce(Leave);
    stage.camera.Announce(Magnification, 1);
    stage.camera.Announce(Points);
    stage.camera.Announce(Magnification, 3);
    EXPECT_NO_THROW(stage.camera.Call(Attach)) << "all four together take longer than the limit of one";
    EXPECT_EQ(stage.Calls(),
              (Texts{"LivePanelLeave", "LiveChangeMagnification 3 n", "LiveCalibPoints", "LiveAttach"}));
    stage.Work(QStringLiteral("WindowHide"));
    EXPECT_TRUE(told.Wait({"WindowHide"})) << "answers that were waited for are told to nobody again";
}

TEST(QtLiveCameraAnnouncementsTest, AnAnnouncementThatIsNotAnsweredIsTheLastOneAndALoss) {
    LiveBusRig stage(Hasty);
    Told told;
    stage.camera.Create(told);
    stage.Play("hangs");
    stage.camera.Announce(Leave);
    stage.camera.Announce(Points);
    EXPECT_EQ(told.texts, Texts{}) << "it is not waited for";
    EXPECT_TRUE(told.Wait({"Lost"}));
    stage.camera.Announce(Points);
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    EXPECT_EQ(stage.Calls(), Texts{"LivePanelLeave"});
}

TEST(QtLiveCameraAnnouncementsTest, ACallBehindAnAnnouncementThatIsNotAnsweredFailsAndIsNotMade) {
    LiveBusRig stage(Hasty);
    Told told;
    stage.camera.Create(told);
    stage.Play("hangs");
    stage.camera.Announce(Leave);
    stage.camera.Announce(Points);
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    EXPECT_EQ(stage.Calls(), Texts{"LivePanelLeave"});
}

TEST(QtLiveCameraAnnouncementsTest, MoreThanSixtyFourWaitingAnnouncementsAreALossThatTheEventLoopTells) {
    LiveBusRig stage(Endless);
    Told told;
    stage.camera.Create(told);
    stage.Play("hangs");
    for (int count = 0; count < 65; ++count) {
        stage.camera.Announce(Leave);
    }
    stage.Work(QStringLiteral("BirdViewSave"));
    EXPECT_TRUE(told.Wait({"BirdViewSave"})) << "one in flight and 64 behind it are no loss";
    stage.camera.Announce(Leave);
    EXPECT_EQ(told.texts.size(), 1U) << "not from within the call";
    EXPECT_THROW(stage.camera.Call(Attach), LiveCameraFailure);
    EXPECT_TRUE(told.Wait({"BirdViewSave", "Lost"}));
    EXPECT_EQ(stage.Calls(), Texts{"LivePanelLeave"});
}

TEST(QtLiveCameraAnnouncementsTest, ACreationEmptiesWhatWaitsAndALateAnswerToItIsNothing) {
    LiveBusRig stage(Endless);
    Told told;
    stage.camera.Create(told);
    stage.Play("late");
    stage.camera.Announce(Leave);
    stage.camera.Announce(Points);
    stage.camera.Create(told);
    stage.camera.Announce(Magnification, 2);
    stage.camera.Call(Attach);
    EXPECT_EQ(stage.Calls(), (Texts{"LivePanelLeave", "LiveChangeMagnification 2 n", "LiveAttach"}));
    EXPECT_EQ(told.texts, Texts{});
}

TEST(QtLiveCameraAnnouncementsTest, ALossThatIsOnItsWayIsNotToldOfTheNextObject) {
    LiveBusRig stage(Endless);
    Told told;
    stage.camera.Create(told);
    stage.Play("hangs");
    for (int count = 0; count < 66; ++count) {
        stage.camera.Announce(Leave);
    }
    stage.Play("");
    stage.camera.Create(told);
    stage.Work(QStringLiteral("WindowHide"));
    EXPECT_TRUE(told.Wait({"WindowHide"}));
}

TEST(QtLiveCameraAnnouncementsTest, AProgramThatClosesOwesNoAnswerAnyMore) {
    LiveBusRig stage(Hasty);
    stage.Play("stays");
    Told told;
    stage.camera.Create(told);
    stage.Play("hangs");
    stage.camera.Announce(Leave);
    stage.Work(QStringLiteral("WindowClose"));
    EXPECT_TRUE(told.Wait({"WindowClose"}));
    // The limit of another one's announcement, which began later, is over later.
    QtLiveCamera other(Hasty);
    Told otherTold;
    other.Create(otherTold);
    other.Announce(Leave);
    EXPECT_TRUE(otherTold.Wait({"Lost"}));
    EXPECT_EQ(told.texts, Texts{"WindowClose"});
}

}  // namespace

}  // namespace travo::test
