#include "workbench/window/JoystickPlate.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchIcon.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

// Where a parked needle stands: 3000 units back along its shaft.
constexpr const char* ParkPlace = " 9500 12500 12500";
constexpr std::array<char, 3> Axes{'X', 'Y', 'Z'};

QString Axis(std::size_t index) { return QString(QLatin1Char(Axes.at(index))); }

}  // namespace

JoystickPlate::JoystickPlate(Hand hand, std::function<void(int)> pick, QWidget* parent)
    : BenchPlate(QStringLiteral("joystickPlate"), QStringLiteral("Joystick"), parent),
      hand_(std::move(hand)),
      pick_(std::move(pick)) {
    Captions({{12, 22, QStringLiteral("Joystick"), type::Caption, palette::Ink},
              {214, 95, QStringLiteral("Step in counts"), type::Small, palette::Ink2},
              {12, 212, QStringLiteral("Counts"), type::Button, palette::Ink2},
              {12, 238, QStringLiteral("Common"), type::Button, palette::Ink2}});
    AddBar();
    AddNeedles();
    AddWays();
    AddSteps();
    AddNumbers();
}

void JoystickPlate::AddBar() {
    asNew_ = new BenchPush({QStringLiteral("asNew"), QStringLiteral("As new"), {}}, QStringLiteral("As new"),
                           this);
    asNew_->setGeometry(77, 5, 46, 24);
    asNew_->TextPixels(type::Fine);
    asNew_->setToolTip(QStringLiteral("Writes calibrations and settings anew, while no port is open"));
    QObject::connect(asNew_, &QAbstractButton::clicked, this, [this] { hand_.say("as-new"); });
    auto* park = new BenchPush({QStringLiteral("park"), QStringLiteral("Park"), QStringLiteral("P")},
                               QStringLiteral("Park"), this);
    park->setGeometry(126, 5, 58, 24);
    QObject::connect(park, &QAbstractButton::clicked, this,
                     [this] { hand_.say("world move " + std::to_string(picked_) + ParkPlace); });
    key_ = new BenchSwitch({QStringLiteral("key"), QStringLiteral("Select at hardware"), QStringLiteral("H")},
                           QStringLiteral("Select at hardware"), this);
    key_->setGeometry(190, 5, 150, 24);
    key_->TextPixels(type::Small);
    QObject::connect(key_, &QAbstractButton::clicked, this,
                     [this] { hand_.say("hardware select " + std::to_string(picked_)); });
}

void JoystickPlate::AddNeedles() {
    for (int number = 1; number <= 4; ++number) {
        const QString digit = QString::number(number);
        auto* button = new BenchSwitch(
            {QStringLiteral("pick") + digit, QStringLiteral("Needle ") + digit, digit}, digit, this);
        button->setGeometry(12 + 84 * (number - 1), 34, 76, 40);
        button->Lit(palette::NeedleColour(number));
        button->Draw([this, number](QPainter& painter, const QPointF& middle, const QColor& ink) {
            PaintNeedleButton(painter, middle, ink, number);
        });
        QObject::connect(button, &QAbstractButton::clicked, this, [this, number] { pick_(number); });
        needles_.at(static_cast<std::size_t>(number - 1)) = button;
    }
}

void JoystickPlate::PaintNeedleButton(QPainter& painter, const QPointF& middle, const QColor& ink,
                                      int number) const {
    const BenchSwitch& button = *needles_.at(static_cast<std::size_t>(number - 1));
    PaintNeedle(painter, middle - QPointF(17, 0), 22, ink,
                button.isEnabled() ? palette::NeedleColour(number) : palette::OffFace);
    Write(painter, {QString::number(number), middle + QPointF(8, 8.2), TextFont(type::Digit, QFont::Bold),
                    ink, Anchor::Middle});
    if (number == selected_) {
        PaintKey(painter, QPointF(button.width() - 11, 10), 12,
                 number == picked_ ? QColor(Qt::white) : palette::Ink, palette::SimTag);
    }
}

