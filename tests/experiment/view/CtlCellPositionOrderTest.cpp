// Whom a press on the cell position panel tells and asks, in order.
#include <gmock/gmock.h>

#include "experiment/view/CtlCellPositionRig.h"

namespace travo::test {
namespace {

class CtlCellPositionOrderTest : public CtlCellPositionRig {};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(CtlCellPositionOrderTest, ASetPressTellsTheCameraAndAsksGaugeThenMirror) {
    rig.OpenCamera();
    for (int row = 0; row < 4; ++row) {
        rig.journal.clear();
        SetRow(row);
        EXPECT_THAT(rig.journal,
                    ElementsAre("LiveActionStart", "port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r",
                                "ChangeCellXYZ " + std::to_string(row) + ": 0 0 0", "LiveActionEnd"));
    }
}

TEST_F(CtlCellPositionOrderTest, TheBirdsEyeViewGetsTheStoredTripleWithAnAxisThatWasSkippedAs0) {
    rig.state.CellPosition(6, 1, 44);
    View(10, NoPositionValue, -30);
    Click(PageSwitch());
    rig.journal.clear();
    SetRow(2);
    EXPECT_EQ(rig.journal.back(), "ChangeCellXYZ 6: 10 0 -30");
    EXPECT_EQ(Cell(6), (PositionXYZ{10, 44, -30}));
}

TEST_F(CtlCellPositionOrderTest, AResetPressTellsTheCameraAsksAndResetsBetween) {
    rig.OpenCamera();
    Click(Button(ResetButton));
    EXPECT_THAT(rig.journal, ElementsAre("LiveActionStart", "port 2 > Ar\r\n", "port 1 > rD2R\r",
                                         "port 1 > rD1R\r", "ZeroPointReset", "LiveActionEnd"));
}

TEST_F(CtlCellPositionOrderTest, ResetStoresNoCell) {
    View(10, 20, 30);
    Click(Button(ResetButton));
    for (int cell = 0; cell < 8; ++cell) {
        EXPECT_EQ(Cell(cell), Unset);
    }
    EXPECT_EQ(Texts(0, 24), QStringList(24, NotSet));
}

TEST_F(CtlCellPositionOrderTest, ThePageSwitchTellsNobody) {
    rig.OpenCamera();
    Click(PageSwitch());
    Click(PageSwitch());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlCellPositionOrderTest, WithoutACameraARowIsStoredAllTheSame) {
    View(10, 20, 30);
    SetRow(0);
    EXPECT_EQ(Cell(0), (PositionXYZ{10, 20, 30}));
    EXPECT_THAT(rig.journal, ElementsAre("port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r",
                                         "ChangeCellXYZ 0: 10 20 30"));
}

TEST_F(CtlCellPositionOrderTest, ACameraThatDiesAtAPressDisturbsNothing) {
    rig.OpenCamera();
    rig.camera.failing = {"LiveActionStart"};
    View(10, 20, 30);
    SetRow(0);
    EXPECT_EQ(Cell(0), (PositionXYZ{10, 20, 30}));
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

}  // namespace
}  // namespace travo::test
