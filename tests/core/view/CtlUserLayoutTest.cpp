// Where the controls of the user panel stand, and by which names they are known.
#include "CtlUserBench.h"

namespace travo::test {
namespace {

struct Row {
    const char* control;
    QRect place;
    const char* skin;
    const char* name;
};

const std::array<Row, 14> Rows{{
    {"txtOffset(0)", {120, 40, 116, 48}, "", "XY offset"},
    {"txtOffset(1)", {120, 96, 116, 48}, "", "Z offset"},
    {"lblMinVal", {280, 96, 84, 48}, "", "Minimum Z offset"},
    {"usrKVButton1", {376, 40, 86, 104}, "SET", "Apply offsets"},
    {"usrKVCheckButton2(0)", {134, 194, 104, 48}, "ONOFF", "Offset minimum off"},
    {"usrKVCheckButton2(1)", {358, 194, 104, 48}, "ONOFF", "Contact check off"},
    {"usrKVCheckButton3(0)", {24, 292, 215, 48}, "UserMode1", "Tab mode"},
    {"usrKVCheckButton3(1)", {247, 292, 215, 48}, "UserMode2", "Step mode"},
    {"usrKVCheckButton1(0)", {24, 390, 82, 76}, "CtlUserWindow1", "Camera window"},
    {"usrKVCheckButton1(1)", {113, 390, 82, 76}, "CtlUserWindow2", "Bird's-eye window"},
    {"usrKVCheckButton1(2)", {202, 390, 82, 76}, "CtlUserWindow3", "Mirror window"},
    {"usrKVCheckButton1(3)", {291, 390, 82, 76}, "CtlUserWindow4", "Needle window"},
    {"usrKVCheckButton1(4)", {380, 390, 82, 76}, "CtlUserWindow5", "Magnification window"},
    {"lblVersion", {262, 482, 200, 24}, "", "Version"},
}};

TEST_F(CtlUserPanel, EveryControlStandsInItsPlaceUnderItsNameAndScalesWithThePanel) {
    for (const int scale : {1, 2}) {
        Panel().resize(486 * scale, 520 * scale);
        for (const Row& row : Rows) {
            const auto& control = Find<QWidget>(QLatin1String(row.control));
            EXPECT_EQ(control.geometry(), QRect(row.place.topLeft() * scale, row.place.size() * scale))
                << row.control;
            const bool isLabel = qobject_cast<const NumberLabel*>(&control) != nullptr;
            EXPECT_EQ(isLabel ? control.accessibleDescription() : control.accessibleName(),
                      QLatin1String(row.name));
            if (const auto* const button = qobject_cast<const SkinButton*>(&control)) {
                EXPECT_EQ(button->path(), QLatin1String(row.skin));
                EXPECT_EQ(button->inipath(), rig.ProgramFolder());
                EXPECT_FALSE(button->toolTip().isEmpty());
            }
        }
    }
}

}  // namespace
}  // namespace travo::test
