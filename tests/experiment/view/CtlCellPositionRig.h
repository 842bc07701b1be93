// The cell position panel on a machine of stand-ins, worked by the mouse; the test is the owner.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>

#include "experiment/view/CtlCellPosition.h"
#include "support/PanelRig.h"

namespace travo::test {

inline const QString NotSet = QStringLiteral("N/A");
constexpr int ResetButton = 4;

// The panel with the test as its owner, who makes the present Z the zero as the position loop does.
class CtlCellPositionRig : public ::testing::Test, private CtlCellPosition::Owner {
protected:
    CtlCellPositionRig() {
        panel.resize(486, 520);
        panel.show();
        rig.OpenPorts();
        panel.Shown();
    }

    template <class Control>
    Control& Find(const QString& name) {
        return *panel.findChild<Control*>(name);
    }
    NumberLabel& Label(int index) { return Find<NumberLabel>(QStringLiteral("lblCellPos(%1)").arg(index)); }
    usrKVButton& Button(int index) {
        return Find<usrKVButton>(QStringLiteral("usrKVButton1(%1)").arg(index));
    }
    usrKVCheckButton& PageSwitch() { return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton2")); }
    SkinImage& Letters(int page) { return Find<SkinImage>(QStringLiteral("imgCellPos(%1)").arg(page)); }

    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    void SetRow(int row) { Click(Button(row)); }
    void View(std::int32_t x, std::int32_t y, std::int32_t z) {
        rig.state.CurrentXY(x, y);
        rig.state.CurrentXYZ(2, z);
    }

    QStringList Texts(int first, int count) {
        QStringList texts;
        for (int index = first; index < first + count; ++index) {
            texts << Label(index).text();
        }
        return texts;
    }
    PositionXYZ Cell(std::int32_t cell) const {
        return {rig.state.CellPosition(cell, 0), rig.state.CellPosition(cell, 1),
                rig.state.CellPosition(cell, 2)};
    }
    void ExpectPage(bool second) {
        EXPECT_EQ(!Letters(0).isHidden(), !second);
        EXPECT_EQ(!Letters(1).isHidden(), second);
        for (int index = 0; index < 24; ++index) {
            EXPECT_EQ(!Label(index).isHidden(), (index >= 12) == second) << index;
        }
    }

    void ZeroPointReset() override {
        rig.journal.push_back("ZeroPointReset");
        rig.state.StoreZeroXYZ(2, rig.state.CurrentXYZ(2));
        panel.ChangeZeroPosition();
    }

    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) override {
        rig.journal.push_back("ChangeCellXYZ " + std::to_string(Index) + ": " + std::to_string(CellXYZ[0]) +
                              " " + std::to_string(CellXYZ[1]) + " " + std::to_string(CellXYZ[2]));
    }

    static constexpr PositionXYZ Unset{NoPositionValue, NoPositionValue, NoPositionValue};
    const QStringList NoTexts{NotSet, NotSet, NotSet};

    PanelRig rig;
    CtlCellPosition panel{{rig.state, rig.communication, rig.live, *this}, rig.ProgramFolder()};
};

}  // namespace travo::test