void JoystickPlate::AddWays() {
    AddWay({QStringLiteral("xPlus"), QStringLiteral("X plus"), QStringLiteral("Up")}, QStringLiteral("X+"), 0,
           {52, 82, 52, 34}, {1, 0, 0});
    AddWay({QStringLiteral("xMinus"), QStringLiteral("X minus"), QStringLiteral("Down")},
           QStringLiteral("X−"), 180, {52, 154, 52, 34}, {-1, 0, 0});
    AddWay({QStringLiteral("yPlus"), QStringLiteral("Y plus"), QStringLiteral("Right")}, QStringLiteral("Y+"),
           90, {92, 118, 52, 34}, {0, 1, 0});
    AddWay({QStringLiteral("yMinus"), QStringLiteral("Y minus"), QStringLiteral("Left")},
           QStringLiteral("Y−"), 270, {12, 118, 52, 34}, {0, -1, 0});
    // Z counts downward.
    AddHeight({QStringLiteral("zUp"), QStringLiteral("Z up"), QStringLiteral("Page Up")},
              QStringLiteral("Z up"), 0, {154, 82, 50, 52}, {0, 0, -1});
    AddHeight({QStringLiteral("zDown"), QStringLiteral("Z down"), QStringLiteral("Page Down")},
              QStringLiteral("Z down"), 180, {154, 136, 50, 52}, {0, 0, 1});
}

void JoystickPlate::AddWay(const ControlName& name, const QString& text, double degrees, const QRect& place,
                           const std::array<int, 3>& way) {
    auto* button = new BenchPush(name, text, this);
    button->setGeometry(place);
    button->Draw([text, degrees](QPainter& painter, const QPointF& middle, const QColor& ink) {
        PaintChevron(painter, middle - QPointF(10, 0), 17, degrees, ink);
        Write(painter, {text, middle + QPointF(11, 4.5), TextFont(type::Button, QFont::DemiBold), ink,
                        Anchor::Middle, 24});
    });
    HoldWay(*button, way);
}

void JoystickPlate::AddHeight(const ControlName& name, const QString& text, double degrees,
                              const QRect& place, const std::array<int, 3>& way) {
    auto* button = new BenchPush(name, text, this);
    button->setGeometry(place);
    button->Draw([text, degrees](QPainter& painter, const QPointF& middle, const QColor& ink) {
        const bool isUp = degrees == 0;
        PaintChevron(painter, middle + QPointF(0, isUp ? -8 : 9), 20, degrees, ink);
        Write(painter, {text, middle + QPointF(0, isUp ? 15 : -7), TextFont(type::Fine, QFont::DemiBold), ink,
                        Anchor::Middle, 46});
    });
    HoldWay(*button, way);
}

void JoystickPlate::HoldWay(BenchPush& button, const std::array<int, 3>& way) {
    QObject::connect(&button, &QAbstractButton::pressed, this, [this, way] {
        held_.Begin(
            [this, way] {
                std::string line = "world jog " + std::to_string(picked_);
                for (const int axis : way) {
                    line += ' ' + std::to_string(axis * Step());
                }
                hand_.say(line);
            },
            [this] { return HasArrived(); });
    });
    QObject::connect(&button, &QAbstractButton::released, this, [this] { held_.End(); });
}

// "ok" and 1 or 0 for each needle.
bool JoystickPlate::HasArrived() const {
    constexpr std::size_t First = 3;
    const std::string answer = hand_.ask("world moving");
    const std::size_t place = First + 2 * static_cast<std::size_t>(picked_ - 1);
    return place >= answer.size() || answer[place] == '0';
}

void JoystickPlate::AddSteps() {
    constexpr std::array<QRect, 4> Places{QRect(214, 102, 28, 30), QRect(244, 102, 28, 30),
                                          QRect(274, 102, 30, 30), QRect(306, 102, 34, 30)};
    for (std::size_t step = 0; step < Steps.size(); ++step) {
        const QString counts = QString::number(Steps.at(step));
        steps_.at(step) = new BenchSegment(
            {QStringLiteral("step") + counts, QStringLiteral("Step ") + counts, QStringLiteral("[, ]")},
            counts, this);
        steps_.at(step)->setGeometry(Places.at(step));
        QObject::connect(steps_.at(step), &QAbstractButton::clicked, this, [this, step] { Latch(step); });
    }
    fine_ = new BenchSwitch({QStringLiteral("fine"), QStringLiteral("Fine"), QStringLiteral("Shift")},
                            QStringLiteral("Fine"), this);
    fine_->setGeometry(214, 142, 126, 46);
    fine_->TextPixels(type::Number);
    QObject::connect(fine_, &QAbstractButton::clicked, this, [this] {
        isFine_ = !isFine_;
        ShowFine();
    });
    Latch(step_);
}

