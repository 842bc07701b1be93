// Where the controls of the user panel stand.
#include "CtlUserRig.h"

namespace travo::test {
namespace {

class CtlUserLayoutTest : public CtlUserRig {};

struct Row {
    const char* control;
    QRect place;
    const char* skin;
};

const std::array<Row, 14> Rows{{
    {"txtOffset(0)", {120, 40, 116, 48}, ""},
    {"txtOffset(1)", {120, 96, 116, 48}, ""},
    {"lblMinVal", {280, 96, 84, 48}, ""},
    {"usrKVButton1", {376, 40, 86, 104}, "SET"},
    {"usrKVCheckButton2(0)", {134, 194, 104, 48}, "ONOFF"},
    {"usrKVCheckButton2(1)", {358, 194, 104, 48}, "ONOFF"},
    {"usrKVCheckButton3(0)", {24, 292, 215, 48}, "UserMode1"},
    {"usrKVCheckButton3(1)", {247, 292, 215, 48}, "UserMode2"},
    {"usrKVCheckButton1(0)", {24, 390, 82, 76}, "CtlUserWindow1"},
    {"usrKVCheckButton1(1)", {113, 390, 82, 76}, "CtlUserWindow2"},
    {"usrKVCheckButton1(2)", {202, 390, 82, 76}, "CtlUserWindow3"},
    {"usrKVCheckButton1(3)", {291, 390, 82, 76}, "CtlUserWindow4"},
    {"usrKVCheckButton1(4)", {380, 390, 82, 76}, "CtlUserWindow5"},
    {"lblVersion", {262, 482, 200, 24}, ""},
}};

TEST_F(CtlUserLayoutTest, EveryControlStandsInItsPlaceAndScalesWithThePanel) {
    for (const int scale : {1, 2}) {
        Panel().resize(486 * scale, 520 * scale);
        for (const Row& row : Rows) {
            const auto& control = Find<QWidget>(QLatin1String(row.control));
            EXPECT_EQ(control.geometry(), QRect(row.place.topLeft() * scale, row.place.size() * scale))
                << row.control;
            if (const auto* const button = qobject_cast<const SkinButton*>(&control)) {
                EXPECT_EQ(button->path(), QLatin1String(row.skin));
                EXPECT_EQ(button->inipath(), rig.ProgramFolder());
            }
        }
    }
}

}  // namespace
}  // namespace travo::test
