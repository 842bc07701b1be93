// Where every control of the plates stands, what people call it and which key works it.
#include <gtest/gtest.h>

#include <QRect>
#include <QTemporaryDir>
#include <tuple>
#include <vector>

#include "workbench/commands/Bench.h"
#include "workbench/window/BenchAccess.h"
#include "workbench/window/FaultTable.h"
#include "workbench/window/WorkbenchWindow.h"

namespace workbench::test {

namespace {

struct Control {
    const char* plate;
    const char* object;
    QRect place;  // from the plate's corner, in a window of 1280 x 860
    const char* name;
    const char* keys;
};

const std::vector<Control> Controls{
    {"joystickPlate", "park", {126, 5, 58, 24}, "Park", "P"},
    {"joystickPlate", "key", {190, 5, 150, 24}, "Select at hardware", "H"},
    {"joystickPlate", "pick1", {12, 34, 76, 40}, "Needle 1", "1"},
    {"joystickPlate", "pick2", {96, 34, 76, 40}, "Needle 2", "2"},
    {"joystickPlate", "pick3", {180, 34, 76, 40}, "Needle 3", "3"},
    {"joystickPlate", "pick4", {264, 34, 76, 40}, "Needle 4", "4"},
    {"joystickPlate", "xPlus", {52, 82, 52, 34}, "X plus", "Up"},
    {"joystickPlate", "yMinus", {12, 118, 52, 34}, "Y minus", "Left"},
    {"joystickPlate", "yPlus", {92, 118, 52, 34}, "Y plus", "Right"},
    {"joystickPlate", "xMinus", {52, 154, 52, 34}, "X minus", "Down"},
    {"joystickPlate", "zUp", {154, 82, 50, 52}, "Z up", "Page Up"},
    {"joystickPlate", "zDown", {154, 136, 50, 52}, "Z down", "Page Down"},
    {"joystickPlate", "step1", {214, 102, 28, 30}, "Step 1", "[, ]"},
    {"joystickPlate", "step10", {244, 102, 28, 30}, "Step 10", "[, ]"},
    {"joystickPlate", "step100", {274, 102, 30, 30}, "Step 100", "[, ]"},
    {"joystickPlate", "step1000", {306, 102, 34, 30}, "Step 1000", "[, ]"},
    {"joystickPlate", "fine", {214, 142, 126, 46}, "Fine", "Shift"},
    {"joystickPlate", "countsX", {74, 196, 86, 23}, "Counts X", ""},
    {"joystickPlate", "countsY", {164, 196, 86, 23}, "Counts Y", ""},
    {"joystickPlate", "countsZ", {254, 196, 86, 23}, "Counts Z", ""},
    {"joystickPlate", "commonX", {74, 222, 86, 23}, "Common X", ""},
    {"joystickPlate", "commonY", {164, 222, 86, 23}, "Common Y", ""},
    {"joystickPlate", "commonZ", {254, 222, 86, 23}, "Common Z", ""},
    {"mirrorPlate", "pad", {12, 38, 132, 132}, "Mirror pad", ""},
    {"mirrorPlate", "mirrorX", {174, 38, 58, 24}, "Mirror X", ""},
    {"mirrorPlate", "mirrorY", {174, 66, 58, 24}, "Mirror Y", ""},
    {"mirrorPlate", "limitX", {156, 96, 36, 24}, "Limit X", ""},
    {"mirrorPlate", "limitY", {196, 96, 36, 24}, "Limit Y", ""},
    {"mirrorPlate", "motors", {156, 126, 76, 44}, "Mirror motors", ""},
    {"mirrorPlate", "mag1", {244, 38, 96, 30}, "Objective 0.35x", "Ctrl+1"},
    {"mirrorPlate", "mag2", {244, 72, 96, 30}, "Objective 2x", "Ctrl+2"},
    {"mirrorPlate", "mag3", {244, 106, 96, 30}, "Objective 4x", "Ctrl+3"},
    {"mirrorPlate", "mag0", {244, 140, 96, 30}, "Objective between", "Ctrl+0"},
    {"focusPlate", "wheel", {12, 26, 124, 34}, "Focus wheel", "Ctrl+Page Up, Ctrl+Page Down"},
    {"focusPlate", "focusZ", {12, 64, 76, 26}, "Focus Z", ""},
    {"focusPlate", "halt", {92, 64, 44, 26}, "Stop focus", ""},
    {"focusPlate", "gauge", {148, 26, 88, 34}, "Gauge", ""},
    {"focusPlate", "zero", {148, 64, 88, 26}, "Gauge zero", ""},
    {"focusPlate", "ergoUp", {248, 26, 44, 34}, "Ergo up", ""},
    {"focusPlate", "ergoDown", {296, 26, 44, 34}, "Ergo down", ""},
    {"focusPlate", "ergoMore", {248, 64, 92, 26}, "Ergo unit, more", ""},
    {"trafficPlate", "show_mirror", {76, 6, 62, 24}, "Show mirror", ""},
    {"trafficPlate", "show_gauge", {142, 6, 62, 24}, "Show gauge", ""},
    {"trafficPlate", "show_motor", {208, 6, 62, 24}, "Show motor", ""},
    {"trafficPlate", "show_driver", {274, 6, 62, 24}, "Show driver", ""},
    {"trafficPlate", "traffic_pause", {419, 6, 60, 24}, "Pause traffic", "Ctrl+P"},
    {"trafficPlate", "traffic_copy", {483, 6, 58, 24}, "Copy traffic", "Ctrl+C"},
    {"trafficPlate", "traffic_clear", {545, 6, 60, 24}, "Clear traffic", ""},
};

class ControlTableTest : public ::testing::Test {
protected:
    QWidget& Part(const QString& name) {
        auto* const part = window.findChild<QWidget*>(name);
        EXPECT_NE(part, nullptr) << name.toStdString();
        return *part;
    }

