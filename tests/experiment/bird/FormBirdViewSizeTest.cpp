// The window's size, its lower panel, and what stands where.
#include <QDir>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

class FormBirdViewSizeTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override { Show(QSize(410, 483)); }
    // The next window must not take the button for held down.
    void TearDown() override { QTest::mouseRelease(&window, Qt::LeftButton, {}, {5, 40}); }

    QRect PlaceOf(const QString& name) const {
        const auto& control = Find<QWidget>(name);
        return {control.mapTo(&window, QPoint(0, 0)), control.size()};
    }
    QRect PlaceOf(const char* name) const { return PlaceOf(QString::fromLatin1(name)); }
    void Press(const QPoint& at) { QTest::mousePress(&window, Qt::LeftButton, {}, at); }
    void Release() { QTest::mouseRelease(&window, Qt::LeftButton, {}, {5, 40}); }
};

// ---- Places ----

TEST_F(FormBirdViewSizeTest, ClosedEverythingStandsInItsPlaceAndTheLowerPanelIsHidden) {
    EXPECT_EQ(PlaceOf("picBird"), QRect(16, 44, 378, 378));
    EXPECT_EQ(PlaceOf("shpPicSet"), QRect(15, 43, 380, 380));
    EXPECT_EQ(PlaceOf("usrKVCheckButton1"), QRect(16, 432, 120, 40));
    for (const char* const name :
         {"imgPramXYZ", "imgParmName", "lblXYZPos(0)", "lblXYZPos(1)", "lblXYZPos(2)", "usrKVXscroll1",
          "usrKVXscroll2", "usrKVCheckButton2(0)", "usrKVCheckButton2(1)"}) {
        EXPECT_TRUE(Find<QWidget>(QString::fromLatin1(name)).isHidden()) << name;
    }
}

TEST_F(FormBirdViewSizeTest, OpenEverythingStandsInItsPlace) {
    Open();
    EXPECT_EQ(window.size(), QSize(410, 578));
    EXPECT_EQ(PlaceOf("picBird"), QRect(16, 44, 378, 378));
    EXPECT_EQ(PlaceOf("usrKVCheckButton1"), QRect(16, 432, 120, 40));
    EXPECT_EQ(PlaceOf("imgPramXYZ"), QRect(144, 432, 250, 40));
    EXPECT_EQ(PlaceOf("lblXYZPos(0)"), QRect(156, 434, 70, 36));
    EXPECT_EQ(PlaceOf("lblXYZPos(1)"), QRect(240, 434, 70, 36));
    EXPECT_EQ(PlaceOf("lblXYZPos(2)"), QRect(324, 434, 70, 36));
    EXPECT_EQ(PlaceOf("imgParmName"), QRect(16, 480, 80, 86));
    EXPECT_EQ(PlaceOf("usrKVXscroll1"), QRect(100, 482, 182, 36));
    EXPECT_EQ(PlaceOf("usrKVXscroll2"), QRect(100, 528, 182, 36));
    EXPECT_EQ(PlaceOf("usrKVCheckButton2(0)"), QRect(290, 480, 104, 40));
    EXPECT_EQ(PlaceOf("usrKVCheckButton2(1)"), QRect(290, 526, 104, 40));
    for (QWidget* const control : window.findChildren<QWidget*>()) {
        EXPECT_TRUE(control->isVisible()) << control->objectName().toStdString();
    }
}

