// The escape panel on instruments that stand ready. The test is the panel's owner, and what reads the
// needles.
#pragma once

#include <gmock/gmock.h>

#include <QTest>

#include "core/state/NeedleReader.h"
#include "support/PanelRig.h"
#include "workflows/CtlEscape.h"

namespace travo::test {

inline const QString NotSet = QStringLiteral("N/A");
inline constexpr int ObjectiveButton = 4;

class CtlEscapeRig : public ::testing::Test, private CtlEscape::Owner, private NeedleReader {
protected:
    CtlEscapeRig() {
        panel.resize(486, 520);
        panel.show();
        rig.OpenPorts();
    }

    template <class Control>
    Control& Find(const QString& name) {
        return *panel.findChild<Control*>(name);
    }
    NumberLabel& Label(int needle, int axis) {
        return Find<NumberLabel>(QStringLiteral("lblEscPos(%1)").arg(needle * 3 + axis));
    }
    NumberLabel& ObjectiveLabel() { return Find<NumberLabel>(QStringLiteral("lblEscZPos")); }
    usrKVButton& Button(int index) {
        return Find<usrKVButton>(QStringLiteral("usrKVButton1(%1)").arg(index));
    }
    void Click(int index) { QTest::mouseClick(&Button(index), Qt::LeftButton); }

    void Show(std::int16_t highest) {
        rig.state.intTotalManipulatorNumber = highest;
        panel.Shown();
    }
    void Needle(std::int32_t needle, const PositionXYZ& tip) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.state.Needle(needle, axis, tip[static_cast<std::size_t>(axis)]);
        }
    }
    PositionXYZ Home(std::int32_t needle) const {
        return {rig.escape.NeedleEscape(needle, 0), rig.escape.NeedleEscape(needle, 1),
                rig.escape.NeedleEscape(needle, 2)};
    }
    QStringList Texts(int needle) {
        return {Label(needle, 0).text(), Label(needle, 1).text(), Label(needle, 2).text()};
    }
    // The zero moves to the present Z, as from another panel.
    void Zero(std::int32_t z) {
        rig.state.StoreZeroXYZ(2, z);
        panel.ChangeZeroPosition();
    }
    std::string Connected() {
        std::string connected;
        for (int needle = 0; needle < NeedleCount; ++needle) {
            const bool enabled = Button(needle).Enabled();
            for (int axis = 0; axis < AxisCount; ++axis) {
                EXPECT_EQ(!Label(needle, axis).isHidden(), enabled) << needle << axis;
            }
            connected += enabled ? static_cast<char>('1' + needle) : '-';
        }
        return connected;
    }

    static constexpr PositionXYZ Unset{NoPositionValue, NoPositionValue, NoPositionValue};

    bool IsLit(std::int16_t needle) const override { return needle == lit; }
    void TakeLampsFrom(std::int16_t needle) override {
        EXPECT_EQ(needle, lit);
        lit = rig.state.intManipulatorNumber;
    }
    bool ManipulatorReload() override {
        ++reads;
        rig.state.intManipulatorNumber = atHardware;
        Needle(atHardware, fresh);
        return true;
    }

    // The needle that is lit elsewhere, the one that the hardware has selected, and where that one stands.
    std::int16_t lit = -1;
    std::int16_t atHardware = 0;
    PositionXYZ fresh{};
    int reads = 0;
    PanelRig rig;
    CtlEscape panel{{rig.state, rig.communication, rig.escape, rig.live, *this, *this}, rig.ProgramFolder()};
};

inline const QStringList NoTexts{NotSet, NotSet, NotSet};

}  // namespace travo::test
