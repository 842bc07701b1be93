// The window over a long run: hidden or shown it goes on receiving and composing, at no growing cost.
#include <malloc.h>

#include <QDir>

#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

class FormBirdViewRunTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override {
        folder.WriteStill(Qt::gray);
        window.NewPicLoad();
        window.chkMirror(true);
        Connected(3);
        rig.state.intManipulatorNumber = 1;
        cellNo = 2;
    }
    // One tick: a needle read, the view moved, at times a cell stored.
    void Tick(int count) {
        const std::int32_t place = count % Round - Round / 2;
        Needle(static_cast<std::int16_t>(count % 4), {place, -place, place % 3}, {place - 500, 900, 0});
        if (count % 5 == 0) {
            window.ChangeViewXYZ({place / 10, place / 20, place});
        }
        if (count % 50 == 0) {
            window.ChangeCellXYZ(static_cast<std::int16_t>(count % 8), {place / 6, place / 9, 0});
        }
    }
    // Ticks after which everything is as it was.
    static constexpr int Round = 1200;
    // 8400 ticks are 10 248 compositions. The sanitizer finds leaks by itself and takes ten times as long.
#ifdef __SANITIZE_ADDRESS__
    static constexpr int Rounds = 1;
#else
    static constexpr int Rounds = 7;
#endif
    static std::size_t Allocated() {
        const auto now = mallinfo2();
        return now.uordblks + now.hblkhd;
    }
};

TEST_F(FormBirdViewRunTest, WhileHiddenItGoesOnReceivingAndComposing) {
    window.resize(FullSize);
    window.ChangeVNeedleONOFF(true);
    rig.state.intManipulatorNumber = -1;
    Needle(0, {100, 100, 0});
    window.ChangeViewXYZ({-40, 10, 77});
    ASSERT_TRUE(window.isHidden());
    EXPECT_EQ(picBird().size(), QSize(756, 756));
    EXPECT_EQ(At(420, 420), NeedleColour);
    window.ShowWindow();
    EXPECT_EQ(At(420, 420), NeedleColour);
    EXPECT_EQ(Reading(2), QStringLiteral("77"));
    window.HideWindow();
    Needle(0, {-100, 100, 0});
    EXPECT_EQ(At(336, 420), NeedleColour);
}

TEST_F(FormBirdViewRunTest, TenThousandCompositionsWhileHiddenTakeNoMoreMemory) {
    for (int count = 0; count < Round; ++count) {
        Tick(count);
    }
    const std::size_t before = Allocated();
    for (int count = 0; count < Rounds * Round; ++count) {
        Tick(count);
    }
    EXPECT_EQ(Allocated(), before);
    EXPECT_TRUE(window.isHidden());
}

TEST_F(FormBirdViewRunTest, CompositionsAndTheirPaintingOnTheScreenTakeNoMoreMemory) {
    Show(QSize(410, 483));
    const auto run = [this](int ticks) {
        for (int count = 0; count < ticks; ++count) {
            Tick(count);
            QApplication::processEvents();
        }
    };
    run(Round);
    const std::size_t before = Allocated();
    run(Round);
    // Not a single picture of the window's size.
    EXPECT_LT(Allocated(), before + 100'000);
}

TEST_F(FormBirdViewRunTest, StillsLoadedAgainAndAgainTakeNoMoreMemory) {
    const auto load = [this](int times) {
        for (int count = 0; count < times; ++count) {
            window.NewPicLoad();
            Brightness().setValue(count % 7);
        }
    };
    load(20);
    const std::size_t before = Allocated();
    load(140);
    EXPECT_LT(Allocated(), before + 100'000);
}

TEST_F(FormBirdViewRunTest, SizesChangedAgainAndAgainTakeNoMoreMemory) {
    Show(QSize(410, 483));
    const auto resize = [this](int times) {
        for (int count = 0; count < times; ++count) {
            window.resize(400 + count % 40, 480 + count % 30);
            Click(Adjust());
            QApplication::processEvents();
        }
        window.resize(500, 500);
        QApplication::processEvents();
    };
    resize(120);
    const std::size_t before = Allocated();
    resize(240);
    EXPECT_LT(Allocated(), before + 300'000);
}

}  // namespace
}  // namespace travo::test
