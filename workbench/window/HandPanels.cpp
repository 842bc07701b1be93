#include "workbench/window/HandPanels.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <utility>

namespace workbench {

namespace {

constexpr int ButtonHeight = 40;
constexpr int NeedleButtons = 4;

QComboBox* StepBox(QWidget& parent, const QString& name, std::initializer_list<int> steps, int chosen) {
    auto* box = new QComboBox(&parent);
    box->setObjectName(name);
    box->setAccessibleName(name);
    box->setMinimumHeight(ButtonHeight);
    for (const int step : steps) {
        box->addItem(QString::number(step), step);
    }
    box->setCurrentIndex(box->findData(chosen));
    return box;
}

std::string Numbers(std::initializer_list<int> numbers) {
    std::string text;
    for (const int number : numbers) {
        text += " " + std::to_string(number);
    }
    return text;
}

}  // namespace

QPushButton* LargeButton(QWidget& parent, const QString& text, std::function<void()> pressed) {
    auto* button = new QPushButton(text, &parent);
    button->setObjectName(text);
    button->setMinimumHeight(ButtonHeight);
    QObject::connect(button, &QPushButton::clicked, button, [pressed = std::move(pressed)] { pressed(); });
    return button;
}

NeedlePanel::NeedlePanel(Ask ask)
    : QGroupBox(QStringLiteral("Needles")),
      ask_(std::move(ask)),
      needle_(new QButtonGroup(this)),
      step_(StepBox(*this, QStringLiteral("Needle step"), {1, 10, 100, 1000}, 100)) {
    auto* layout = new QGridLayout(this);
    for (int number = 1; number <= NeedleButtons; ++number) {
        QPushButton* button = LargeButton(*this, QStringLiteral("Needle %1").arg(number), [] {});
        button->setCheckable(true);
        button->setChecked(number == 1);
        needle_->addButton(button, number);
        layout->addWidget(button, (number - 1) / 2, (number - 1) % 2);
    }
    layout->addWidget(new QLabel(QStringLiteral("Step in counts"), this), 2, 0);
    layout->addWidget(step_, 2, 1);
    AddJog(*layout, QStringLiteral("Needle X -"), 3, 0, -1, 0, 0);
    AddJog(*layout, QStringLiteral("Needle X +"), 3, 1, 1, 0, 0);
    AddJog(*layout, QStringLiteral("Needle Y -"), 4, 0, 0, -1, 0);
    AddJog(*layout, QStringLiteral("Needle Y +"), 4, 1, 0, 1, 0);
    AddJog(*layout, QStringLiteral("Needle Z -"), 5, 0, 0, 0, -1);
    AddJog(*layout, QStringLiteral("Needle Z +"), 5, 1, 0, 0, 1);
    layout->setRowStretch(6, 1);
}

void NeedlePanel::AddJog(QGridLayout& layout, const QString& text, int row, int column, int x, int y, int z) {
    layout.addWidget(LargeButton(*this, text, [this, x, y, z] { Jog(x, y, z); }), row, column);
}

void NeedlePanel::Jog(int x, int y, int z) {
    const int step = step_->currentData().toInt();
    ask_("world jog" + Numbers({needle_->checkedId(), x * step, y * step, z * step}));
}

OpticsPanel::OpticsPanel(Ask ask)
    : QGroupBox(QStringLiteral("Mirror, magnification and focus")),
      ask_(std::move(ask)),
      mirrorStep_(StepBox(*this, QStringLiteral("Mirror step"), {1, 5, 20, 100}, 5)),
      focusStep_(StepBox(*this, QStringLiteral("Focus step"), {100, 1000, 10000, 100000}, 1000)) {
    auto* layout = new QGridLayout(this);
    AddMirror(*layout);
    AddFocus(*layout);
    layout->setRowStretch(6, 1);
}

void OpticsPanel::AddMirror(QGridLayout& layout) {
    layout.addWidget(new QLabel(QStringLiteral("Mirror step in counts"), this), 0, 0);
    layout.addWidget(mirrorStep_, 0, 1);
    const auto add = [&](const QString& text, int row, int column, int x, int y) {
        layout.addWidget(LargeButton(*this, text, [this, x, y] { JogMirror(x, y); }), row, column);
    };
    add(QStringLiteral("Mirror X -"), 1, 0, -1, 0);
    add(QStringLiteral("Mirror X +"), 1, 1, 1, 0);
    add(QStringLiteral("Mirror Y -"), 2, 0, 0, -1);
    add(QStringLiteral("Mirror Y +"), 2, 1, 0, 1);
    AddCommand(layout, QStringLiteral("Mirror centre"), 0, 2, "mirror move 0 0");
    AddCommand(layout, QStringLiteral("Mirror motors on"), 1, 2, "mirror motors on");
    AddCommand(layout, QStringLiteral("Mirror motors off"), 2, 2, "mirror motors off");
    AddCommand(layout, QStringLiteral("0.35x"), 3, 0, "magnification 1");
    AddCommand(layout, QStringLiteral("2x"), 3, 1, "magnification 2");
    AddCommand(layout, QStringLiteral("4x"), 3, 2, "magnification 3");
}

void OpticsPanel::AddFocus(QGridLayout& layout) {
    layout.addWidget(new QLabel(QStringLiteral("Focus step in counts"), this), 4, 0);
    layout.addWidget(focusStep_, 4, 1);
    layout.addWidget(LargeButton(*this, QStringLiteral("Focus up"), [this] { JogFocus(1); }), 5, 0);
    layout.addWidget(LargeButton(*this, QStringLiteral("Focus down"), [this] { JogFocus(-1); }), 5, 1);
    AddCommand(layout, QStringLiteral("Focus stop"), 4, 2, "focus jog 0");
    AddCommand(layout, QStringLiteral("Gauge zero"), 5, 2, "gauge zero");
}

void OpticsPanel::AddCommand(QGridLayout& layout, const QString& text, int row, int column,
                             const std::string& line) {
    layout.addWidget(LargeButton(*this, text, [this, line] { ask_(line); }), row, column);
}

void OpticsPanel::JogMirror(int x, int y) {
    const int step = mirrorStep_->currentData().toInt();
    ask_("mirror jog" + Numbers({x * step, y * step}));
}

void OpticsPanel::JogFocus(int sign) {
    ask_("focus jog" + Numbers({sign * focusStep_->currentData().toInt()}));
}

FaultPanel::FaultPanel(Ask ask) : QGroupBox(QStringLiteral("Faults")), ask_(std::move(ask)) {
    auto* layout = new QGridLayout(this);
    AddWire(*layout, 0, "mirror");
    AddWire(*layout, 1, "gauge");
    AddWire(*layout, 2, "motor");
    AddMirror(*layout, 7);
    AddMotorAndGauge(*layout, 7);
    AddDriver(*layout, 3);
    layout->setRowStretch(layout->rowCount(), 1);
}

void FaultPanel::Show(const std::string& faults) {
    const std::string list = faults + " ";
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (button->isCheckable()) {
            const std::string fault = " " + button->property("fault").toString().toStdString() + " ";
            button->setChecked(list.find(fault) != std::string::npos);
        }
    }
}

