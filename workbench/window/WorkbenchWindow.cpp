#include "workbench/window/WorkbenchWindow.h"

#include <QFormLayout>
#include <QGridLayout>
#include <algorithm>
#include <array>

namespace workbench {

namespace {

constexpr std::size_t OkLength = 3;  // "ok" and a blank
// Of a long list, as of crossings, the beginning is enough.
constexpr std::size_t LongestState = 120;

struct Row {
    const char* text;
    const char* command;
};
constexpr std::array<Row, 15> Rows = {{{"Needle 1 (tip X Y Z, at rest)", "world tip 1"},
                                       {"Needle 2", "world tip 2"},
                                       {"Needle 3", "world tip 3"},
                                       {"Needle 4", "world tip 4"},
                                       {"Crossings", "world crossings"},
                                       {"View centre (now, at rest)", "world view"},
                                       {"Mirror (x y, at rest, motors, limits)", "mirror state"},
                                       {"Magnification (index)", "magnification"},
                                       {"Focus (Z, at rest, counts)", "focus state"},
                                       {"Gauge (reading, zero)", "gauge state"},
                                       {"Wires (port, cable, open)", "wire list"},
                                       {"Received by the mirror", "wire counters mirror"},
                                       {"Received by the gauge", "wire counters gauge"},
                                       {"Received by the motor", "wire counters motor"},
                                       {"Faults", "fault list"}}};

}  // namespace

WorkbenchWindow::WorkbenchWindow(Ask ask) : ask_(std::move(ask)) {
    setWindowTitle(QStringLiteral("WORKBENCH"));
    auto* heading =
        new QLabel(QStringLiteral("WORKBENCH: simulated instruments, nothing here is real"), this);
    heading->setStyleSheet(QStringLiteral("font-size: 22px; font-weight: bold; color: #b00000"));
    answer_ = new QLabel(this);
    answer_->setTextFormat(Qt::PlainText);
    answer_->setObjectName(QStringLiteral("answer"));
    const auto press = [this](const std::string& line) { return Press(line); };
    faults_ = new FaultPanel(press);
    auto* layout = new QGridLayout(this);
    layout->addWidget(heading, 0, 0, 1, 3);
    layout->addWidget(new NeedlePanel(press), 1, 0);
    layout->addWidget(new OpticsPanel(press), 1, 1);
    layout->addWidget(faults_, 1, 2, 2, 1);
    layout->addWidget(StatePanel(), 2, 0, 1, 2);
    layout->addWidget(answer_, 3, 0, 1, 3);
    QObject::connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
    refresh_.start(RefreshPeriod);
    Refresh();
}

void WorkbenchWindow::Refresh() {
    for (const auto& [command, label] : states_) {
        const std::string answer = ask_(command);
        const bool good = answer.starts_with("ok");
        label->setText(QString::fromStdString(
            good ? answer.substr(std::min(answer.size(), OkLength), LongestState) : "-"));
    }
    faults_->Show(ask_("fault list"));
}

std::string WorkbenchWindow::Press(const std::string& line) {
    std::string answer = ask_(line);
    answer_->setText(QString::fromStdString(line + ": " + answer));
    Refresh();
    return answer;
}

QWidget* WorkbenchWindow::StatePanel() {
    auto* panel = new QGroupBox(QStringLiteral("As it stands"));
    auto* layout = new QFormLayout;
    panel->setLayout(layout);
    for (const Row& row : Rows) {
        auto* value = new QLabel(panel);
        value->setTextFormat(Qt::PlainText);
        value->setObjectName(QString::fromLatin1(row.command));
        value->setWordWrap(true);
        value->setMinimumWidth(360);
        layout->addRow(QString::fromLatin1(row.text), value);
        states_.emplace_back(row.command, value);
    }
    return panel;
}

}  // namespace workbench