    Bench bench;
    QTemporaryDir folder;
    WorkbenchWindow window{
        [this](const std::string& line) { return bench.commands.Answer(line, std::chrono::seconds(1)); },
        WindowMemory(folder.filePath(QStringLiteral("window.ini")))};
};

}  // namespace

TEST_F(ControlTableTest, EveryControlStandsWhereTheTableSaysAndBearsItsNameAndKey) {
    window.resize(1280, 860);
    window.show();
    for (const auto& [plate, object, place, name, keys] : Controls) {
        QWidget& control = Part(QString::fromLatin1(object));
        EXPECT_EQ(control.parentWidget()->objectName().toStdString(), plate) << object;
        EXPECT_EQ(control.geometry(), place) << object;
        EXPECT_EQ(control.accessibleName().toStdString(), name) << object;
        EXPECT_EQ(dynamic_cast<Told&>(control).AccessibleKeys().toStdString(), keys) << object;
    }
}

TEST_F(ControlTableTest, ChipsStandInSixColumnsLowerInASmallWindow) {
    window.show();
    for (const auto& [size, width, top, pitch] :
         {std::tuple{QSize(1280, 860), 97, 52, 27}, std::tuple{QSize(1024, 700), 84, 46, 23}}) {
        window.resize(size);
        std::vector<int> rows(FaultColumns, 0);
        for (const Fault& fault : Faults()) {
            int& row = rows.at(static_cast<std::size_t>(fault.column));
            EXPECT_EQ(Part(fault.object).geometry(),
                      QRect(12 + fault.column * (width + 5), top + row * pitch, width, pitch - 2))
                << fault.object.toStdString();
            ++row;
        }
    }
    window.resize(1280, 860);
    EXPECT_EQ(Part(QStringLiteral("all_clear")).geometry(), QRect(631 - 124, 5, 112, 28));
}

}  // namespace workbench::test
