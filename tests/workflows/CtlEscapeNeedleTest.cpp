// What the escape panel records of a needle that has been chosen on another panel.
#include "workflows/CtlEscapeRig.h"

namespace travo::test {
namespace {

class CtlEscapeNeedleTest : public CtlEscapeRig {};

using ::testing::IsEmpty;

TEST_F(CtlEscapeNeedleTest, ANeedleThatIsNotLitIsRecordedAsItIsKnownWhicheverIsSelected) {
    Show(3);
    lit = 0;
    rig.state.intManipulatorNumber = 0;
    for (const int needle : {0, 1, 2, 3}) {
        Needle(needle, {needle, 7, 8});
        Click(needle);
        EXPECT_EQ(Home(needle), (PositionXYZ{needle, 7, 8}));
    }
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(lit, 0);
}

TEST_F(CtlEscapeNeedleTest, ANeedleThatWasChosenAndNotReadSinceIsReadBeforeItIsRecorded) {
    Show(3);
    rig.state.intManipulatorNumber = 0;
    lit = atHardware = 2;
    Needle(2, {1, 1, 1});
    fresh = {21, 22, 23};
    Click(2);
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(Home(2), fresh);
    Click(2);
    EXPECT_EQ(reads, 1);
}

TEST_F(CtlEscapeNeedleTest, ANeedleThatIsLitAndNotAtTheHardwareIsNotRecordedAndNothingIsSaid) {
    rig.OpenCamera();
    Show(3);
    rig.state.intManipulatorNumber = 0;
    lit = 2;
    rig.journal.clear();
    Click(2);
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(Home(2), Unset);
    EXPECT_EQ(Texts(2), NoTexts);
    EXPECT_EQ(lit, 0) << "the lamp is where the hardware is";
    EXPECT_THAT(rig.journal, IsEmpty());
    Click(ObjectiveButton);
    EXPECT_EQ(reads, 1) << "the objective is nobody's";
}

}  // namespace
}  // namespace travo::test
