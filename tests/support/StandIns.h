// Stand-ins for what the system asks of the machine. Every call that matters is written to one
// journal, so that a test can compare the order of calls to different parts of the machine.
#pragma once

#include <QStringList>
#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"
#include "platform/ManipulatorDriver.h"
#include "platform/MessageBoxes.h"
#include "platform/Pointer.h"
#include "platform/SingleInstance.h"
#include "support/BoxTable.h"

namespace travo::test {

using Journal = std::vector<std::string>;

class FakeBoxes : public platform::MessageBoxes {
public:
    struct Box {
        QString text;
        platform::BoxButtons buttons;
        platform::BoxIcon icon;
        platform::BoxOpening opening{};
    };

    explicit FakeBoxes(Journal& journal) : journal_(journal) {}

    platform::BoxAnswer Show(const QString& text, platform::BoxButtons buttons,
                             platform::BoxIcon icon) override {
        return ShowSo(text, buttons, icon, {});
    }
    platform::BoxAnswer ShowSo(const QString& text, platform::BoxButtons buttons, platform::BoxIcon icon,
                               const platform::BoxOpening& opening) override {
        ExpectAsInTheTable(text, buttons, icon, opening);
        shown.push_back({text, buttons, icon, opening});
        journal_.push_back("box " + text.toStdString());
        if (whileShown) {
            whileShown();
        }
        if (buttons == platform::BoxButtons::OK || answers.empty()) {
            return platform::BoxAnswer::OK;
        }
        const platform::BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    QStringList Texts() const {
        QStringList texts;
        for (const Box& box : shown) {
            texts << box.text;
        }
        return texts;
    }

    std::vector<Box> shown;
    std::deque<platform::BoxAnswer> answers;  // for boxes with a choice; OK when there are none left
    std::function<void()> whileShown;         // runs inside the box, as its event loop would

private:
    Journal& journal_;
};

// Time moves only when somebody waits, or when the test says so.
class FakeClock : public platform::Clock {
public:
    std::int64_t TickCount() const override { return ticks; }
    QDateTime Now() const override { return now; }
    void Sleep(std::int64_t milliseconds) override {
        ticks += milliseconds;
        slept += milliseconds;
        ++sleeps;
        longestSleep = std::max(longestSleep, milliseconds);
    }

    std::int64_t ticks = 1000;
    std::int64_t slept = 0;
    std::int64_t longestSleep = 0;
    int sleeps = 0;
    QDateTime now{QDate(2008, 7, 3), QTime(14, 5, 33)};
};

class FakeEventLoop : public platform::EventLoop {
public:
    explicit FakeEventLoop(FakeClock& clock) : clock_(clock) {}

    void Serve() override {
        ++served;
        RunWhileServed();
    }
    void ServeUntilEventOr(std::int64_t milliseconds) override {
        ++served;
        clock_.ticks += std::min(milliseconds, eventAfter);
        RunWhileServed();
    }
    void Queue(std::function<void()> procedure) override { queued.push_back(std::move(procedure)); }
    void QueueAfterWaits(std::function<void()> procedure) override { queued.push_back(std::move(procedure)); }
    bool Waiting() const override { return waiting; }
    bool EndAsked() const override { return endAsked; }
    void BeginStandStill() override { standsStill = true; }
    void EndStandStill() override {
        standsStill = false;
        ++standStills;
    }
    void RunQueued() {
        while (!queued.empty()) {
            auto procedure = std::move(queued.front());
            queued.pop_front();
            procedure();
        }
    }

    bool waiting = false;
    bool endAsked = false;
    std::int64_t eventAfter = INT64_MAX;  // milliseconds after which an event ends a wait
    int served = 0;
    bool standsStill = false;
    int standStills = 0;                // that are over
    std::function<void()> whileServed;  // runs inside each wait that serves events
    std::deque<std::function<void()>> queued;

private:
    void RunWhileServed() {
        if (whileServed) {
            whileServed();
        }
    }

    FakeClock& clock_;
};

class FakePointer : public platform::Pointer {
public:
    void Screen(platform::PointerShape shape) override { screen.push_back(shape); }
    void MainWindow(platform::PointerShape shape) override { mainWindow.push_back(shape); }

    std::vector<platform::PointerShape> screen;
    std::vector<platform::PointerShape> mainWindow;
};

class FakeTimer : public platform::Timer {
public:
    explicit FakeTimer(std::function<void()> tick) : tick_(std::move(tick)) {}
    void Interval(int milliseconds) override { interval = milliseconds; }
    void Enabled(bool on) override { enabled = on; }
    bool Enabled() const override { return enabled; }
    // One period goes by; nothing happens while the timer is off.
    void Fire() {
        if (enabled) {
            tick_();
        }
    }

