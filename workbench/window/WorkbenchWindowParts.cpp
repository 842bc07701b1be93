// How the window is made up, and where its parts stand.
#include <QPainter>

#include "workbench/window/BenchTab.h"
#include "workbench/window/DarkFrame.h"
#include "workbench/window/DepthStrip.h"
#include "workbench/window/FaultPlate.h"
#include "workbench/window/FocusLine.h"
#include "workbench/window/FocusPlate.h"
#include "workbench/window/FocusWheel.h"
#include "workbench/window/HeaderStrip.h"
#include "workbench/window/JoystickPlate.h"
#include "workbench/window/LessonCard.h"
#include "workbench/window/MirrorPad.h"
#include "workbench/window/MirrorPlate.h"
#include "workbench/window/ScorePlate.h"
#include "workbench/window/TrafficPlate.h"
#include "workbench/window/TruthLine.h"
#include "workbench/window/TruthTools.h"
#include "workbench/window/TruthView.h"
#include "workbench/window/WorkbenchWindow.h"

namespace workbench {

// In the order in which Tab walks through them.
void WorkbenchWindow::MakeParts() {
    parts_.header = new HeaderStrip([this] { SwitchCard(); }, this);
    parts_.card = new LessonCard({[this] { SwitchCard(); }, [this] { parts_.plan->Look(); },
                                  [this] {
                                      lesson_.Again();
                                      Refresh();
                                  }},
                                 this);
    MakePlan();
    MakeTabs();
    MakePlates();
    WatchFocus();
}

void WorkbenchWindow::MakePlan() {
    const Ask say = [this](const std::string& line) { return SayFromPlan(line); };
    parts_.tools = new TruthTools([this](PlanFollow follow) { parts_.plan->Follow(follow); },
                                  [this](double factor) { parts_.plan->Zoom(factor); }, this);
    TruthNews news;
    news.picked = [this](int needle) { Pick(needle); };
    news.pointer = [this](const QStringList& parts) { parts_.line->ShowPointer(parts); };
    news.told = [this](const QString& text) { parts_.line->Tell(text); };
    news.follows = [this](PlanFollow follow) { parts_.tools->ShowFollow(follow); };
    news.scale = [this](double scale) { parts_.line->ShowScale(scale); };
    parts_.line = new TruthLine(this);
    parts_.plan = new TruthView(say, news, this);
    parts_.heights = new DepthStrip(
        say, [this](int needle) { Pick(needle); }, this);
    parts_.frame = new DarkFrame(this);
    parts_.score = new ScorePlate([this](const std::string& line) { return Say(line); }, this);
    parts_.tools->ShowFollow(parts_.plan->Follows());
}

void WorkbenchWindow::MakeTabs() {
    parts_.joystickTab = new BenchTab({QStringLiteral("tab_joystick"), QStringLiteral("Joystick, focus"), {}},
                                      QStringLiteral("Joystick, focus"), this);
    parts_.mirrorTab = new BenchTab({QStringLiteral("tab_mirror"), QStringLiteral("Mirror, objective"), {}},
                                    QStringLiteral("Mirror, objective"), this);
    QObject::connect(parts_.joystickTab, &QAbstractButton::clicked, this, [this] { ShowTab(false); });
    QObject::connect(parts_.mirrorTab, &QAbstractButton::clicked, this, [this] { ShowTab(true); });
}

void WorkbenchWindow::MakePlates() {
    const Hand hand{[this](const std::string& line) { return Say(line); }, ask_};
    parts_.joystick = new JoystickPlate(
        hand, [this](int needle) { Pick(needle); }, this);
    parts_.mirror = new MirrorPlate(hand, this);
    parts_.focus = new FocusPlate(hand, this);
    parts_.traffic = new TrafficPlate(this);
    parts_.faults = new FaultPlate(hand, this);
}

// Plan and heights bear a line of their own inside their edge.
void WorkbenchWindow::WatchFocus() {
    parts_.focusLine = new FocusLine(*this);
    for (BenchButton* button : findChildren<BenchButton*>()) {
        parts_.focusLine->Watch(*button);
    }
    for (const char* name : {"pad", "wheel"}) {
        parts_.focusLine->Watch(*findChild<QWidget*>(QString::fromLatin1(name)));
    }
}

void WorkbenchWindow::Place() {
    const WorkbenchLayout layout = LayOut(size(), kept_.isCardShown);
    parts_.header->setGeometry(layout.header);
    parts_.header->ShowSmall(layout.small);
    parts_.header->ShowCard(kept_.isCardShown);
    parts_.card->setVisible(kept_.isCardShown);
    if (kept_.isCardShown) {
        parts_.card->setGeometry(layout.card);
        parts_.card->ShowSmall(layout.small);
    }
    parts_.tools->setGeometry(layout.bar);
    parts_.plan->setGeometry(layout.plan);
    parts_.heights->setGeometry(layout.heights);
    parts_.line->setGeometry(layout.line);
    parts_.line->SetHeightsWidth(layout.heights.width());
    parts_.frame->setGeometry(layout.bar.united(layout.line));
    parts_.score->setGeometry(layout.score);
    PlaceColumn(layout);
    parts_.traffic->setGeometry(layout.traffic);
    parts_.traffic->ShowSmall(layout.small);
    parts_.faults->setGeometry(layout.faults);
    parts_.faults->ShowSmall(layout.small, layout.chipWidth);
}

void WorkbenchWindow::PlaceColumn(const WorkbenchLayout& layout) {
    const bool hasTabs = layout.HasTabs();
    const int half = layout.tabs.width() / 2;
    parts_.joystickTab->setGeometry(QRect(layout.tabs.topLeft(), QSize(half, layout.tabs.height())));
    parts_.mirrorTab->setGeometry(QRect(layout.tabs.topLeft() + QPoint(half, 0),
                                        QSize(layout.tabs.width() - half, layout.tabs.height())));
    parts_.joystickTab->setVisible(hasTabs);
    parts_.mirrorTab->setVisible(hasTabs);
    parts_.joystickTab->ShowLatched(!isMirrorTab_);
    parts_.mirrorTab->ShowLatched(isMirrorTab_);
    parts_.joystick->setGeometry(layout.joystick);
    parts_.mirror->setGeometry(layout.mirror);
    parts_.focus->setGeometry(layout.focus);
    parts_.joystick->setVisible(!hasTabs || !isMirrorTab_);
    parts_.focus->setVisible(!hasTabs || !isMirrorTab_);
    parts_.mirror->setVisible(!hasTabs || isMirrorTab_);
}

void WorkbenchWindow::resizeEvent(QResizeEvent*) { Place(); }

}  // namespace workbench
