// Laying the still under the markers by hand.
#include <QDir>

#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

using platform::BoxAnswer;

constexpr QColor Mark{1, 2, 3};

class FormBirdViewShiftTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override {
        Show(FullSize);
        Open();
    }
    void Press(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&picBird(), button, {}, at);
    }
    void Answer(BoxAnswer answer) { rig.boxes.answers.push_back(answer); }
    double X() const { return rig.state.ShiftX; }
    double Y() const { return rig.state.ShiftY; }
    QStringList Asked() const { return rig.boxes.Texts(); }
};

TEST_F(FormBirdViewShiftTest, APressMovesThePointPressedToTheCentre) {
    QImage picture(640, 480, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    picture.setPixelColor(100, 50, Mark);
    folder.WriteStill(picture);
    window.NewPicLoad();
    ASSERT_EQ(At(158, 188), Mark);
    Click(ShiftButton());
    Answer(BoxAnswer::Yes);
    Press({158, 188});
    // The shift is a fraction of the picture of 756, and counts as one of the still of 640 by 480.
    EXPECT_DOUBLE_EQ(X(), 220.0 / 756);
    EXPECT_DOUBLE_EQ(Y(), 190.0 / 756);
    const int movedX = qRound(58 + 640 * 220.0 / 756) + 100;
    const int movedY = qRound(138 + 480 * 190.0 / 756) + 50;
    EXPECT_EQ(At(movedX, movedY), Mark);
    EXPECT_EQ(Count(Mark), 1);
}

TEST_F(FormBirdViewShiftTest, ThePressCountsInThePicturesOwnWidthAndHeight) {
    window.resize(410, 578);
    ASSERT_EQ(picBird().size(), QSize(378, 378));
    Click(ShiftButton());
    for (const auto& [at, x, y] : {std::tuple{QPoint(189, 189), 0.0, 0.0},
                                   {QPoint(0, 1), 0.5, 188.0 / 378},
                                   {QPoint(377, 0), (189.0 - 377) / 378, 0.5},
                                   {QPoint(63, 252), 126.0 / 378, -63.0 / 378}}) {
        Answer(BoxAnswer::No);
        std::array<double, 2> seen{};
        rig.boxes.whileShown = [&] { seen = {X(), Y()}; };
        Press(at);
        EXPECT_DOUBLE_EQ(seen[0], x);
        EXPECT_DOUBLE_EQ(seen[1], y);
    }
}

TEST_F(FormBirdViewShiftTest, TheQuestionIsAskedWithYesAndNoWhenTheStillHasMoved) {
    folder.WriteStill(Qt::gray);
    window.NewPicLoad();
    Click(ShiftButton());
    const QImage before = Picture();
    QImage behind;
    rig.boxes.whileShown = [&] { behind = Picture(); };
    Press({100, 100});
    ASSERT_EQ(rig.boxes.shown.size(), 1U);
    EXPECT_EQ(rig.boxes.shown[0].text, QStringLiteral("Did you set it at this position?"));
    EXPECT_EQ(rig.boxes.shown[0].buttons, platform::BoxButtons::YesNo);
    EXPECT_NE(behind, before);
    EXPECT_EQ(Picture(), behind);
}

TEST_F(FormBirdViewShiftTest, TheQuestionOpensBesideThePictureThatItAsksAbout) {
    window.move(30, 20);
    Click(ShiftButton());
    Press({100, 100});
    ASSERT_EQ(rig.boxes.shown.size(), 1U);
    const QPoint corner = window.pos() + picBird().mapTo(&window, QPoint(0, 0));
    EXPECT_EQ(rig.boxes.shown[0].opening.beside, QRect(corner, picBird().size()));
    EXPECT_FALSE(rig.boxes.shown[0].opening.isFocusOnCancel);
}

TEST_F(FormBirdViewShiftTest, PositionsGoOnBeingComposedBehindTheQuestion) {
    Connected(0);
    window.ChangeVNeedleONOFF(true);
    Click(ShiftButton());
    Answer(BoxAnswer::Yes);
    int ticks = 0;
    rig.boxes.whileShown = [&] {
        for (std::int32_t x = -400; x <= 400; x += 100, ++ticks) {
            Needle(0, {x, 0, 0});
            EXPECT_EQ(At(378 + x * 42 / 100, 378), NeedleColour);
        }
        folder.WriteStill(Qt::gray);
        window.NewPicLoad();
    };
    Press({378, 300});
    EXPECT_EQ(ticks, 9);
    EXPECT_EQ(At(378, 378 + 100), Qt::gray);
    EXPECT_FALSE(ShiftButton().Value());
}

TEST_F(FormBirdViewShiftTest, OnNoTheShiftBecomes0AndTheNextPressTriesAgain) {
    folder.WriteStill(Qt::gray);
    window.NewPicLoad();
    Click(ShiftButton());
    const QImage centred = Picture();
    for (int attempt = 0; attempt < 3; ++attempt) {
        Answer(BoxAnswer::No);
        Press({10 + attempt, 20});
        EXPECT_EQ(X(), 0);
        EXPECT_EQ(Y(), 0);
        EXPECT_EQ(Picture(), centred);
        EXPECT_TRUE(ShiftButton().Value());
    }
    EXPECT_EQ(Asked().size(), 3);
}

TEST_F(FormBirdViewShiftTest, OnlyTheLeftButtonSetsTheShiftAndAPressOnThePictureDragsNothing) {
    Click(ShiftButton());
    Press({10, 10}, Qt::RightButton);
    Press({10, 10}, Qt::MiddleButton);
    EXPECT_TRUE(Asked().isEmpty());
    Answer(BoxAnswer::Yes);
    Press({10, 10});
    Press({10, 10});
    EXPECT_EQ(Asked().size(), 1);
    EXPECT_EQ(moves, 0);
}

TEST_F(FormBirdViewShiftTest, TheStoredShiftIsTakenFromTheFirstComposition) {
    rig.state.ShiftX = 0.1;
    rig.state.ShiftY = -0.1;
    folder.WriteStill(Qt::gray);
    window.NewPicLoad();
    EXPECT_EQ(Count(Qt::gray, QRect(58 + 64, 138 - 48, 634, 480)), 634 * 480);
    EXPECT_EQ(At(121, 200), Ground);
}

TEST_F(FormBirdViewShiftTest, AStoredShiftBeyondAllBoundsOnlyTakesTheStillAway) {
    folder.WriteStill(Qt::gray);
    window.NewPicLoad();
    for (const double shift : {1e300, -1e300, 2e9, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        rig.state.ShiftX = shift;
        EXPECT_NO_THROW(window.ChangeViewXYZ({0, 0, 0}));
        EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    }
}

// ---- All states with all events ----

enum class State { Idle, Setting, Closed, ClosedWhileSetting };
enum class Event { ShiftClick, AdjustClick, PictureYes, PictureNo, PictureClosedBox };

struct Step {
    State from;
    Event event;
    State to;
    bool asks;       // the question is shown
    char shiftThen;  // k: kept as it was, 0: zero, p: that of the press
};

class FormBirdViewShiftStepTest : public FormBirdViewShiftTest, public ::testing::WithParamInterface<Step> {
protected:
    static constexpr double KeptX = 0.25;
    static constexpr double KeptY = -0.125;

    void Enter(State state) {
        if (state == State::Setting || state == State::ClosedWhileSetting) {
            Click(ShiftButton());
        }
        if (state == State::Closed || state == State::ClosedWhileSetting) {
            Click(Adjust());
        }
        rig.state.ShiftX = KeptX;
        rig.state.ShiftY = KeptY;
    }
    void Do(Event event) {
        switch (event) {
            case Event::ShiftClick:
                Click(ShiftButton());
                break;
            case Event::AdjustClick:
                Click(Adjust());
                break;
            case Event::PictureYes:
            case Event::PictureNo:
            case Event::PictureClosedBox:
                Answer(event == Event::PictureYes  ? BoxAnswer::Yes
                       : event == Event::PictureNo ? BoxAnswer::No
                                                   : BoxAnswer::Cancel);
                Press({0, picBird().height() - 1});
                break;
        }
    }
    // What the button says, whether the panel is open, and whether a press on the picture would ask.
    State Present() {
        const bool isOpen = window.BirdOPEN();
        const bool isPressed = ShiftButton().Value();
        rig.boxes.shown.clear();
        rig.boxes.answers = {BoxAnswer::No};
        Press({5, 5});
        EXPECT_EQ(!rig.boxes.shown.empty(), isOpen && isPressed);
        if (isOpen) {
            return isPressed ? State::Setting : State::Idle;
        }
        return isPressed ? State::ClosedWhileSetting : State::Closed;
    }
};

TEST_P(FormBirdViewShiftStepTest, LeadsWhereItShould) {
    const Step& step = GetParam();
    Enter(step.from);
    const double height = picBird().height();
    Do(step.event);
    EXPECT_EQ(Asked().size(), step.asks ? 1 : 0);
    EXPECT_DOUBLE_EQ(X(), step.shiftThen == 'k' ? KeptX : step.shiftThen == 'p' ? 0.5 : 0);
    EXPECT_DOUBLE_EQ(Y(), step.shiftThen == 'k'   ? KeptY
                          : step.shiftThen == 'p' ? (height / 2 - (height - 1)) / height
                                                  : 0);
    EXPECT_EQ(Present(), step.to);
}

using enum State;
using enum Event;

INSTANTIATE_TEST_SUITE_P(
    AllOfThem, FormBirdViewShiftStepTest,
    ::testing::Values(
        Step{Idle, ShiftClick, Setting, false, '0'}, Step{Idle, AdjustClick, Closed, false, 'k'},
        Step{Idle, PictureYes, Idle, false, 'k'}, Step{Idle, PictureNo, Idle, false, 'k'},
        Step{Idle, PictureClosedBox, Idle, false, 'k'},
        // A release has the same effect on the shift.
        Step{Setting, ShiftClick, Idle, false, '0'},
        // Closing leaves the button as it is.
        Step{Setting, AdjustClick, ClosedWhileSetting, false, 'k'},
        Step{Setting, PictureYes, Idle, true, 'p'}, Step{Setting, PictureNo, Setting, true, '0'},
        Step{Setting, PictureClosedBox, Idle, true, 'p'}, Step{Closed, AdjustClick, Idle, false, 'k'},
        Step{Closed, PictureYes, Closed, false, 'k'}, Step{Closed, PictureNo, Closed, false, 'k'},
        Step{Closed, PictureClosedBox, Closed, false, 'k'},
        // Opening raises it.
        Step{ClosedWhileSetting, AdjustClick, Idle, false, 'k'},
        Step{ClosedWhileSetting, PictureYes, ClosedWhileSetting, false, 'k'},
        Step{ClosedWhileSetting, PictureNo, ClosedWhileSetting, false, 'k'},
        Step{ClosedWhileSetting, PictureClosedBox, ClosedWhileSetting, false, 'k'}));

// The two events that are missing above cannot come about.
TEST_F(FormBirdViewShiftTest, WhileThePanelIsClosedTheShiftButtonIsNotOnShow) {
    Click(Adjust());
    EXPECT_FALSE(ShiftButton().isVisible());
    Click(Adjust());
    Click(ShiftButton());
    Click(Adjust());
    EXPECT_FALSE(ShiftButton().isVisible());
}

TEST_F(FormBirdViewShiftTest, AShiftButtonPressedAndReleasedRedraws) {
    folder.WriteStill(Qt::gray);
    window.NewPicLoad();
    const QImage centred = Picture();
    for (int press = 0; press < 2; ++press) {
        rig.state.ShiftX = 0.3;
        window.ChangeViewXYZ({0, 0, 0});
        ASSERT_NE(Picture(), centred);
        Click(ShiftButton());
        EXPECT_EQ(Picture(), centred);
    }
}

}  // namespace
}  // namespace travo::test