void JoystickPlate::AddNumbers() {
    for (std::size_t axis = 0; axis < Axes.size(); ++axis) {
        const int x = 74 + 90 * static_cast<int>(axis);
        counts_.at(axis) = new NumberRead(QStringLiteral("counts") + Axis(axis),
                                          QStringLiteral("Counts ") + Axis(axis), Axis(axis), this);
        counts_.at(axis)->setGeometry(x, 196, 86, 23);
        common_.at(axis) = new NumberRead(QStringLiteral("common") + Axis(axis),
                                          QStringLiteral("Common ") + Axis(axis), Axis(axis), this);
        common_.at(axis)->setGeometry(x, 222, 86, 23);
    }
}

int JoystickPlate::Step() const {
    const int step = Steps.at(step_);
    return isFine_ || shift_ ? std::max(1, step / 10) : step;
}

void JoystickPlate::HoldShift(bool held) {
    if (shift_ != held) {
        shift_ = held;
        ShowFine();
    }
}

void JoystickPlate::Longer() { Latch(std::min(step_ + 1, Steps.size() - 1)); }

void JoystickPlate::Shorter() { Latch(step_ == 0 ? 0 : step_ - 1); }

void JoystickPlate::LetGo() { held_.End(); }

void JoystickPlate::Latch(std::size_t step) {
    step_ = step;
    for (std::size_t other = 0; other < Steps.size(); ++other) {
        steps_.at(other)->ShowLatched(other == step);
    }
    ShowFine();
}

void JoystickPlate::ShowFine() {
    fine_->ShowLatched(isFine_ || shift_);
    fine_->ShowSecondLine(QStringLiteral("or hold Shift: %1").arg(std::max(1, Steps.at(step_) / 10)));
}

void JoystickPlate::Show(const Scene& scene) {
    const bool marksChange = picked_ != scene.picked || selected_ != scene.selected;
    if (picked_ != scene.picked) {
        // What was held was held for another needle.
        held_.End();
    }
    picked_ = scene.picked;
    selected_ = scene.selected;
    for (int number = 1; number <= 4; ++number) {
        ShowNeedle(number, scene);
        if (marksChange) {
            needles_.at(static_cast<std::size_t>(number - 1))->update();
        }
    }
    ShowBar(scene);
    const Place& tip = scene.PickedNeedle().tip;
    const std::array<double, 3> counts{scene.counts.x, scene.counts.y, scene.counts.z};
    const std::array<double, 3> common{tip.x, tip.y, tip.z};
    for (std::size_t axis = 0; axis < Axes.size(); ++axis) {
        counts_.at(axis)->Show(NumberText(counts.at(axis), 0));
        common_.at(axis)->Show(NumberText(common.at(axis), 1));
    }
}

void JoystickPlate::ShowNeedle(int number, const Scene& scene) {
    BenchSwitch& button = *needles_.at(static_cast<std::size_t>(number - 1));
    button.ShowLatched(number == picked_);
    if (button.isEnabled() != scene.Needle(number).connected) {
        button.setEnabled(scene.Needle(number).connected);
    }
    const QString description = number == selected_ ? QStringLiteral("selected at the hardware") : QString();
    if (button.accessibleDescription() != description) {
        button.setAccessibleDescription(description);
    }
}

void JoystickPlate::ShowBar(const Scene& scene) {
    const bool isSelected = picked_ == selected_;
    key_->ShowText(isSelected ? QStringLiteral("Selected at hardware")
                              : QStringLiteral("Select at hardware"));
    key_->ShowLatched(isSelected);
    if (asNew_->isEnabled() != AllShut(scene)) {
        asNew_->setEnabled(AllShut(scene));
    }
}

}  // namespace workbench
