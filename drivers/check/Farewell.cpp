#include "drivers/check/Farewell.h"

namespace check {

namespace {

constexpr Trial::Milliseconds EndLimit(2000);

void CheckRemains(const Answer& remains, Report& report) {
    const std::string text = remains.text.data();
    const auto say = [&report](Clause clause, std::int32_t count, const std::string& seen) {
        if (count > 0) {
            report.Break(clause, seen);
        } else {
            report.Keep(clause);
        }
    };
    say(Clause::Threads, remains.values[0], std::to_string(remains.values[0]) + " left");
    say(Clause::Descriptors, remains.values[1], "still open: " + text);
    say(Clause::Children, remains.values[2], std::to_string(remains.values[2]) + " left");
}

}  // namespace

void CheckFarewell(Trial& trial, Session& session, Report& report) {
    if (session.IsGone()) {
        report.MissTheRest("the process that holds the library has ended");
        return;
    }
    report.Keep(Clause::Lives);
    if (const auto changes = session.Ask(Wish::Changes)) {
        const std::string names = changes->text.data();
        names.empty() ? report.Keep(Clause::Surroundings)
                      : report.Break(Clause::Surroundings, "changes " + names);
    }
    const auto unloaded = session.Ask(Wish::Unload);
    const auto remains = unloaded ? session.Ask(Wish::Remains) : std::nullopt;
    if (remains) {
        CheckRemains(*remains, report);
    }
    if (!remains || !trial.EndCalmly(EndLimit)) {
        report.Break(Clause::Unload, trial.Ending());
    } else {
        report.Keep(Clause::Unload);
    }
    session.ReportOutput(NameOf(Wish::EndCalmly));
    report.Keep(Clause::Output);
    report.MissTheRest("the process that holds the library has ended");
}

}  // namespace check
