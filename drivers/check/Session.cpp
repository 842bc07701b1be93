#include "drivers/check/Session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "drivers/TravoDriver.h"

namespace check {

namespace {

constexpr double NanosecondsInMillisecond = 1e6;
// What a call may take beyond its limit before it counts as one that hangs: so long is waited to tell a slow
// call from none at all.
constexpr int BeyondLimit = 1000;
constexpr double AdvisedReading = 50;  // ms, see drivers/TravoDriver.h
// Counts by which a standing machine's readings may differ.
constexpr std::int32_t Flicker = 2;

std::size_t Row(Wish wish) {
    return static_cast<std::size_t>(wish) - static_cast<std::size_t>(Wish::GetPosition);
}

}  // namespace

const char* NameOf(Wish wish) {
    constexpr std::array<const char*, 11> Names{"loading",       "DriverGetPosition",     "DriverMoveTo",
                                                "DriverSelect",  "DriverGetCount",        "DriverReconnect",
                                                "DriverStop",    "looking around",        "unloading",
                                                "looking about", "the end of the process"};
    return Names[static_cast<std::size_t>(wish)];
}

std::string InMilliseconds(double milliseconds) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.1f ms", milliseconds);
    return text.data();
}

std::string InBrackets(const Counts& place) {
    return "(" + std::to_string(place[0]) + ", " + std::to_string(place[1]) + ", " +
           std::to_string(place[2]) + ")";
}

bool Near(const Counts& one, const Counts& other) {
    for (std::size_t axis = 0; axis < one.size(); ++axis) {
        if (std::abs(std::int64_t{one[axis]} - other[axis]) > Flicker) {
            return false;
        }
    }
    return true;
}

Session::Session(Trial& trial, Report& report) : trial_(trial), report_(report) {}

std::optional<Answer> Session::Ask(Wish wish) {
    Request request;
    request.wish = wish;
    const auto answer = trial_.Ask(request, Trial::Milliseconds(TRAVO_DRIVER_CONNECT_LIMIT_MS));
    ReportOutput(NameOf(wish));
    return answer;
}

std::optional<Answer> Session::Load() {
    const auto answer = Ask(Wish::Load);
    if (!answer) {
        report_.Break(Clause::Loads, trial_.Ending());
    } else if (answer->status < 0) {
        report_.Break(Clause::Loads, answer->text.data());
    } else {
        report_.Keep(Clause::Loads, InMilliseconds(static_cast<double>(answer->ended - answer->begun) /
                                                   NanosecondsInMillisecond));
    }
    return answer;
}

std::optional<Reading> Session::Read() {
    const auto answer = GetPosition();
    if (!answer || answer->status < 0) {
        return std::nullopt;
    }
    return Reading{answer->values[0],
                   {answer->values[1], answer->values[2], answer->values[3]},
                   answer->begun,
                   answer->ended};
}

std::optional<Answer> Session::Call(Wish wish, const Counts& arguments) {
    if (IsGone()) {
        return std::nullopt;
    }
    const bool connects = isFirstCall_ || wish == Wish::Reconnect;
    const int limit = connects ? TRAVO_DRIVER_CONNECT_LIMIT_MS : TRAVO_DRIVER_CALL_LIMIT_MS;
    isFirstCall_ = false;
    Request request;
    request.wish = wish;
    request.arguments = arguments;
    const auto answer = trial_.Ask(request, Trial::Milliseconds(limit + BeyondLimit));
    ReportOutput(NameOf(wish));
    if (!answer) {
        report_.Break(trial_.HasHung() ? Clause::Times : Clause::Lives,
                      std::string(NameOf(wish)) + ": " + trial_.Ending());
        return answer;
    }
    LookAtTime(wish, static_cast<double>(answer->ended - answer->begun) / NanosecondsInMillisecond, limit);
    if (answer->wroteBeside) {
        report_.Break(Clause::Values, std::string(NameOf(wish)) + " writes beyond a value of 32 bits");
    } else if (wish == Wish::GetPosition) {
        report_.Keep(Clause::Values);
    }
    return answer;
}

void Session::LookAtTime(Wish wish, double milliseconds, int limit) {
    longest_[Row(wish)] = std::max(longest_[Row(wish)], milliseconds);
    if (milliseconds > limit) {
        report_.Break(Clause::Times, std::string(NameOf(wish)) + " took " + InMilliseconds(milliseconds));
    }
    if (wish == Wish::GetPosition) {
        readings_.push_back(milliseconds);
    }
}

void Session::ReportTimes() {
    std::string times;
    for (std::size_t row = 0; row < longest_.size(); ++row) {
        if (longest_[row] > 0) {
            times +=
                (times.empty() ? "" : ", ") +
                std::string(NameOf(static_cast<Wish>(row + static_cast<std::size_t>(Wish::GetPosition)))) +
                " " + InMilliseconds(longest_[row]);
        }
    }
    if (!times.empty()) {
        report_.Keep(Clause::Times, times + " at most");
    }
    if (readings_.empty()) {
        return;
    }
    // The middle one: a busy machine delays one reading or another.
    const auto middle = readings_.begin() + static_cast<std::ptrdiff_t>(readings_.size() / 2);
    std::nth_element(readings_.begin(), middle, readings_.end());
    if (*middle > AdvisedReading) {
        report_.Advise(Clause::ReadingTime, InMilliseconds(*middle) + " as a rule");
    } else {
        report_.Keep(Clause::ReadingTime, InMilliseconds(*middle) + " as a rule");
    }
}

void Session::ReportOutput(const std::string& where) {
    for (std::string output = trial_.TakeOutput(); !output.empty(); output = trial_.TakeOutput()) {
        report_.Break(Clause::Output, where + " writes to " + output);
    }
}

}  // namespace check
