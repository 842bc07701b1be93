// The calls on the library under check, with what every call must keep.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "drivers/check/Report.h"
#include "drivers/check/Trial.h"

namespace check {

using Counts = std::array<std::int32_t, 3>;

struct Reading {
    std::int32_t number = 0;
    Counts place{};
    std::int64_t begun = 0;  // ns of the monotonic clock, as in Answer
    std::int64_t ended = 0;
};

// Every call is looked at: whether it ends the process or hangs, how long it takes, whether it writes beside
// its values or to the standard streams. Each gives nothing where the process is gone.
class Session {
public:
    Session(Trial& trial, Report& report);

    std::optional<Answer> Load();
    std::optional<Answer> GetPosition() { return Call(Wish::GetPosition, {}); }
    std::optional<Answer> MoveTo(const Counts& place) { return Call(Wish::MoveTo, place); }
    std::optional<Answer> Select(std::int32_t number) { return Call(Wish::Select, {number, 0, 0}); }
    std::optional<Answer> GetCount() { return Call(Wish::GetCount, {}); }
    std::optional<Answer> Reconnect() { return Call(Wish::Reconnect, {}); }
    std::optional<Answer> Stop(std::int32_t number) { return Call(Wish::Stop, {number, 0, 0}); }
    // GetPosition, and nothing where it fails.
    std::optional<Reading> Read();
    // What the library is not called for.
    std::optional<Answer> Ask(Wish wish);

    bool IsGone() const { return !trial_.Ending().empty(); }
    // Says how long the calls took.
    void ReportTimes();
    // To the report's clause of the standard streams.
    void ReportOutput(const std::string& where);

private:
    std::optional<Answer> Call(Wish wish, const Counts& arguments);
    void LookAtTime(Wish wish, double milliseconds, int limit);

    Trial& trial_;
    Report& report_;
    bool isFirstCall_ = true;
    std::array<double, 6> longest_{};  // ms, by Wish from GetPosition on; 0 where it was not called
    std::vector<double> readings_;     // ms
};

// "DriverGetPosition" for Wish::GetPosition and so on.
const char* NameOf(Wish wish);
// "12.3 ms"
std::string InMilliseconds(double milliseconds);
// "(1, 2, 3)"
std::string InBrackets(const Counts& place);
// Whether two readings can be of one place: a standing machine's last count may flicker.
bool Near(const Counts& one, const Counts& other);

}  // namespace check
