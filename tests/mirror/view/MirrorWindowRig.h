// The instruments and the owner's part for the pad and the two small windows: what the mirror controller
// reports is told on in the owner's order.
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QDialog>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "core/view/FormSkinned.h"
#include "support/PanelRig.h"

namespace travo::test {

// The folder that holds the folder skin.
inline QString SkinHome() { return QStringLiteral(SKIN_HOME); }

// On an area of the pad's picture of 165 by 165, by number; 0 is beside the wheel.
inline QPoint PadPoint(int area) {
    static constexpr std::array<QPoint, 18> Points{{{3, 3},
                                                    {82, 15},
                                                    {130, 35},
                                                    {150, 82},
                                                    {130, 130},
                                                    {82, 150},
                                                    {35, 130},
                                                    {15, 82},
                                                    {35, 35},
                                                    {82, 45},
                                                    {108, 56},
                                                    {120, 82},
                                                    {108, 108},
                                                    {82, 120},
                                                    {56, 108},
                                                    {45, 82},
                                                    {56, 56},
                                                    {82, 82}}};
    return Points.at(static_cast<std::size_t>(area));
}

class MirrorPanelRig : public PanelRig {
public:
    std::function<void(std::int16_t)> magnificationTold;

private:
    void MagnificationChanged(std::int16_t magnification) override {
        if (magnificationTold) {
            magnificationTold(magnification);
        }
    }
};

// A MessageBoxes-like modal window that shuts off what lies behind.
class ModalBox : public QDialog {
public:
    ModalBox() {
        setModal(true);
        show();
    }
};

class MirrorWindowRig : public ::testing::Test, protected FormSkinned::Owner, protected WindowMove {
protected:
    MirrorWindowRig() { rig.state.CurrentXY(0, 0); }

    void FormClose(std::int32_t Index) override { closed.push_back(Index); }
    void Start(QWidget&) override { ++moves; }

    // What has gone out on all wires since the last call, in its order, as in "1 cD1A10": port and command.
    std::vector<std::string> TakeSent() {
        std::vector<std::string> sent;
        for (const std::string& entry : rig.journal) {
            if (const auto arrow = entry.find(" > "); arrow != std::string::npos) {
                sent.push_back(entry.substr(5, arrow - 5) + " " + entry.substr(arrow + 3));
                EXPECT_EQ(sent.back().back(), '\r');
                sent.back().pop_back();
            }
        }
        rig.journal.clear();
        return sent;
    }
    using Sent = std::vector<std::string>;

    static QAccessibleActionInterface& Actions(QWidget& control) {
        return *QAccessible::queryAccessibleInterface(&control)->actionInterface();
    }

    void ExpectPlace(QWidget& window, const QString& name, const QRect& place) {
        auto* const control = window.findChild<QWidget*>(name);
        ASSERT_NE(control, nullptr) << name.toStdString();
        EXPECT_EQ(QRect(control->mapTo(&window, QPoint(0, 0)), control->size()), place) << name.toStdString();
    }

    // A press beside all controls, in the window of that size.
    static void PressAt(QWidget& window, const QPoint& place) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
    }

    // CLOSE tells the owner the window's number and leaves the hiding to it.
    void ExpectCloseTells(FormSkinned& window, std::int32_t number) {
        window.ShowWindow();
        QTest::mouseClick(window.findChild<QWidget*>(QStringLiteral("usrKVButton1(0)")), Qt::LeftButton);
        EXPECT_EQ(closed, std::vector<std::int32_t>{number});
        EXPECT_FALSE(window.isHidden());
    }
    static void ExpectSizeBringsBack(FormSkinned& window, const QSize& design) {
        window.ShowWindow();
        window.resize(500, 180);
        QTest::mouseClick(window.findChild<QWidget*>(QStringLiteral("usrKVButton1(1)")), Qt::LeftButton);
        EXPECT_EQ(window.size(), design);
    }
    // Drags the lower right corner of a window of that size until it is twice as large.
    static void DragToTwice(FormSkinned& window, const QSize& design) {
        window.ShowWindow();
        const QPoint twice(2 * design.width(), 2 * design.height());
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                          QPoint(design.width() - 1, design.height() - 1));
        QTest::mouseMove(window.windowHandle(), twice);
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, twice);
        EXPECT_EQ(window.size(), 2 * design);
        const auto* const title = window.findChild<QWidget*>(QStringLiteral("Image1"));
        EXPECT_EQ(title->geometry(), QRect(0, 0, twice.x(), 32)) << "the strip keeps its height";
    }

    MirrorPanelRig rig;
    std::vector<std::int32_t> closed;
    int moves = 0;
};

}  // namespace travo::test
