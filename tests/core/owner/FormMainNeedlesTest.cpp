// Needles that come, go, and are not the ones that are lit, as the operator meets them in the whole window.
#include <gmock/gmock.h>

#include <QTest>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

class FormMainNeedlesTest : public OwnerRig {
protected:
    FormMainNeedlesTest() {
        driver_.position.fill({1000, 1000, 1000});
        // All straight and in one place: the contact check would refuse every move.
        QByteArray settings("[COMPort]\r\nMirror=1\r\n[User_Value]\r\nContactOFF=1\r\n");
        for (int needle = 0; needle < NeedleCount; ++needle) {
            settings += CalibrationText(needle);
        }
        WriteSettings(settings);
    }

    bool Start() {
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        return window_->Start();
    }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            timers_.created.at(0)->Fire();
        }
    }
    template <typename Control>
    Control& On(const QWidget& panel, const char* name) {
        return *panel.findChild<Control*>(QString::fromLatin1(name));
    }
    usrKVCheckButton& Needle(int index) {
        return *PanelOf<CtlExperiment2>(*window_).findChild<usrKVCheckButton*>(
            QStringLiteral("usrKVCheckButton1(%1)").arg(index));
    }
    usrKVCheckButton& Synchro() {
        return On<usrKVCheckButton>(PanelOf<CtlExperiment2>(*window_), "usrKVCheckButton3(0)");
    }
    usrKVButton& Move() { return On<usrKVButton>(PanelOf<CtlExperiment2>(*window_), "usrKVButton1"); }
    usrKVButton& NeedleEscape() {
        return On<usrKVButton>(PanelOf<CtlExperiment2>(*window_), "usrKVButton2(1)");
    }
    bool Lit(int lamp) {
        return !PanelOf<CtlExperiment2>(*window_)
                    .findChild<QWidget*>(QStringLiteral("imgMManiNo(%1)").arg(lamp))
                    ->isHidden();
    }
    std::string EnabledNeedles() {
        std::string enabled;
        for (int index = 0; index < NeedleCount; ++index) {
            enabled += Needle(index).Enabled() ? static_cast<char>('1' + index) : '-';
        }
        return enabled;
    }
    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    void Tab(int picture) { Click(*window_->findChild<QWidget*>(QStringLiteral("imgTab(%1)").arg(picture))); }
    void Magnification(std::int16_t magnification) { window_->State().CurrentMagnification(magnification); }
    // A cell at the place where the view stands, pressed in and stored.
    void StoreCellA() {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            window_->State().CellPosition(0, axis, 0);
        }
    }
    // Ten reads fail, and the tick after them asks.
    void LoseTheNeedles(platform::BoxAnswer answer) {
        for (auto& position : driver_.position) {
            position = {-1, 0, 0};
        }
        boxes_.answers = {answer};
        Tick(11);
    }

    std::unique_ptr<FormMain> window_;
};

TEST_F(FormMainNeedlesTest, WithFiveManipulatorsTheProgramStartsAndRunsOnWithTheFourButtonsThatThereAre) {
    driver_.count = 5;
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->State().intTotalManipulatorNumber, 4);
    EXPECT_EQ(EnabledNeedles(), "1234");
    Tick(12);
    EXPECT_TRUE(Lit(0));
    for (const int picture : {7, 8, 15, 10, 11, 12}) {
        Tab(picture);
        Tick();
    }
    for (int needle = 0; needle < NeedleCount; ++needle) {
        EXPECT_FALSE(window_->Windows()
                         .ManiInfo.findChild<QWidget*>(QStringLiteral("Image2(%1)").arg(needle))
                         ->isHidden());
    }
    StoreCellA();
    Click(Move());
    EXPECT_EQ(driver_.moves.size(), 1U);
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(FormMainNeedlesTest, AReconnectionThatFailsShowsTheNeedlesAsTheyAre) {
    ASSERT_TRUE(Start());
    Tick();
    driver_.failing = {"DriverReconnect"};
    LoseTheNeedles(platform::BoxAnswer::OK);
    EXPECT_EQ(EnabledNeedles(), "----");
    EXPECT_TRUE(Lit(4)) << "the view is what moves";
    EXPECT_FALSE(NeedleEscape().Enabled());
    for (int needle = 0; needle < NeedleCount; ++needle) {
        EXPECT_TRUE(window_->Windows()
                        .ManiInfo.findChild<QWidget*>(QStringLiteral("Image2(%1)").arg(needle))
                        ->isHidden());
    }
    EXPECT_EQ(window_->State().intTotalManipulatorNumber, -1);
}

TEST_F(FormMainNeedlesTest, NeedlesThatAreLostInTheSynchronisedModeLeaveMoveOfTheViewAfterCancel) {
    ASSERT_TRUE(Start());
    Magnification(2);
    Tick();
    Click(Synchro());
    ASSERT_FALSE(Move().Enabled());
    // The view does not move meanwhile, and the gauge is there: no step refuses.
    window_->State().CurrentXYZ(2, 300);
    Tick();
    ASSERT_FALSE(Move().Enabled());
    LoseTheNeedles(platform::BoxAnswer::Cancel);
    EXPECT_TRUE(Lit(4));
    EXPECT_TRUE(Move().Enabled());
    EXPECT_FALSE(Synchro().Value());
    EXPECT_FALSE(Synchro().Enabled());
}

TEST_F(FormMainNeedlesTest, ANeedleEscapeBetweenAReconnectionAndTheNextReadIsToldByItsOwnText) {
    ASSERT_TRUE(Start());
    Tick();
    LoseTheNeedles(platform::BoxAnswer::OK);
    driver_.position.fill({1000, 1000, 1000});
    boxes_.shown.clear();
    ASSERT_EQ(window_->State().intManipulatorNumber, -1);
    ASSERT_TRUE(NeedleEscape().Enabled());
    Click(NeedleEscape());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Escape : Communication failed")});
    EXPECT_TRUE(driver_.moves.empty());
}

TEST_F(FormMainNeedlesTest, ClickingAheadMovesTheNeedleThatIsLitByItsOwnMap) {
    ASSERT_TRUE(Start());
    Tick();
    StoreCellA();
    // Of needle 2 alone a map that leads elsewhere.
    window_->Objects().cNeedleMove->ManiCenter(1, 0, 3000);
    Click(Needle(1));
    Click(Move());
    ASSERT_EQ(driver_.moves.size(), 1U);
    EXPECT_EQ(driver_.selected, 2);
    EXPECT_EQ(driver_.moves[0][0], 3000 - 100 - 100) << "its centre, less its zero and the stand-off";
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(FormMainNeedlesTest, AChoiceThatTheDriverRefusesMovesNoOtherNeedleAndTheLampGoesToTheOneThatItHas) {
    ASSERT_TRUE(Start());
    Tick();
    StoreCellA();
    driver_.failing = {"DriverSelect"};
    Click(Needle(1));
    driver_.failing = {};
    Tick(3);
    ASSERT_TRUE(Lit(1)) << "no read tells of it";
    boxes_.shown.clear();
    Click(Move());
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Needle move failed")});
    EXPECT_TRUE(ReadLog().contains("- Needle move failed"));
    EXPECT_TRUE(driver_.moves.empty());
    EXPECT_TRUE(Lit(0));
}

}  // namespace

}  // namespace travo::test
