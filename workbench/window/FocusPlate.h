// Focus wheel, gauge and Ergo unit.
#pragma once

#include <QAction>
#include <string>

#include "workbench/window/BenchPlate.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/FocusWheel.h"
#include "workbench/window/Hand.h"
#include "workbench/window/HeldStep.h"
#include "workbench/window/NumberRead.h"
#include "workbench/window/Scene.h"

class QMenu;

namespace workbench {

class FocusPlate : public BenchPlate {
public:
    FocusPlate(Hand hand, QWidget* parent);

    void Show(const Scene& scene);

    // A key of the wheel goes down: upward or downward, fine for a tenth. It repeats until it is let go.
    void HoldWheel(bool upward, bool fine);
    void LetGo();

private:
    void AddFocus();
    void AddGauge();
    void AddErgo();
    void AddErgoLine(QMenu& menu, const QString& text, const std::string& line);
    void SayErgo(const std::string& line);
    void Jog(int counts);

    Hand hand_;
    HeldStep held_;
    FocusWheel* wheel_ = nullptr;
    NumberRead* z_ = nullptr;
    NumberRead* gauge_ = nullptr;
    BenchPush* zero_ = nullptr;
    BenchPush* more_ = nullptr;
    QMenu* menu_ = nullptr;
    QAction* together_ = nullptr;
};

// A reading in units of Z as the gauge's own display has it: "+00.123" for 123.
QString GaugeText(double reading);

}  // namespace workbench
