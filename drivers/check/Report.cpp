#include "drivers/check/Report.h"

#include <algorithm>

namespace check {

namespace {

constexpr std::size_t NameWidth = 15;
constexpr std::size_t VerdictWidth = 10;

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size() + 1), ' ');
    return text;
}

}  // namespace

void Report::Keep(Clause clause, const std::string& seen) {
    Row& row = At(clause);
    if (row.verdict == Verdict::NotSeen) {
        row = {Verdict::Kept, seen, 0};
    } else if (row.verdict == Verdict::Kept && !seen.empty()) {
        row.seen = seen;
    }
}

void Report::Break(Clause clause, const std::string& seen) {
    Row& row = At(clause);
    if (row.verdict == Verdict::Broken) {
        ++row.more;
    } else {
        row = {Verdict::Broken, seen, 0};
    }
}

void Report::Advise(Clause clause, const std::string& seen) {
    Row& row = At(clause);
    if (row.verdict != Verdict::Broken) {
        row = {Verdict::Advice, seen, 0};
    }
}

void Report::Miss(Clause clause, const std::string& why) {
    Row& row = At(clause);
    if (row.verdict == Verdict::NotSeen && row.seen.empty()) {
        row.seen = why;
    }
}

void Report::MissTheRest(const std::string& why) {
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        Miss(static_cast<Clause>(place), why);
    }
}

bool Report::IsBroken(Clause clause) const { return rows_[Place(clause)].verdict == Verdict::Broken; }

int Report::Breaches() const { return Sum(Verdict::Broken); }

int Report::Sum(Verdict verdict) const {
    return static_cast<int>(
        std::count_if(rows_.begin(), rows_.end(), [=](const Row& row) { return row.verdict == verdict; }));
}

std::string Report::Table() const {
    const std::array<const char*, 4> verdicts{"not seen", "kept", "advice", "BROKEN"};
    std::string table;
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        const Row& row = rows_[place];
        table += Padded(ClauseTexts[place].name, NameWidth);
        table += Padded(verdicts[static_cast<std::size_t>(row.verdict)], VerdictWidth);
        table += ClauseTexts[place].sentence;
        table += row.seen.empty() ? "" : ": " + row.seen;
        table += row.more == 0 ? "" : " (and " + std::to_string(row.more) + " more)";
        table += '\n';
    }
    table += std::to_string(rows_.size()) + " clauses: " + std::to_string(Sum(Verdict::Kept)) + " kept, " +
             std::to_string(Sum(Verdict::Broken)) + " broken, " + std::to_string(Sum(Verdict::Advice)) +
             " with advice, " + std::to_string(Sum(Verdict::NotSeen)) + " not seen\n";
    return table;
}

}  // namespace check
