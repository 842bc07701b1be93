// The panels of the workbench's window: each button says one line of the text protocol.
#pragma once

#include <QGroupBox>
#include <functional>
#include <string>

#include "workbench/window/Ask.h"

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QPushButton;

namespace workbench {

// A large button; its objectName is its text.
QPushButton* LargeButton(QWidget& parent, const QString& text, std::function<void()> pressed);

// The joysticks of the needles: a needle, a step in counts, and the ways of the three axes.
class NeedlePanel : public QGroupBox {
public:
    explicit NeedlePanel(Ask ask);

private:
    void AddJog(QGridLayout& layout, const QString& text, int row, int column, int x, int y, int z);
    void Jog(int x, int y, int z);

    Ask ask_;
    QButtonGroup* needle_;
    QComboBox* step_;
};

// Mirror, magnification, focus and the gauge's key.
class OpticsPanel : public QGroupBox {
public:
    explicit OpticsPanel(Ask ask);

private:
    void AddMirror(QGridLayout& layout);
    void AddFocus(QGridLayout& layout);
    void AddCommand(QGridLayout& layout, const QString& text, int row, int column, const std::string& line);
    void JogMirror(int x, int y);
    void JogFocus(int sign);

    Ask ask_;
    QComboBox* mirrorStep_;
    QComboBox* focusStep_;
};

// The faults of the wires, one column each, and those of the driver. A lasting fault is a button that stays
// pressed in.
class FaultPanel : public QGroupBox {
public:
    explicit FaultPanel(Ask ask);

    // Presses in what is on, by the answer of "fault list".
    void Show(const std::string& faults);

private:
    void AddPress(QGridLayout& layout, const QString& text, int row, int column, const std::string& line);
    void AddSwitch(QGridLayout& layout, const QString& text, int row, int column, const std::string& fault,
                   const std::string& on, const std::string& off);
    void AddWire(QGridLayout& layout, int column, const std::string& wire);
    void AddMirror(QGridLayout& layout, int row);
    void AddMotorAndGauge(QGridLayout& layout, int row);
    void AddDriver(QGridLayout& layout, int column);

    Ask ask_;
};

}  // namespace workbench