    int interval = 0;
    bool enabled = false;

private:
    std::function<void()> tick_;
};

class FakeTimers : public platform::Timers {
public:
    std::unique_ptr<platform::Timer> Create(std::function<void()> tick) override {
        auto timer = std::make_unique<FakeTimer>(std::move(tick));
        created.push_back(timer.get());
        return timer;
    }

    std::vector<FakeTimer*> created;  // owned by whoever asked for them
};

// What stands behind the driver: four manipulators, one of them selected.
struct FakeDriverState {
    bool libraryMissing = false;
    std::int32_t count = 4;
    std::int32_t selected = 1;
    std::int32_t selectAnswer = 1;
    std::array<std::array<std::int32_t, 3>, 5> position{};  // by number minus 1
    std::set<std::string> failing;                          // names of operations that fail
    bool throwsNumbers = false;                             // what a failing one throws is no failure of ours
    std::function<void(const std::string&)> whileCalled;    // runs inside each operation
    std::vector<std::array<std::int32_t, 3>> moves;
    int created = 0;
    int released = 0;
};

class FakeDriver : public platform::ManipulatorDriver {
public:
    FakeDriver(FakeDriverState& state, Journal& journal) : state_(state), journal_(journal) {}
    ~FakeDriver() override {
        ++state_.released;
        journal_.push_back("driver released");
    }

    Position DriverGetPosition() override {
        Enter("DriverGetPosition");
        return {state_.selected, state_.position.at(static_cast<std::size_t>(state_.selected - 1))};
    }
    void DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) override {
        Enter("DriverMoveTo");
        state_.moves.push_back({x, y, z});
        state_.position.at(static_cast<std::size_t>(state_.selected - 1)) = {x, y, z};
    }
    std::int32_t DriverSelect(std::int32_t number) override {
        Enter("DriverSelect", std::string(" ").append(std::to_string(number)));
        if (number >= 1 && number <= state_.count) {
            state_.selected = number;
        }
        return state_.selectAnswer;
    }
    std::int32_t DriverGetCount() override {
        Enter("DriverGetCount");
        return state_.count;
    }
    void DriverReconnect() override { Enter("DriverReconnect"); }

private:
    void Enter(const std::string& operation, const std::string& argument = {}) {
        journal_.push_back(operation + argument);
        if (state_.whileCalled) {
            state_.whileCalled(operation);
        }
        if (state_.failing.contains(operation)) {
            if (state_.throwsNumbers) {
                throw 42;
            }
            throw platform::DriverFailure(operation + " failed");
        }
    }

    FakeDriverState& state_;
    Journal& journal_;
};

class FakeDriverLibrary : public platform::ManipulatorDriverLibrary {
public:
    FakeDriverLibrary(FakeDriverState& state, Journal& journal) : state_(state), journal_(journal) {}
    std::unique_ptr<platform::ManipulatorDriver> Create() override {
        journal_.push_back("driver created");
        ++state_.created;
        if (state_.libraryMissing) {
            return nullptr;
        }
        return std::make_unique<FakeDriver>(state_, journal_);
    }

private:
    FakeDriverState& state_;
    Journal& journal_;
};

class FakeDisplay : public platform::Display {
public:
    double UnitsPerPixelVertical() const override { return vertical; }
    double UnitsPerPixelHorizontal() const override { return horizontal; }
    double vertical = 15.0;
    double horizontal = 15.0;
};

class FakeSingleInstance : public platform::SingleInstance {
public:
    explicit FakeSingleInstance(Journal& journal) : journal_(journal) {}
    bool Claim() override {
        journal_.push_back("claim");
        return alone;
    }
    bool alone = true;

private:
    Journal& journal_;
};

// Folders that exist only here; the program folder is a real one that the test gives.
class FakeFolders : public platform::Folders {
public:
    explicit FakeFolders(Journal& journal) : journal_(journal) {}
    QString Program() const override { return program; }
    QString ApplicationData() const override { return applicationData; }
    QChar Separator() const override { return QChar('/'); }
    bool Exists(const QString& folder) const override;
    void Create(const QString& folder) override;

    QString program;
    QString applicationData;
    bool refuse = false;

private:
    Journal& journal_;
};

}  // namespace travo::test
