// Where the controls of the cell position panel stand.
#include <gtest/gtest.h>

#include "experiment/view/CtlCellPosition.h"
#include "support/PanelRig.h"

namespace travo::test {
namespace {

class NoOwner : public CtlCellPosition::Owner {
    void ZeroPointReset() override {}
    void ChangeCellXYZ(std::int16_t, const PositionXYZ&) override {}
};

class CtlCellPositionLayoutTest : public ::testing::Test {
protected:
    void Expect(const QString& control, const QRect& place, const QString& skin = {}) {
        const auto* const found = panel.findChild<QWidget*>(control);
        ASSERT_NE(found, nullptr) << control.toStdString();
        EXPECT_EQ(found->geometry(), QRect(place.topLeft() * scale, place.size() * scale))
            << control.toStdString();
        if (const auto* const button = qobject_cast<const SkinButton*>(found)) {
            EXPECT_EQ(button->path(), skin);
        } else if (const auto* const image = qobject_cast<const SkinImage*>(found)) {
            EXPECT_EQ(image->path(), skin);
        }
    }

    void ExpectAll() {
        Expect(QStringLiteral("usrKVCheckButton2"), {12, 12, 462, 52}, QStringLiteral("CellPosSelect"));
        Expect(QStringLiteral("imgCellPos(0)"), {24, 108, 56, 282}, QStringLiteral("cellletters-0"));
        Expect(QStringLiteral("imgCellPos(1)"), {24, 108, 56, 282}, QStringLiteral("cellletters-1"));
        for (int row = 0; row < 4; ++row) {
            Expect(QStringLiteral("usrKVButton1(%1)").arg(row), {376, 108 + 74 * row, 86, 60},
                   QStringLiteral("SET"));
        }
        Expect(QStringLiteral("usrKVButton1(4)"), {376, 430, 86, 60}, QStringLiteral("RESET"));
        Expect(QStringLiteral("txtCellZPos"), {280, 430, 84, 60});
        for (int i = 0; i < 24; ++i) {
            Expect(QStringLiteral("lblCellPos(%1)").arg(i),
                   {84 + 96 * (i % 3), 108 + 74 * (i / 3 % 4), 92, 60});
        }
    }

    PanelRig rig;
    NoOwner owner;
    int scale = 1;
    CtlCellPosition panel{{rig.state, rig.communication, rig.live, owner}, rig.ProgramFolder()};
};

TEST_F(CtlCellPositionLayoutTest, EveryControlStandsInItsPlace) {
    panel.resize(486, 520);
    panel.show();
    ExpectAll();
}

TEST_F(CtlCellPositionLayoutTest, EveryControlScalesWithThePanelAlsoOneThatIsHidden) {
    scale = 2;
    panel.resize(972, 1040);
    panel.show();
    ExpectAll();
}

}  // namespace
}  // namespace travo::test
