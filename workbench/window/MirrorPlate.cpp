#include "workbench/window/MirrorPlate.h"

#include <algorithm>
#include <string>
#include <utility>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

struct Objective {
    int index;
    const char* name;
    const char* text;
};
// From the top.
constexpr std::array<Objective, 4> Objectives{{{1, "Objective 0.35x", "0.35×"},
                                               {2, "Objective 2x", "2×"},
                                               {3, "Objective 4x", "4×"},
                                               {0, "Objective between", "between"}}};

// A flag that a fault holds up, wherever the mirror stands.
bool IsHeldUp(const Scene& scene, const char* fault) {
    return std::find(scene.faults.begin(), scene.faults.end(), fault) != scene.faults.end();
}

}  // namespace

MirrorPlate::MirrorPlate(Hand hand, QWidget* parent)
    : BenchPlate(QStringLiteral("mirrorPlate"), QStringLiteral("Mirror and objective"), parent),
      hand_(std::move(hand)) {
    Captions({{12, 22, QStringLiteral("Mirror"), type::Caption, palette::Ink},
              {244, 22, QStringLiteral("Objective"), type::Button, palette::Ink2},
              {160, 54.5, QStringLiteral("X"), type::Button, palette::Ink2},
              {160, 82.5, QStringLiteral("Y"), type::Button, palette::Ink2}});
    AddMirror();
    AddObjectives();
}

void MirrorPlate::AddMirror() {
    pad_ = new MirrorPad([this](int area) { PressPad(area); }, this);
    pad_->setGeometry(12, 38, 132, 132);
    x_ = new NumberRead(QStringLiteral("mirrorX"), QStringLiteral("Mirror X"), {}, this);
    x_->setGeometry(174, 38, 58, 24);
    y_ = new NumberRead(QStringLiteral("mirrorY"), QStringLiteral("Mirror Y"), {}, this);
    y_->setGeometry(174, 66, 58, 24);
    limitX_ =
        new LampRead(QStringLiteral("limitX"), QStringLiteral("Limit X"), QStringLiteral("lim X"), this);
    limitX_->setGeometry(156, 96, 36, 24);
    limitY_ =
        new LampRead(QStringLiteral("limitY"), QStringLiteral("Limit Y"), QStringLiteral("lim Y"), this);
    limitY_->setGeometry(196, 96, 36, 24);
    motors_ = new BenchSwitch({QStringLiteral("motors"), QStringLiteral("Mirror motors"), {}},
                              QStringLiteral("Motors"), this);
    motors_->setGeometry(156, 126, 76, 44);
    QObject::connect(motors_, &QAbstractButton::clicked, this,
                     [this] { hand_.say(motors_->isChecked() ? "mirror motors off" : "mirror motors on"); });
}

void MirrorPlate::AddObjectives() {
    int y = 38;
    for (const auto& [index, name, text] : Objectives) {
        const QString number = QString::number(index);
        auto* button = new BenchSwitch(
            {QStringLiteral("mag") + number, QString::fromLatin1(name), QStringLiteral("Ctrl+") + number},
            QString::fromUtf8(text), this);
        button->setGeometry(244, y, 96, 30);
        button->TextPixels(index == 0 ? type::Small : type::Number);
        QObject::connect(button, &QAbstractButton::clicked, this,
                         [this, index = index] { hand_.say("magnification " + std::to_string(index)); });
        objectives_.at(static_cast<std::size_t>(index)) = button;
        y += 34;
    }
}

void MirrorPlate::PressPad(int area) {
    if (area == PadMiddle) {
        hand_.say("mirror move 0 0");
        return;
    }
    const PadWay way = PadWayOf(area);
    hand_.say("mirror jog " + std::to_string(way.x) + ' ' + std::to_string(way.y));
}

void MirrorPlate::Show(const Scene& scene) {
    x_->Show(NumberText(scene.mirror.now.x(), 0));
    y_->Show(NumberText(scene.mirror.now.y(), 0));
    limitX_->Show(scene.mirror.limitX || IsHeldUp(scene, "mirror:limitx"));
    limitY_->Show(scene.mirror.limitY || IsHeldUp(scene, "mirror:limity"));
    motors_->ShowLatched(scene.mirror.motorsOn);
    motors_->ShowSecondLine(scene.mirror.motorsOn ? QStringLiteral("on") : QStringLiteral("off"));
    if (pad_->isEnabled() != scene.mirror.motorsOn) {
        pad_->setEnabled(scene.mirror.motorsOn);
    }
    for (std::size_t index = 0; index < objectives_.size(); ++index) {
        objectives_.at(index)->ShowLatched(static_cast<int>(index) == scene.magnification);
    }
}

}  // namespace workbench
