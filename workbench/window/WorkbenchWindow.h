// The workbench's window: works the simulated instruments by hand and shows how they stand.
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "workbench/window/HandPanels.h"

namespace workbench {

class WorkbenchWindow : public QWidget {
public:
    static constexpr int RefreshPeriod = 250;  // ms

    // All it does and shows goes through this.
    explicit WorkbenchWindow(Ask ask);

    // Shows everything as it stands. Called by itself at the period.
    void Refresh();

private:
    // Carries a press out, and says what became of it.
    std::string Press(const std::string& line);
    QWidget* StatePanel();

    Ask ask_;
    FaultPanel* faults_ = nullptr;
    QLabel* answer_ = nullptr;
    std::vector<std::pair<std::string, QLabel*>> states_;  // the command that asks, and its value
    QTimer refresh_;
};

}  // namespace workbench
