#include "mirror/view/CtlController.h"

#include <QMouseEvent>
#include <QTimer>
#include <set>

#include "controls/SkinImage.h"
#include "core/ground/Arithmetic.h"
#include "mirror/view/CtlControllerRig.h"
#include "support/LogTexts.h"

namespace travo::test {
namespace {

class CtlControllerTest : public CtlControllerRig {};

// ---- The mouse ----

TEST_F(CtlControllerTest, EveryAreaShowsItsPictureWhileHeldAndSendsItsMovesOnRelease) {
    for (int area = 0; area <= 17; ++area) {
        EXPECT_EQ(pad.PictureShown(), 0);
        Press(area);
        EXPECT_EQ(pad.PictureShown(), area);
        EXPECT_EQ(TakeSent(), Sent{}) << area;
        ReleaseAt(PadPoint(area));
        EXPECT_EQ(pad.PictureShown(), 0) << area;
        EXPECT_EQ(TakeSent(), SentByArea.at(static_cast<std::size_t>(area))) << area;
    }
}

TEST_F(CtlControllerTest, APressAtTheCentreAndAReleaseAnywhereElseSendsTheMirrorToTheCentre) {
    for (const QPoint& place : {PadPoint(1), PadPoint(12), PadPoint(0), QPoint(500, -300)}) {
        Press(17);
        Move(place, Qt::LeftButton);
        EXPECT_EQ(pad.PictureShown(), 17);
        ReleaseAt(place);
        EXPECT_EQ(TakeSent(), (Sent{"1 cD2A0", "1 cD1A0"}));
    }
}

TEST_F(CtlControllerTest, APressExactlyOnARadiusOf27Point5FromTheCentreIsArea17AndOneAt82Point6MakesNoMove) {
    const auto click = [this](const QPointF& place) {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, pad.mapToGlobal(place), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(&pad, &event);
        }
        return TakeSent();
    };
    EXPECT_EQ(click({109.5, 82}), (Sent{"1 cD2A0", "1 cD1A0"}));
    EXPECT_EQ(click({164.6, 82}), Sent{});
    EXPECT_EQ(click({164.5, 82}), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, HoldingDoesNotRepeat) {
    Press(1);
    for (int turn = 0; turn < 50; ++turn) {
        Move(PadPoint(1) + QPoint(turn % 3, 0), Qt::LeftButton);
        QApplication::processEvents();
    }
    EXPECT_TRUE(pad.findChildren<QTimer*>().isEmpty());
    EXPECT_EQ(TakeSent(), Sent{});
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerTest, TwoQuickClicksAreTwoMoves) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, pad.pos() + PadPoint(9));
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A1", "1 cD1A1"}));
}

TEST_F(CtlControllerTest, OnlyTheLeftButtonPresses) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(&pad, button, {}, PadPoint(1));
        EXPECT_EQ(pad.PictureShown(), 0);
        QTest::mouseRelease(&pad, button, {}, PadPoint(1));
    }
    EXPECT_EQ(TakeSent(), Sent{});
    Press(1);
    QTest::mousePress(&pad, Qt::RightButton, {}, PadPoint(5));
    QTest::mouseRelease(&pad, Qt::RightButton, {}, PadPoint(5));
    EXPECT_EQ(pad.PictureShown(), 1);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

