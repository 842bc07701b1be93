// A serial link on a machine that the test owns; the test is the instrument.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/clsDebugLog.h"
#include "devices/links/LinkListener.h"
#include "support/FakeMachine.h"
#include "support/LogTexts.h"

namespace travo::test {

class LinkRig : public ::testing::Test, public FakeMachine, public virtual LinkListener {
protected:
    LinkRig() { log.LogFilePath(folder.filePath(QStringLiteral("log.txt"))); }

    QStringList Logged() const { return LogTexts(log); }

    // Nothing was shown and nothing logged.
    bool Silent() const { return boxes.shown.empty() && Logged().isEmpty(); }

    // The one text that was shown, with an OK button and no icon, and logged; else what there is.
    QString Reported() const {
        if (boxes.Texts() != Logged() || boxes.shown.size() != 1 ||
            boxes.shown[0].buttons != platform::BoxButtons::OK ||
            boxes.shown[0].icon != platform::BoxIcon::None) {
            return QStringLiteral("shown: %1; logged: %2")
                .arg(boxes.Texts().join(QLatin1Char('|')), Logged().join(QLatin1Char('|')));
        }
        return boxes.shown[0].text;
    }

    void FailIfAsked(const std::string& what) {
        journal.push_back(what);
        if (failing.contains(what)) {
            if (throwsNumbers) {
                throw 42;
            }
            throw std::runtime_error(what);
        }
    }

    void PortLost(Instrument instrument) override {
        FailIfAsked("lost " + std::to_string(static_cast<int>(instrument)));
    }
    void LineDropped(Instrument instrument) override {
        FailIfAsked("dropped " + std::to_string(static_cast<int>(instrument)));
    }

    // What a box or a served loop lets in the first time, and nothing afterwards.
    static std::function<void()> Once(std::function<void()> procedure) {
        return [procedure = std::move(procedure), done = false]() mutable {
            if (!std::exchange(done, true)) {
                procedure();
            }
        };
    }

    QTemporaryDir folder;
    clsDebugLog log{clock};
    FailureHandler failures{log, boxes};
    std::set<std::string> failing;  // entries of the journal whose call then raises
    bool throwsNumbers = false;     // what it raises is no std::exception
};

}  // namespace travo::test