TEST_F(FormBirdViewSizeTest, TheSkinsAreThoseOfTheWindow) {
    EXPECT_EQ(Adjust().path(), QStringLiteral("BirdMode"));
    EXPECT_EQ(Lines().path(), QStringLiteral("ManiLine"));
    EXPECT_EQ(ShiftButton().path(), QStringLiteral("ViewShift"));
    EXPECT_EQ(Brightness().path(), QStringLiteral("xscroll"));
    EXPECT_EQ(Contrast().path(), QStringLiteral("xscroll"));
    EXPECT_EQ(Find<SkinImage>(QStringLiteral("imgPramXYZ")).path(), QStringLiteral("birdxyz"));
    EXPECT_EQ(Find<SkinImage>(QStringLiteral("imgParmName")).path(), QStringLiteral("birdparm"));
    EXPECT_EQ(Find<usrKVButton>(QStringLiteral("usrKVButton1(0)")).path(), QStringLiteral("CLOSE"));
    EXPECT_EQ(Find<usrKVButton>(QStringLiteral("usrKVButton1(1)")).path(), QStringLiteral("size"));
    EXPECT_EQ(Find<SkinImage>(QStringLiteral("Image1")).path(), QStringLiteral("title-FormBirdView"));
    EXPECT_EQ(window.objectName(), QStringLiteral("FormBirdView"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Bird's-eye view"));
}

TEST_F(FormBirdViewSizeTest, RowsKeepTheirHeightsAndFollowTheLowerEdgeTheirWidthsFollowTheWindow) {
    Open();
    for (const QSize& size : {QSize(820, 900), QSize(369, 409), QSize(410, 1200), QSize(1000, 578)}) {
        window.resize(size);
        const double wide = size.width() / 410.0;
        const int down = size.height() - 578;
        const auto expected = [&](const QRect& design) {
            const int left = qRound(design.x() * wide);
            return QRect(left, design.y() + down, qRound((design.x() + design.width()) * wide) - left,
                         design.height());
        };
        EXPECT_EQ(PlaceOf("usrKVCheckButton1"), expected({16, 432, 120, 40}));
        EXPECT_EQ(PlaceOf("lblXYZPos(1)"), expected({240, 434, 70, 36}));
        EXPECT_EQ(PlaceOf("usrKVXscroll2"), expected({100, 528, 182, 36}));
        EXPECT_EQ(PlaceOf("usrKVCheckButton2(1)"), expected({290, 526, 104, 40}));
        EXPECT_EQ(PlaceOf("Image1"), QRect(0, 0, size.width(), 32));
        EXPECT_LE(PlaceOf("shpPicSet").bottom(), PlaceOf("usrKVCheckButton1").top());
    }
}

// ---- The picture in the window ----

struct Zoom {
    QSize window;  // closed; 95 higher when open
    int z;
};

TEST_F(FormBirdViewSizeTest, EveryResizeComposesAnewWithTheSmallerOfBothZooms) {
    for (const bool isOpen : {false, true}) {
        window.BirdOPEN(isOpen);
        for (const Zoom& zoom : {Zoom{{410, 483}, 50},   // (483 - 105) / 756 and (410 - 32) / 756 are 50 %
                                 Zoom{{369, 314}, 28},   // 27.6 against 44.6
                                 Zoom{{369, 900}, 45},   // 105.2 against 44.6
                                 Zoom{{1000, 483}, 50},  // 50 against 128.0
                                 Zoom{{788, 861}, 100}, Zoom{{1600, 1617}, 200}, Zoom{{414, 487}, 51}}) {
            const int open = isOpen ? 95 : 0;
            window.resize(zoom.window + QSize(0, open));
            const int side = convert(zoom.z * 7.56);
            EXPECT_EQ(picBird().size(), QSize(side, side)) << zoom.z;
            EXPECT_EQ(PlaceOf("picBird").topLeft(), QPoint((zoom.window.width() - side) / 2, 44));
            EXPECT_EQ(PlaceOf("shpPicSet"), PlaceOf("picBird").adjusted(-1, -1, 1, 1));
            EXPECT_EQ(Picture().size(), picBird().size());
        }
    }
}

TEST_F(FormBirdViewSizeTest, ThePictureTakesTheMeanOfTheCanvasWhereItHasFewerPixelsAndElseTheNearest) {
    QImage picture(756, 756, QImage::Format_RGB32);
    for (int y = 0; y < 756; ++y) {
        for (int x = 0; x < 756; ++x) {
            picture.setPixel(x, y, qRgb(x % 251, y % 241, (x + y) % 239));
        }
    }
    folder.WriteStill(picture);
    window.NewPicLoad();
    window.resize(378 + 32, 378 + 105);
    const QImage half = Picture();
    for (int x = 2; x < 376; x += 3) {
        const int y = 377 - x;
        int red = 0;
        for (const auto& [right, down] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
            red += qRed(picture.pixel(2 * x + right, 2 * y + down));
        }
        EXPECT_NEAR(qRed(half.pixel(x, y)), red / 4.0, 0.5) << x;
    }
    for (const int side : {756, 1512}) {
        window.resize(side + 32, side + 105);
        const QImage shown = Picture();
        ASSERT_EQ(shown.size(), QSize(side, side));
        for (int i = 0; i < side; i += 7) {
            const int source = (2 * i + 1) * 756 / (2 * side);
            EXPECT_EQ(shown.pixel(i, side - 1 - i),
                      picture.pixel(source, (2 * (side - 1 - i) + 1) * 756 / (2 * side)))
                << side << " " << i;
        }
    }
}

TEST_F(FormBirdViewSizeTest, AResizeShowsTheMarkersAtOnceAtTheNewSize) {
    Connected(0);
    window.ChangeVNeedleONOFF(true);
    Needle(0, {0, 0, 0});
    window.resize(788, 861);
    EXPECT_EQ(At(378, 378), NeedleColour);
    window.resize(1544, 1617);
    EXPECT_EQ(At(756, 756), NeedleColour);
}

// ---- The lower panel ----

TEST_F(FormBirdViewSizeTest, PressingAdjustInMakesTheWindow95TallerReleasing95Shorter) {
    for (const QSize& size : {QSize(410, 483), QSize(369, 314), QSize(700, 600)}) {
        window.resize(size);
        const QRect picture = PlaceOf("picBird");
        const QPoint corner = window.pos();
        Click(Adjust());
        EXPECT_TRUE(window.BirdOPEN());
        EXPECT_EQ(window.size(), size + QSize(0, 95));
        EXPECT_EQ(PlaceOf("picBird"), picture);
        EXPECT_FALSE(Brightness().isHidden());
        Click(Adjust());
        EXPECT_FALSE(window.BirdOPEN());
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(PlaceOf("picBird"), picture);
        EXPECT_EQ(window.pos(), corner);
        EXPECT_TRUE(Brightness().isHidden());
    }
}

TEST_F(FormBirdViewSizeTest, BirdOPENWrittenSetsTheButtonAndLeavesTheHeightWhichCameBackWithThePlace) {
    FormBirdView restored({{*this, *this}, rig.state, rig.boxes, *this}, rig.ProgramFolder());
    restored.Place({1500, 1500, 9000, 9525});
    restored.LineONOff(true);
    restored.BirdOPEN(true);
    EXPECT_TRUE(restored.BirdOPEN());
    EXPECT_EQ(restored.size(), QSize(600, 635));
    restored.ShowWindow();
    EXPECT_EQ(restored.size(), QSize(600, 635));
    // Width 600 - 32 and height 635 - 200 = 435, which is 58 %.
    const auto* const picture = restored.findChild<QWidget*>(QStringLiteral("picBird"));
    EXPECT_EQ(picture->size(), QSize(438, 438));
    EXPECT_TRUE(restored.findChild<QWidget*>(QStringLiteral("usrKVXscroll1"))->isVisible());
    const MeasuredWindowPlace place = restored.Measured();
    EXPECT_EQ(place.Height, 9525);
    EXPECT_EQ(place.Width, 9000);
    restored.CloseAtEnd();
}

TEST_F(FormBirdViewSizeTest, ARestartFindsTheGeometryOfTheLastRunAlsoAtTheLeastSize) {
    for (const bool isOpen : {false, true}) {
        window.BirdOPEN(isOpen);
        for (const QSize& size : {QSize(369, isOpen ? 409 : 314), QSize(410, 483), QSize(777, 666)}) {
            window.resize(size);
            const MeasuredWindowPlace place = window.Measured();
            FormBirdView next({{*this, *this}, rig.state, rig.boxes, *this}, rig.ProgramFolder());
            next.Place({static_cast<std::int16_t>(place.Top), static_cast<std::int16_t>(place.Left),
                        static_cast<std::int16_t>(place.Width), static_cast<std::int16_t>(place.Height)});
            next.BirdOPEN(window.BirdOPEN());
            EXPECT_EQ(next.size(), size);
            EXPECT_EQ(next.pos(), window.pos());
            EXPECT_EQ(next.findChild<QWidget*>(QStringLiteral("picBird"))->size(), picBird().size());
        }
    }
}

TEST_F(FormBirdViewSizeTest, APanelThatIsOpenInSettingsWithTooLittleHeightLiftsTheWindowToItsLeast) {
    FormBirdView restored({{*this, *this}, rig.state, rig.boxes, *this}, rig.ProgramFolder());
    restored.Place({0, 0, 0, 0});
    EXPECT_EQ(restored.size(), QSize(369, 314));
    restored.BirdOPEN(true);
    EXPECT_EQ(restored.size(), QSize(369, 409));
}

TEST_F(FormBirdViewSizeTest, TheDefaultOfTheSettingsIsTheDesignSizeWithThePanelClosed) {
    EXPECT_EQ(window.DesignSize().Width, 410 * 15);
    EXPECT_EQ(window.DesignSize().Height, 483 * 15);
    window.BirdOPEN(true);
    EXPECT_EQ(window.DesignSize().Height, 483 * 15);
}

// ---- Size, close, drag ----

TEST_F(FormBirdViewSizeTest, SizeBringsBackTheDesignSizePlusThePanelWhereItIsOpen) {
    for (const bool isOpen : {false, true}) {
        window.BirdOPEN(isOpen);
        window.resize(700, 800);
        QTest::mouseClick(&Find<usrKVButton>(QStringLiteral("usrKVButton1(1)")), Qt::LeftButton);
        EXPECT_EQ(window.size(), QSize(410, isOpen ? 578 : 483));
        EXPECT_EQ(picBird().size(), QSize(378, 378));
    }
}

TEST_F(FormBirdViewSizeTest, CloseTellsTheOwnerNumberOneAndTheEndOfTheRunDoesNot) {
    QTest::mouseClick(&Find<usrKVButton>(QStringLiteral("usrKVButton1(0)")), Qt::LeftButton);
    EXPECT_EQ(closed, std::vector<std::int32_t>{1});
    window.close();
    EXPECT_EQ(closed, (std::vector<std::int32_t>{1, 1}));
    window.CloseAtEnd();
    EXPECT_EQ(closed.size(), 2U);
    EXPECT_TRUE(window.isHidden());
}

TEST_F(FormBirdViewSizeTest, APressOnTheTitleTheGroundOrALabelMovesTheWindowOneOnThePictureDoesNot) {
    Open();
    const auto clickAt = [this](int x, int y) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {x, y});
    };
    clickAt(100, 16);
    EXPECT_EQ(moves, 1);
    clickAt(200, 426);  // between picture and buttons
    EXPECT_EQ(moves, 2);
    clickAt(200, 450);  // the readout
    EXPECT_EQ(moves, 3);
    clickAt(50, 500);  // the captions of the bars
    EXPECT_EQ(moves, 4);
    clickAt(200, 200);
    clickAt(100, 450);
    EXPECT_EQ(moves, 4);
    EXPECT_FALSE(window.BirdOPEN());
    clickAt(300, 450);  // where the readout was
    EXPECT_EQ(moves, 5);
    window.resize(410, 700);
    clickAt(200, 600);  // between picture and buttons of a tall window
    EXPECT_EQ(moves, 6);
}