TEST_F(CtlControllerTest, AReleaseWithoutAPressDoesNothing) {
    Click(1);
    TakeSent();
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

// A message box takes the release for itself.
TEST_F(CtlControllerTest, APressWhoseReleaseIsLostIsDropped) {
    Press(1);
    Move(PadPoint(1), Qt::NoButton);
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerTest, APressThatLosesTheFocusOrTheWindowIsDropped) {
    Press(1);
    other.setFocus();
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    Press(1);
    pad.hide();
    EXPECT_EQ(pad.PictureShown(), 0);
    pad.show();
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

// ---- Ports, limits, failures ----

TEST_F(CtlControllerTest, WithTheMirrorPortClosedThePicturesReactAndNoCommandGoesOut) {
    rig.communication.MirrorPortClose();
    TakeSent();
    rig.state.CurrentXY(180, 180);
    for (int area = 1; area <= 17; ++area) {
        Press(area);
        EXPECT_EQ(pad.PictureShown(), area);
        ReleaseAt(PadPoint(area));
        EXPECT_EQ(pad.PictureShown(), 0);
    }
    EXPECT_EQ(TakeSent(), Sent{});
    EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST_F(CtlControllerTest, Area2AtY180ShowsMovementLimitYAndThenStillMakesTheXMove) {
    rig.state.CurrentXY(5, 180);
    rig.boxes.whileShown = [this] { EXPECT_EQ(pad.PictureShown(), 0); };
    Click(2);
    EXPECT_EQ(rig.journal, (Journal{"box Movement limit Y", "port 1 > cD2A-5\r"}));
    EXPECT_TRUE(LogTexts(rig.log).isEmpty());
}

TEST_F(CtlControllerTest, AnEndAskedForUnderTheLimitBoxOfArea2KeepsTheXMoveBack) {
    rig.state.CurrentXY(5, 180);
    rig.boxes.whileShown = [this] { rig.eventLoop.endAsked = true; };
    Click(2);
    EXPECT_EQ(rig.journal, Journal{"box Movement limit Y"});
}

TEST_F(CtlControllerTest, Area4AtTheOtherEndOfBothAxesShowsBothLimits) {
    rig.state.CurrentXY(-180, -175);
    Click(4);
    EXPECT_EQ(rig.journal, (Journal{"box Movement limit Y", "box Movement limit X"}));
}

TEST_F(CtlControllerTest, AStepMayEndExactlyAtTheLimit) {
    rig.state.CurrentXY(-179, 170);
    Click(1);
    Click(11);
    EXPECT_EQ(TakeSent(), (Sent{"1 cD1A180", "1 cD2A-180"}));
}

TEST_F(CtlControllerTest, TheLimitBoxDoesNotKeepThePadFromBeingDisabledMeanwhile) {
    rig.state.CurrentXY(0, 180);
    rig.boxes.whileShown = [this] { pad.ChangeEnable(false); };
    Click(2);
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
    EXPECT_EQ(pad.PictureShown(), 18);
}

TEST_F(CtlControllerTest, AFailureOfAMoveGoesUpAndLeavesThePadAtRest) {
    rig.state.CurrentXYZ(1, INT32_MAX);
    Press(1);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(82, 15), QPointF(82, 15), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    EXPECT_THROW(static_cast<QObject&>(pad).event(&release), OverflowFailure);
    EXPECT_EQ(pad.PictureShown(), 0);
}

// ---- Enabled and disabled ----

TEST_F(CtlControllerTest, InADisabledPanelAPressDoesNothingAndAReleaseOfItDoesNothing) {
    pad.ChangeEnable(false);
    EXPECT_EQ(pad.PictureShown(), 18);
    for (int area = 0; area <= 17; ++area) {
        Press(area);
        EXPECT_EQ(pad.PictureShown(), 18);
        ReleaseAt(PadPoint(area));
    }
    EXPECT_EQ(TakeSent(), Sent{});
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 0);
    Press(3);
    EXPECT_EQ(pad.PictureShown(), 3);
    ReleaseAt(PadPoint(3));
    EXPECT_EQ(TakeSent(), Sent{"1 cD2A-10"});
}

TEST_F(CtlControllerTest, APressInADisabledPanelDoesNothingAlsoWhenThePanelIsEnabledBeforeItsRelease) {
    pad.ChangeEnable(false);
    Press(1);
    pad.ChangeEnable(true);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{});
}

TEST_F(CtlControllerTest, APadThatIsDisabledWhileItIsHeldDropsThePress) {
    Press(1);
    pad.ChangeEnable(false);
    EXPECT_EQ(pad.PictureShown(), 18);
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 0);
    ReleaseAt(PadPoint(1));
    Key(QEvent::KeyPress, Qt::Key_Up);
    pad.ChangeEnable(false);
    pad.ChangeEnable(true);
    Key(QEvent::KeyRelease, Qt::Key_Up);
    EXPECT_EQ(TakeSent(), Sent{});
}