void FaultPanel::AddPress(QGridLayout& layout, const QString& text, int row, int column,
                          const std::string& line) {
    layout.addWidget(LargeButton(*this, text, [this, line] { ask_(line); }), row, column);
}

void FaultPanel::AddSwitch(QGridLayout& layout, const QString& text, int row, int column,
                           const std::string& fault, const std::string& on, const std::string& off) {
    auto* button = LargeButton(*this, text, [] {});
    button->setCheckable(true);
    button->setProperty("fault", QString::fromStdString(fault));
    QObject::connect(button, &QPushButton::clicked, button,
                     [this, on, off](bool pressedIn) { ask_(pressedIn ? on : off); });
    layout.addWidget(button, row, column);
}

void FaultPanel::AddWire(QGridLayout& layout, int column, const std::string& wire) {
    const QString name = QString::fromStdString(wire);
    const std::string fault = "fault " + wire;
    const auto text = [&](const QString& what) { return QStringLiteral("%1 %2").arg(name, what); };
    layout.addWidget(new QLabel(name, this), 0, column);
    AddSwitch(layout, text(QStringLiteral("silent")), 1, column, wire + ":silent", fault + " silent on",
              fault + " silent off");
    AddSwitch(layout, text(QStringLiteral("cable out")), 2, column, wire + ":vanished", fault + " vanish",
              fault + " return");
    AddPress(layout, text(QStringLiteral("noise")), 3, column, fault + " noise 20");
    AddPress(layout, text(QStringLiteral("garble 1 line")), 4, column, fault + " garble 1");
    AddPress(layout, text(QStringLiteral("cut next line")), 5, column, fault + " cut 4");
    AddPress(layout, text(QStringLiteral("flood")), 6, column, fault + " flood 500");
}

void FaultPanel::AddMirror(QGridLayout& layout, int row) {
    AddPress(layout, QStringLiteral("mirror error"), row, 0, "fault mirror error 8");
    AddPress(layout, QStringLiteral("mirror 7 fields"), row + 1, 0, "fault mirror fields 7");
    AddSwitch(layout, QStringLiteral("mirror at limit"), row + 2, 0, "mirror:limit",
              "fault mirror limit x on", "fault mirror limit x off");
    AddPress(layout, QStringLiteral("Ergo RZ1000"), row + 1, 2, "ergo RZ1000");
    AddPress(layout, QStringLiteral("Ergo in one piece"), row + 2, 2, "ergo together RZ1000");
}

void FaultPanel::AddMotorAndGauge(QGridLayout& layout, int row) {
    AddSwitch(layout, QStringLiteral("gauge garbage"), row, 1, "gauge:garbage", "fault gauge garbage on",
              "fault gauge garbage off");
    AddPress(layout, QStringLiteral("motor refuses"), row, 2, "fault motor refuse 1");
}

void FaultPanel::AddDriver(QGridLayout& layout, int column) {
    layout.addWidget(new QLabel(QStringLiteral("driver"), this), 0, column);
    AddSwitch(layout, QStringLiteral("driver fails"), 1, column, "fail", "fault driver fail always",
              "fault driver fail off");
    AddSwitch(layout, QStringLiteral("driver hangs 3 s"), 2, column, "hang", "fault driver hang 3",
              "fault driver hang off");
    AddSwitch(layout, QStringLiteral("3 needles"), 3, column, "count", "fault count 3", "fault count 4");
    AddSwitch(layout, QStringLiteral("out of range"), 4, column, "range", "fault range 1", "fault range off");
    AddPress(layout, QStringLiteral("needle 2 at hardware"), 5, column, "hardware select 2");
    AddPress(layout, QStringLiteral("Clear all faults"), 6, column, "fault clear");
}

}  // namespace workbench
