#include "workbench/window/FaultPlate.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <array>
#include <map>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/NeedleFlaws.h"

namespace workbench {

namespace {

constexpr std::array<const char*, FaultColumns> Groups{"Mirror", "", "Gauge", "Motor", "Needles", "Camera"};

}  // namespace

FaultPlate::FaultPlate(Hand hand, QWidget* parent)
    : BenchPlate(QStringLiteral("faultPlate"), QStringLiteral("Faults"), parent), hand_(std::move(hand)) {
    // Handlers keep references to them.
    chips_.reserve(Faults().size());
    for (const Fault& fault : Faults()) {
        AddChip(fault);
    }
    clear_ = new BenchPush({QStringLiteral("all_clear"), QStringLiteral("All clear"), QStringLiteral("Esc")},
                           QStringLiteral("All clear"), this);
    clear_->Clears();
    clear_->setEnabled(false);
    QObject::connect(clear_, &QAbstractButton::clicked, this, [this] { SayAllClear(); });
    Place();
}

void FaultPlate::AddChip(const Fault& fault) {
    auto* button = new FaultChip({fault.object, fault.name, {}}, fault.text, fault.Lasts(), this);
    chips_.push_back({&fault, button, FirstChoice(fault)});
    Chip& chip = chips_.back();
    QObject::connect(button, &QAbstractButton::clicked, this, [this, &chip] { Press(chip); });
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(button, &QWidget::customContextMenuRequested, this,
                     [this, &chip](const QPoint& place) { OpenMenu(chip, chip.button->mapToGlobal(place)); });
}

void FaultPlate::Press(Chip& chip) {
    if (!chip.fault->Lasts()) {
        chip.button->Flash();
    }
    const bool isOn = IsLit(*chip.fault, scene_);
    Say(isOn ? chip.fault->off : chip.chosen.on);
}

void FaultPlate::Say(const std::string& line) { hand_.say(ForNeedle(line, scene_.picked)); }

void FaultPlate::Choose(Chip& chip, const FaultChoice& choice) {
    chip.chosen = choice;
    if (!chip.fault->Lasts()) {
        chip.button->Flash();
    }
    Say(choice.on);
    ShowChip(chip);
}

void FaultPlate::OpenMenu(Chip& chip, const QPoint& place) {
    QMenu menu(this);
    FillMenu(menu, chip);
    if (!menu.isEmpty()) {
        menu.exec(place);
    }
}

void FaultPlate::FillMenu(QMenu& menu, Chip& chip) {
    std::map<QString, QMenu*> groups;
    for (const FaultChoice& choice : ChoicesOf(*chip.fault)) {
        QMenu* into = &menu;
        if (!choice.group.isEmpty()) {
            QMenu*& group = groups[choice.group];
            into = group = group == nullptr ? menu.addMenu(choice.group) : group;
        }
        QAction* const action = into->addAction(choice.menu);
        action->setCheckable(true);
        action->setChecked(choice.text == chip.chosen.text);
        QObject::connect(action, &QAction::triggered, this, [this, &chip, choice] { Choose(chip, choice); });
    }
    if (chip.fault->column == NeedleColumn) {
        menu.addSeparator();
        AddNeedleFlaws(menu, scene_, [this](const std::string& line) { hand_.say(line); });
    }
}

// Beside the chips: of the needles' column, what the picked needle may lack.
void FaultPlate::contextMenuEvent(QContextMenuEvent* event) {
    const int x = event->pos().x();
    if (x < ColumnX(NeedleColumn) || x >= ColumnX(CameraColumn)) {
        event->ignore();
        return;
    }
    QMenu menu(this);
    AddNeedleFlaws(menu, scene_, [this](const std::string& line) { hand_.say(line); });
    menu.exec(event->globalPos());
}

void FaultPlate::SayAllClear() {
    hand_.say("fault clear");
    hand_.say("fault mirror motors on");
}

void FaultPlate::Show(const Scene& scene) {
    scene_ = scene;
    for (const Chip& chip : chips_) {
        ShowChip(chip);
    }
    const int on = FaultsOn(scene);
    if (clear_->isEnabled() != (on > 0)) {
        clear_->setEnabled(on > 0);
    }
    clear_->ShowText(on > 0 ? QStringLiteral("All clear (%1)").arg(on) : QStringLiteral("All clear"));
}

void FaultPlate::ShowChip(const Chip& chip) const {
    const bool isOn = IsLit(*chip.fault, scene_);
    const QString left = isOn ? LeftText(*chip.fault, scene_) : QString();
    chip.button->ShowText(isOn && !left.isEmpty() ? chip.chosen.textIsOn : chip.chosen.text);
    chip.button->ShowOn(isOn, left);
    const bool isThere = chip.fault->column != CameraColumn || scene_.cameraRunning;
    if (chip.button->isEnabled() != isThere) {
        chip.button->setEnabled(isThere);
    }
}

void FaultPlate::ShowSmall(bool small, int chipWidth) {
    small_ = small;
    chipWidth_ = chipWidth;
    Place();
}

void FaultPlate::Place() {
    std::array<int, FaultColumns> rows{};
    const int top = small_ ? 46 : 52;
    const int pitch = small_ ? 23 : 27;
    for (const Chip& chip : chips_) {
        int& row = rows.at(static_cast<std::size_t>(chip.fault->column));
        chip.button->setGeometry(ColumnX(chip.fault->column), top + row * pitch, chipWidth_, pitch - 2);
        chip.button->TextPixels(small_ ? type::Fine : type::Small);
        ++row;
    }
    clear_->setGeometry(width() - 124, small_ ? 3 : 5, 112, small_ ? 24 : 28);
    std::vector<Caption> captions{{12, 22, QStringLiteral("Faults"), type::Caption, palette::Ink},
                                  {76, 21,
                                   small_ ? QStringLiteral("right-click for numbers")
                                          : QStringLiteral("one click each, right-click for other numbers"),
                                   type::Small, palette::Ink2, QFont::Normal}};
    for (int column = 0; column < FaultColumns; ++column) {
        captions.push_back({ColumnX(column) + 2.0, small_ ? 40.0 : 46.0,
                            QString::fromLatin1(Groups.at(static_cast<std::size_t>(column))), type::Small,
                            palette::Ink2});
    }
    Captions(std::move(captions));
}

void FaultPlate::resizeEvent(QResizeEvent*) { Place(); }

void FaultPlate::PaintMore(QPainter& painter) {
    painter.setPen(QPen(palette::Hair, 1));
    for (int column = 2; column < FaultColumns; ++column) {
        const double x = ColumnX(column) - 2.5;
        painter.drawLine(QPointF(x, small_ ? 30 : 36), QPointF(x, height() - 8));
    }
}

}  // namespace workbench
