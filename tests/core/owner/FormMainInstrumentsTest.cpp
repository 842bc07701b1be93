// The main window and what its serial links tell besides values.
#include <QLabel>
#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {
namespace {

class FormMainInstrumentsTest : public OwnerRig {
protected:
    FormMainInstrumentsTest() {
        WriteSettings("[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n");
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        EXPECT_TRUE(window_->Start());
        MirrorPort().Receive("aD2R5\r\naD1R7\r\n");
        GaugePort().Receive("A+01.234", platform::ClearToSendEvent);
        MotorPort().Receive("A Remote Drive Accessory\r");
        for (FakeTimer* const timer : timers_.created) {
            if (timer->interval == 150) {
                timer->Fire();
            }
        }
    }

    SharedState& State() { return window_->State(); }
    QString RowState(int row) {
        return PanelOf<CtlConnection>(*window_)
            .findChild<QLabel*>(QStringLiteral("lblState(%1)").arg(row))
            ->text();
    }
    QByteArray Details() const {
        QFile file(data_.filePath(QStringLiteral("Zelvo/Shared/Data/travo-details.txt")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<FormMain> window_;
};

TEST_F(FormMainInstrumentsTest, ALostGaugeLeavesNoHeightThatAnEscapePositionCouldTake) {
    ASSERT_EQ(window_->Objects().cEscape->NowCurrentZPos, 1234);
    GaugePort().Vanish();
    EXPECT_EQ(State().CurrentXYZ(2), NoPositionValue);
    EXPECT_EQ(window_->Objects().cEscape->NowCurrentZPos, NoPositionValue);
    EXPECT_EQ(State().CurrentXYZ(0), 5);
    EXPECT_TRUE(State().bMotorONOFF);
    EXPECT_EQ(RowState(1), QStringLiteral("Connection lost"));
}

TEST_F(FormMainInstrumentsTest, ALostMirrorLeavesNoViewAndTheBirdsEyeViewMarksNone) {
    ASSERT_TRUE(window_->Windows().BirdView.chkMirror());
    MirrorPort().Vanish();
    EXPECT_EQ(State().CurrentXYZ(0), NoPositionValue);
    EXPECT_EQ(State().CurrentXYZ(1), NoPositionValue);
    EXPECT_EQ(State().CurrentXYZ(2), 1234);
    EXPECT_FALSE(window_->Windows().BirdView.chkMirror());
    EXPECT_EQ(RowState(0), QStringLiteral("Connection lost"));
}

TEST_F(FormMainInstrumentsTest, ALostMotorIsNoLongerInUse) {
    ASSERT_TRUE(State().bMotorONOFF);
    MotorPort().Vanish();
    EXPECT_FALSE(State().bMotorONOFF);
    EXPECT_EQ(State().CurrentXYZ(2), 1234);
    EXPECT_EQ(RowState(2), QStringLiteral("Connection lost"));
}

TEST_F(FormMainInstrumentsTest, AFloodWithoutAnEndIsNotedOnceForEachLinkBesideTheLog) {
    const std::string piece(50000, 'x');
    for (int times = 0; times < 4; ++times) {
        MirrorPort().Receive(piece);
        MotorPort().Receive(piece);
        GaugePort().Receive(piece, platform::ClearToSendEvent);
    }
    EXPECT_EQ(Details(),
              "07-03-2008 14:05:33 - Mirror : more than 65536 bytes without an end have been dropped\r\n"
              "07-03-2008 14:05:33 - Motor : more than 65536 bytes without an end have been dropped\r\n"
              "07-03-2008 14:05:33 - Magnescale : more than 65536 bytes without an end have been "
              "dropped\r\n");
    EXPECT_EQ(ReadLog(), "07-03-2008\r\n");
    EXPECT_TRUE(boxes_.shown.empty());
}

}  // namespace
}  // namespace travo::test