// The controller's status lines come while the operator holds the pad.
TEST_F(CtlControllerTest, APadThatIsEnabledOnceMoreWhileItIsHeldKeepsThePress) {
    Press(1);
    pad.ChangeEnable(true);
    EXPECT_EQ(pad.PictureShown(), 1);
    ReleaseAt(PadPoint(1));
    EXPECT_EQ(TakeSent(), Sent{"1 cD1A10"});
}

// ---- Sizes and scales ----

TEST_F(CtlControllerTest, WhenItIsResizedThePictureIsASquareOfTheSmallerSideAtTheUpperLeft) {
    for (const QSize& size : {QSize(330, 330), QSize(330, 380), QSize(390, 330)}) {
        pad.resize(size);
        for (int area = 0; area <= 17; ++area) {
            QTest::mousePress(&pad, Qt::LeftButton, {}, PadPoint(area) * 2);
            EXPECT_EQ(pad.PictureShown(), area);
            ReleaseAt({0, 0});
        }
        // Beside the square.
        for (const QPoint& place : {QPoint(165, 340), QPoint(340, 165)}) {
            QTest::mousePress(&pad, Qt::LeftButton, {}, place);
            EXPECT_EQ(pad.PictureShown(), 0);
            ReleaseAt(place);
        }
        const QImage shot = pad.grab().toImage();
        pad.resize(330, 330);
        EXPECT_EQ(shot.copy(0, 0, 330, 330), pad.grab().toImage());
    }
}

TEST_F(CtlControllerTest, OnADisplayOfAnotherScaleTheSamePlacesHitTheSameAreas) {
    for (const double units : {12.0, 10.0, 7.5, 20.0}) {
        rig.display.horizontal = units;
        rig.display.vertical = units;
        for (int area = 0; area <= 17; ++area) {
            Press(area);
            EXPECT_EQ(pad.PictureShown(), area) << units;
            ReleaseAt({0, 0});
        }
    }
}

// ---- Pictures ----

TEST_F(CtlControllerTest, EachOfThe19StatesHasItsOwnPictureOfTheSkin) {
    std::set<QByteArray> seen;
    const auto see = [&](int number) {
        SkinImage picture(&window);
        picture.path(QStringLiteral("pad-%1").arg(number, 2, 10, QLatin1Char('0')));
        picture.inipath(SkinHome());
        picture.resize(165, 165);
        const QImage shot = pad.grab().toImage();
        EXPECT_EQ(shot, picture.grab().toImage()) << number;
        seen.insert(QByteArray(reinterpret_cast<const char*>(shot.constBits()),
                               static_cast<qsizetype>(shot.sizeInBytes())));
    };
    for (int area = 0; area <= 17; ++area) {
        Press(area);
        see(area);
        ReleaseAt(PadPoint(area));
        see(0);
    }
    pad.ChangeEnable(false);
    see(18);
    EXPECT_EQ(seen.size(), 19U);
}

TEST_F(CtlControllerTest, WithoutPicturesAPlainOneBearsItsName) {
    CtlController plain({rig.communication, rig.mirrorMove, rig.display}, &window);
    plain.setAccessibleName(QStringLiteral("Mirror pad"));
    const QImage shot = plain.grab().toImage();
    std::set<QRgb> colours;
    for (int x = 0; x < 165; ++x) {
        colours.insert(shot.pixel(x, 82));
    }
    EXPECT_GT(colours.size(), 3U);
}

}  // namespace
}  // namespace travo::test
