// The workbench's window: a second seat beside the program, where the truth is seen and worked by hand.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <string>

#include "workbench/window/Ask.h"
#include "workbench/window/Hand.h"
#include "workbench/window/Lesson.h"
#include "workbench/window/Scene.h"
#include "workbench/window/WindowKeys.h"
#include "workbench/window/WindowMemory.h"
#include "workbench/window/WindowParts.h"
#include "workbench/window/WorkbenchLayout.h"

namespace workbench {

// It reads how everything stands, hands it to all its plates, and says their lines. No plate knows another.
class WorkbenchWindow : public QWidget {
public:
    // ms between two readings: while anything moves, the pointer holds something or traffic came; and else.
    static constexpr int QuickPeriod = 40;
    static constexpr int SlowPeriod = 150;

    // All it does and shows goes through `ask`.
    explicit WorkbenchWindow(Ask ask, WindowMemory memory = WindowMemory::OfUser());
    ~WorkbenchWindow() override;

    // One reading, shown by all plates. Called by itself at the period while the window can be seen.
    void Refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Open();
    void MakeParts();
    void MakePlan();
    void MakePlates();
    void MakeTabs();
    void WatchFocus();
    // Says a line of the operator's hand: a refusal is shown, and everything is read at once.
    std::string Say(const std::string& line);
    // The same for a hand on the plan, which says many: the next reading comes soon.
    std::string SayFromPlan(const std::string& line);
    void ShowRefusal(const std::string& answer);
    void Pick(int needle);
    void SwitchCard();
    void ShowTab(bool mirror);
    void Place();
    void PlaceColumn(const WorkbenchLayout& layout);
    void ReadAgainIn(int milliseconds);
    void ShowLesson();
    void DoKey(const WindowKey& key, bool fine);
    void LetKeyGo();
    void LetAllGo();
    void Keep();
    bool MayClose();

    Ask ask_;
    WindowMemory memory_;
    WindowMemory::Kept kept_;
    Scene scene_;
    Lesson lesson_;
    QElapsedTimer clock_;
    QTimer timer_;
    WindowParts parts_;
    bool isMirrorTab_ = false;
    int heldKey_ = 0;
    WindowKey held_;
};

}  // namespace workbench