struct Edge {
    ResizeMode mode;
    QPoint grip;  // as parts of width and height: 0, 1 or 2 halves
    bool movesWidth;
    bool movesHeight;
};

class FormBirdViewEdgeTest : public FormBirdViewSizeTest, public ::testing::WithParamInterface<Edge> {
protected:
    static constexpr QRect StartClosed{300, 250, 410, 483};
};

TEST_P(FormBirdViewEdgeTest, ADragPastTheLimitLeavesTheSizeAtTheLimitClosedAndOpen) {
    const Edge& edge = GetParam();
    for (const int open : {0, 95}) {
        window.BirdOPEN(open > 0);
        const QRect start = StartClosed.adjusted(0, 0, 0, open);
        window.setGeometry(start);
        // A press at no place at all would count as one in the middle.
        const QPoint grip(std::max(edge.grip.x() * (start.width() - 1) / 2, 1),
                          edge.grip.y() * (start.height() - 1) / 2);
        Press(grip);
        ASSERT_EQ(window.Resizing(), edge.mode);
        const QPoint mouse = window.mapToGlobal(grip);
        const QPoint inwards((1 - edge.grip.x()) * 17, (1 - edge.grip.y()) * 17);
        for (int step = 1; step <= 40; ++step) {
            MoveMouse(mouse + inwards * step);
            EXPECT_GE(window.width(), 369);
            EXPECT_GE(window.height(), 314 + open);
            EXPECT_LE(picBird().width(), window.width());
        }
        EXPECT_EQ(window.size(), QSize(edge.movesWidth ? 369 : 410, (edge.movesHeight ? 314 : 483) + open));
        // The edges that do not follow stay where they are.
        if (edge.grip.x() != 0) {
            EXPECT_EQ(window.geometry().left(), start.left());
        }
        if (edge.grip.x() != 2) {
            EXPECT_EQ(window.geometry().right(), start.right());
        }
        if (edge.grip.y() != 0) {
            EXPECT_EQ(window.geometry().top(), start.top());
        }
        if (edge.grip.y() != 2) {
            EXPECT_EQ(window.geometry().bottom(), start.bottom());
        }
        // And outwards there is none.
        MoveMouse(mouse - inwards * 20);
        EXPECT_NEAR(window.width(), start.width() + (edge.movesWidth ? 340 : 0), 1);
        EXPECT_NEAR(window.height(), start.height() + (edge.movesHeight ? 340 : 0), 1);
        Release();
        EXPECT_EQ(window.Resizing(), ResizeMode::None);
    }
}

