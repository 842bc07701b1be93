// Each piece of news, from where it comes in to what the operator sees of it: one test for each listener,
// through the running main window. The orders of the listeners are in AnnouncementsTest.
#include <QImage>
#include <QLabel>

#include "core/owner/FormMainRig.h"

namespace travo::test {

namespace {

class FormMainNewsTest : public FormMainRig {
protected:
    // The markers of the bird's-eye view are pictures.
    FormMainNewsTest() {
        QFile::link(QStringLiteral(SKIN_HOME "/skin"), program_.filePath(QStringLiteral("skin")));
    }

    // What a label reads, by its name for people.
    static QString Text(const QWidget& place, const QString& name) {
        for (const auto* const label : place.findChildren<QLabel*>()) {
            if (label->accessibleDescription() == name) {
                return label->text();
            }
        }
        return QStringLiteral("no label ") + name;
    }
    QString Row(const QString& name) { return Text(Panel(Connection), name); }
    void FireTimers(int interval) {
        for (FakeTimer* const timer : timers_.created) {
            if (timer->interval == interval) {
                timer->Fire();
            }
        }
    }
    void MirrorAnswers() {
        MirrorPort().Receive("aD2R5\r\naD1R7\r\n");
        FireTimers(150);
    }
    void LoseTheNeedles() {
        driver_.position.fill({-1, 0, 0});
        boxes_.answers = {platform::BoxAnswer::Cancel};
        for (int tick = 0; tick < 11; ++tick) {
            Tick();
        }
    }
    void OpenCamera() {
        Open(User);
        Click(Button(User, QStringLiteral("Camera window")));
        ASSERT_TRUE(Button(User, QStringLiteral("Camera window")).isChecked());
        Open(Connection);
        ASSERT_EQ(Row(QStringLiteral("Live camera state")), QStringLiteral("Connected"));
    }
    // All that the bird's-eye view shows while its markers blink, each picture once. The view stays.
    std::vector<QImage> Pictures() {
        std::vector<QImage> pictures;
        for (int composition = 0; composition < 3; ++composition) {
            window_->State().CurrentXY(20, 20);
            const QImage picture =
                window_->Windows().BirdView.findChild<QWidget*>(QStringLiteral("picBird"))->grab().toImage();
            if (std::find(pictures.begin(), pictures.end(), picture) == pictures.end()) {
                pictures.push_back(picture);
            }
        }
        return pictures;
    }
    static std::ptrdiff_t CountOfCommon(const std::vector<QImage>& some, const std::vector<QImage>& others) {
        return std::count_if(some.begin(), some.end(), [&](const QImage& picture) {
            return std::find(others.begin(), others.end(), picture) != others.end();
        });
    }
};

// The magnification; pad and buttons of the mirror windows are in FormMainWindowsTest, the camera in
// FormMainTest.

TEST_F(FormMainNewsTest, AReportOfTheMagnificationChangesTheMarkOfTheViewInTheBirdsEyeView) {
    MirrorAnswers();
    const std::vector<QImage> at2x = Pictures();
    MirrorPort().Receive("aMGR3\r\n");
    EXPECT_EQ(CountOfCommon(Pictures(), at2x), 0);
    MirrorPort().Receive("aMGR2\r\n");
    EXPECT_EQ(CountOfCommon(Pictures(), at2x), static_cast<std::ptrdiff_t>(at2x.size()));
}

TEST_F(FormMainNewsTest, AReportOfTheMagnificationLocksAndFreesTheViewOnTheExperimentPanel) {
    EXPECT_TRUE(Button(Experiment, QStringLiteral("View")).isEnabled());
    MirrorPort().Receive("aMGR1\r\n");
    EXPECT_FALSE(Button(Experiment, QStringLiteral("View")).isEnabled());
    MirrorPort().Receive("aMGR2\r\n");
    EXPECT_TRUE(Button(Experiment, QStringLiteral("View")).isEnabled());
}

TEST_F(FormMainNewsTest, AReportOfTheMagnificationStartsAndEndsTheWarningOnTheCalibrationPanel) {
    Open(Calibration);
    const auto& warning = *Panel(Calibration).findChild<QWidget*>(QStringLiteral("lblWaring"));
    FireTimers(CtlCalibration::BlinkPeriod);
    EXPECT_FALSE(warning.isVisible());
    MirrorPort().Receive("aMGR3\r\n");
    FireTimers(CtlCalibration::BlinkPeriod);
    EXPECT_TRUE(warning.isVisible());
    MirrorPort().Receive("aMGR2\r\n");
    EXPECT_FALSE(warning.isVisible());
}

// The number of manipulators; the experiment panel and the window of needles are in FormMainNeedlesTest.

TEST_F(FormMainNewsTest, TheStartAndALossOfTheManipulatorsReachTheirRowOfTheConnectionPanel) {
    EXPECT_EQ(Row(QStringLiteral("Manipulator state")), QStringLiteral("Connected"));
    LoseTheNeedles();
    EXPECT_EQ(Row(QStringLiteral("Manipulator state")), QStringLiteral("Not connected"));
}

TEST_F(FormMainNewsTest, ALossOfTheManipulatorsLocksTheCalibrationPanelThatIsOnShow) {
    Open(Calibration);
    ASSERT_TRUE(Button(Calibration, QStringLiteral("Needle 1")).isEnabled());
    LoseTheNeedles();
    EXPECT_FALSE(Button(Calibration, QStringLiteral("Needle 1")).isEnabled());
    EXPECT_FALSE(Button(Calibration, QStringLiteral("Full calibration")).isEnabled());
}

TEST_F(FormMainNewsTest, TheStartShowsTheConnectedNeedlesInTheirWindowAndOnTheExperimentPanel) {
    const QWidget& needles = window_->Windows().ManiInfo;
    EXPECT_FALSE(needles.findChild<QWidget*>(QStringLiteral("Image2(3)"))->isHidden());
    EXPECT_TRUE(Button(Experiment, QStringLiteral("Needle 4")).isEnabled());
}

// The needle that the hardware has.

TEST_F(FormMainNewsTest, ANeedleSelectedAtTheHardwareIsLitOnTheCalibrationPanel) {
    driver_.selected = 3;
    Tick();
    EXPECT_TRUE(Button(Calibration, QStringLiteral("Needle 3")).isChecked());
    EXPECT_FALSE(Button(Calibration, QStringLiteral("Needle 1")).isChecked());
}

TEST_F(FormMainNewsTest, ANeedleSelectedAtTheHardwareIsLitOnTheExperimentPanel) {
    driver_.selected = 3;
    Tick();
    EXPECT_TRUE(Button(Experiment, QStringLiteral("Needle 3")).isChecked());
    EXPECT_FALSE(Panel(Experiment).findChild<QWidget*>(QStringLiteral("imgMManiNo(2)"))->isHidden());
}

// The zero point: what is stored follows it.

TEST_F(FormMainNewsTest, AStoredCellFollowsTheZeroPoint) {
    MirrorAnswers();
    Gauge("A+00.700\r\n");
    Open(CellPosition);
    Click(Button(CellPosition, QStringLiteral("Set row 1")));
    ASSERT_EQ(Text(Panel(CellPosition), QStringLiteral("Cell A Z")), QStringLiteral("700"));
    Gauge("A+00.500\r\n");
    Click(Button(CellPosition, QStringLiteral("Reset zero point")));
    EXPECT_EQ(Text(Panel(CellPosition), QStringLiteral("Cell A Z")), QStringLiteral("200"));
    EXPECT_EQ(window_->State().CellPosition(0, 2), 200);
}

TEST_F(FormMainNewsTest, AStoredEscapeHeightFollowsTheZeroPoint) {
    Gauge("A+00.700\r\n");
    Open(Escape);
    Click(Button(Escape, QStringLiteral("Set objective")));
    ASSERT_EQ(Text(Panel(Escape), QStringLiteral("Objective Z")), QStringLiteral("700"));
    Open(CellPosition);
    Gauge("A+00.500\r\n");
    Click(Button(CellPosition, QStringLiteral("Reset zero point")));
    EXPECT_EQ(Text(Panel(Escape), QStringLiteral("Objective Z")), QStringLiteral("200"));
}

// The tick.

TEST_F(FormMainNewsTest, TheLitNeedleFollowsTheViewAtTheNextTickInTheSynchronisedMode) {
    MirrorAnswers();
    Gauge("A+00.700\r\n");
    Open(User);
    Click(Button(User, QStringLiteral("Contact check off")));
    Open(Experiment);
    driver_.position[0] = {10000, 22000, 5000};
    Tick();
    Click(Button(Experiment, QStringLiteral("Synchro")));
    Tick();
    EXPECT_TRUE(driver_.moves.empty());
    MirrorPort().Receive("aD2R25\r\naD1R27\r\n");
    EXPECT_TRUE(driver_.moves.empty());
    Tick();
    EXPECT_EQ(driver_.moves.size(), 1U);
}

// The motors; those of the mirror windows are in FormMainWindowsTest.

TEST_F(FormMainNewsTest, AReportOfTheMirrorsMotorsLocksAndFreesTheCellsOnTheExperimentPanel) {
    MirrorAnswers();
    Open(CellPosition);
    Click(Button(CellPosition, QStringLiteral("Set row 1")));
    Open(Experiment);
    ASSERT_TRUE(Button(Experiment, QStringLiteral("Cell A")).isEnabled());
    MirrorPort().Receive("aPMR0\r\n");
    EXPECT_FALSE(Button(Experiment, QStringLiteral("Cell A")).isEnabled());
    MirrorPort().Receive("aPMR1\r\n");
    EXPECT_TRUE(Button(Experiment, QStringLiteral("Cell A")).isEnabled());
}

TEST_F(FormMainNewsTest, ACommandLocksTheFocusMotorsButtonsOnTheConnectionPanelAndItsAnswerFreesThem) {
    MotorPort().Receive("A Remote Drive Accessory\r");
    FireTimers(150);
    Open(Connection);
    Click(Button(Connection, QStringLiteral("Test motor")));
    EXPECT_FALSE(Button(Connection, QStringLiteral("Connect motor")).isEnabled());
    EXPECT_FALSE(Button(Connection, QStringLiteral("Test motor")).isEnabled());
    MotorPort().Receive("A\r");
    EXPECT_TRUE(Button(Connection, QStringLiteral("Connect motor")).isEnabled());
    EXPECT_TRUE(Button(Connection, QStringLiteral("Test motor")).isEnabled());
}

// The camera; its still and its death are in FormMainCameraTest.

TEST_F(FormMainNewsTest, ACameraThatIsHiddenFromItsSideRaisesItsButtonAndIsAskedToHide) {
    OpenCamera();
    journal_.clear();
    liveCamera_.TellWindowHide();
    EXPECT_FALSE(Button(User, QStringLiteral("Camera window")).isChecked());
    EXPECT_EQ(journal_, Journal{"LiveHideWindow"});
    EXPECT_EQ(Row(QStringLiteral("Live camera state")), QStringLiteral("Connected")) << "it is there";
}

TEST_F(FormMainNewsTest, ACameraThatIsClosedRaisesItsButtonAndItsRowOfTheConnectionPanelSaysSo) {
    OpenCamera();
    liveCamera_.TellWindowClose();
    EXPECT_FALSE(Button(User, QStringLiteral("Camera window")).isChecked());
    EXPECT_EQ(Row(QStringLiteral("Live camera state")), QStringLiteral("Not connected"));
}

TEST_F(FormMainNewsTest, ACameraThatDiesRaisesItsButtonAndItsRowOfTheConnectionPanelSaysSo) {
    OpenCamera();
    liveCamera_.TellLost();
    EXPECT_FALSE(Button(User, QStringLiteral("Camera window")).isChecked());
    EXPECT_EQ(Row(QStringLiteral("Live camera state")), QStringLiteral("Not connected"));
}

// The times of the calibrations.

TEST_F(FormMainNewsTest, TheTimesOfTheLastRunAndThoseOfThePanelReachTheWindowOfNeedles) {
    const QWidget& needles = window_->Windows().ManiInfo;
    EXPECT_EQ(Text(needles, QStringLiteral("Needle 1 calibration time")),
              QStringLiteral("26/11/21    09:30"));
    Open(Calibration);
    Click(Button(Calibration, QStringLiteral("Reset")));
    EXPECT_EQ(Text(needles, QStringLiteral("Needle 1 calibration time")), QString());
    EXPECT_EQ(Text(needles, QStringLiteral("Needle 2 calibration time")),
              QStringLiteral("26/11/21    09:30"));
}

TEST_F(FormMainNewsTest, AReCalibrationOfTheLastRunIsShownBesideTheCalibration) {
    window_.reset();
    WriteSettings(CalibrationText(1).replace("ReTime=-1", "ReTime=26/11/22    10:15"));
    window_ = std::make_unique<FormMain>(Seams());
    ASSERT_TRUE(window_->Start());
    const QWidget& needles = window_->Windows().ManiInfo;
    EXPECT_EQ(Text(needles, QStringLiteral("Needle 2 calibration time")),
              QStringLiteral("26/11/21    09:30"));
    EXPECT_EQ(Text(needles, QStringLiteral("Needle 2 re-calibration time")),
              QStringLiteral("26/11/22    10:15"));
}

// What the start tells panels.

TEST_F(FormMainNewsTest, TheStoredPortNumbersStandInTheirBoxes) {
    const QWidget& panel = Panel(Connection);
    QStringList numbers;
    for (int box = 0; box < 3; ++box) {
        numbers << panel.findChild<NumberBox*>(QStringLiteral("txtNo(%1)").arg(box))->text();
    }
    EXPECT_EQ(numbers, (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

// No needle blinks beside the cells.
class FormMainCellsTest : public FormMainNewsTest {
protected:
    FormMainCellsTest() { driver_.count = 0; }
};

TEST_F(FormMainCellsTest, TheCellThatIsChosenOnTheExperimentPanelBlinksInTheBirdsEyeView) {
    MirrorAnswers();
    Open(CellPosition);
    Click(Button(CellPosition, QStringLiteral("Set row 1")));
    MirrorPort().Receive("aD2R105\r\naD1R107\r\n");
    Click(Button(CellPosition, QStringLiteral("Set row 2")));
    Open(Experiment);
    const std::vector<QImage> first = Pictures();
    EXPECT_EQ(first.size(), 2U);
    Click(Button(Experiment, QStringLiteral("Cell B")));
    const std::vector<QImage> second = Pictures();
    EXPECT_EQ(second.size(), 2U);
    EXPECT_EQ(CountOfCommon(second, first), 1) << "with both of them";
}

}  // namespace

}  // namespace travo::test
