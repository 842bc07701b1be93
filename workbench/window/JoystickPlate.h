// The joystick: which needle, its steps along its axes, and where it stands.
#pragma once

#include <QPoint>
#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "workbench/window/BenchPlate.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/BenchSegment.h"
#include "workbench/window/BenchSwitch.h"
#include "workbench/window/Hand.h"
#include "workbench/window/HeldStep.h"
#include "workbench/window/NumberRead.h"
#include "workbench/window/Scene.h"

namespace workbench {

class JoystickPlate : public BenchPlate {
public:
    // `pick` chooses a needle, 1 to 4, for joystick, plan and keys.
    JoystickPlate(Hand hand, std::function<void(int)> pick, QWidget* parent);

    void Show(const Scene& scene);

    // The step of a jog in counts: what is latched, or a tenth of it, at least 1, while Fine is on or Shift
    // is held.
    int Step() const;
    // The Shift key went down or up.
    void HoldShift(bool held);
    // The next longer or shorter step, as far as there is one.
    void Longer();
    void Shorter();
    // Ends what is held.
    void LetGo();

private:
    static constexpr std::array<int, 4> Steps{1, 10, 100, 1000};

    void AddNeedles();
    void AddWays();
    void AddWay(const ControlName& name, const QString& text, double degrees, const QRect& place,
                const std::array<int, 3>& way);
    void AddHeight(const ControlName& name, const QString& text, double degrees, const QRect& place,
                   const std::array<int, 3>& way);
    void HoldWay(BenchPush& button, const std::array<int, 3>& way);
    void AddSteps();
    void AddNumbers();
    void AddBar();
    void Latch(std::size_t step);
    void ShowFine();
    void ShowNeedle(int number, const Scene& scene);
    void ShowBar(const Scene& scene);
    bool HasArrived() const;
    void PaintNeedleButton(QPainter& painter, const QPointF& middle, const QColor& ink, int number) const;

    Hand hand_;
    std::function<void(int)> pick_;
    std::array<BenchSwitch*, 4> needles_{};
    std::array<BenchSegment*, 4> steps_{};
    std::array<NumberRead*, 3> counts_{};
    std::array<NumberRead*, 3> common_{};
    BenchSwitch* fine_ = nullptr;
    BenchSwitch* key_ = nullptr;
    BenchPush* asNew_ = nullptr;
    HeldStep held_;
    std::size_t step_ = 2;
    bool isFine_ = false;
    bool shift_ = false;
    int picked_ = 1;
    int selected_ = 1;
};

}  // namespace workbench