INSTANTIATE_TEST_SUITE_P(Edges, FormBirdViewEdgeTest,
                         ::testing::Values(Edge{ResizeMode::Right, {2, 1}, true, false},
                                           Edge{ResizeMode::Bottom, {1, 2}, false, true},
                                           Edge{ResizeMode::Left, {0, 1}, true, false},
                                           Edge{ResizeMode::Top, {1, 0}, false, true},
                                           Edge{ResizeMode::BottomRight, {2, 2}, true, true},
                                           Edge{ResizeMode::TopLeft, {0, 0}, true, true},
                                           Edge{ResizeMode::BottomLeft, {0, 2}, true, true},
                                           Edge{ResizeMode::TopRight, {2, 0}, true, true}),
                         [](const auto& edge) {
                             return "Mode" + std::to_string(static_cast<int>(edge.param.mode));
                         });

TEST_F(FormBirdViewSizeTest, OpeningThePanelAtTheLeastSizeAndClosingItAgainKeepsTheLimits) {
    window.resize(1, 1);
    EXPECT_EQ(window.size(), QSize(369, 314));
    Click(Adjust());
    EXPECT_EQ(window.size(), QSize(369, 409));
    window.resize(1, 1);
    EXPECT_EQ(window.size(), QSize(369, 409));
    Click(Adjust());
    EXPECT_EQ(window.size(), QSize(369, 314));
    window.resize(1, 1);
    EXPECT_EQ(window.size(), QSize(369, 314));
}

}  // namespace
}  // namespace travo::test
