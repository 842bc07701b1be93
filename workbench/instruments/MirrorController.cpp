#include "workbench/instruments/MirrorController.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::size_t NameLength = 4;  // class and command
constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view ProgramName = "WORKBENCH";

struct Order {
    std::string_view name;
    std::int32_t lowest;
    std::int32_t highest;
};
constexpr std::array<Order, 7> Orders = {{{"cD2A", INT32_MIN, INT32_MAX},
                                          {"cD1A", INT32_MIN, INT32_MAX},
                                          {"cMAG", 1, HighestMagnification},
                                          {"cWES", 0, 1},
                                          {"cPMS", 0, 1},
                                          {"cZEN", 0, 1},
                                          {"cSAS", 0, 1}}};
constexpr std::array<std::string_view, 6> Requests = {"rD2R", "rD1R", "rMGR", "rWER", "rPMR", "rPNM"};
constexpr std::array<std::string_view, 5> ErgoCommands = {"RZ", "MZ", "RE", "WZ", "ZE"};

// The three letters by which a reply names its command, also one that has fewer, or unprintable ones.
std::string Letters(std::string_view command) {
    std::string letters = "???";
    for (std::size_t place = 0; place < letters.size() && place + 1 < command.size(); ++place) {
        const char letter = command[place + 1];
        letters[place] = letter > ' ' && letter < '\x7f' ? letter : '?';
    }
    return letters;
}

void CountDown(std::int32_t& remaining) {
    if (remaining > 0) {
        --remaining;
    }
}

}  // namespace

void MirrorController::Receive(std::string_view bytes, Time now) {
    // What was to happen before the command has happened: a landing is told by where the view stood then.
    world_.Advance(now);
    received_.Append(bytes);
    while (const auto line = received_.Next()) {
        if (line->overflow) {
            Count("unknown");
            Refuse({}, static_cast<std::int32_t>(Error::ReceptionOverflow));
        } else {
            Obey(line->text, now);
        }
    }
    Advance(now);
}

void MirrorController::Advance(Time now) {
    ReportArrival(Microscope::AxisX, "D2A", now);
    ReportArrival(Microscope::AxisY, "D1A", now);
    if (statusOn_) {
        ReportStatus(now);
    }
}

std::string MirrorController::FloodLine(std::int32_t n, Time now) const {
    return StatusLine(now, n, StatusFields).append(LineEnd);
}

void MirrorController::PassErgoLine(std::string_view line, bool together, Time now) {
    const bool known = std::any_of(ErgoCommands.begin(), ErgoCommands.end(),
                                   [line](std::string_view command) { return line.substr(0, 2) == command; });
    if (!known || line.find_first_of(LineEnd) != std::string_view::npos) {
        throw travo::NumberFailure("lines of the Ergo unit begin with RZ, MZ, RE, WZ or ZE");
    }
    std::string bytes(line);
    bytes += '\r';
    if (together) {
        Say(bytes + StatusLine(now, ergoLock_, StatusFields).append(LineEnd), WireLine::Manner::Whole);
    } else {
        Say(bytes, WireLine::Manner::Apart);
    }
}

void MirrorController::RefuseCommands(std::int32_t error, std::int32_t commands) {
    refusal_ = error;
    refusals_ = commands;
}

void MirrorController::MisformStatus(std::int32_t fields, std::int32_t lines) {
    misformedFields_ = fields;
    misformedLines_ = lines;
    statusDue_ = true;
}

void MirrorController::ClearFaults() {
    RefuseCommands(0, 0);
    MisformStatus(StatusFields, 0);
    heldAtLimit_.fill(false);
}

void MirrorController::Obey(std::string_view command, Time now) {
    const std::string_view name = command.substr(0, NameLength);
    const std::string_view value = command.substr(name.size());
    const auto* order =
        std::find_if(Orders.begin(), Orders.end(), [name](const Order& one) { return one.name == name; });
    const bool asked = std::find(Requests.begin(), Requests.end(), name) != Requests.end();
    const bool known = order != Orders.end() || asked;
    Count(known ? name : "unknown");
    if (refusals_ != 0) {
        CountDown(refusals_);
        Refuse(command, refusal_);
        return;
    }
    if (!known) {
        Refuse(command, static_cast<std::int32_t>(Error::Command));
        return;
    }
    try {
        if (asked && value.empty()) {
            AnswerRequest(name, now);
            return;
        }
        const std::int32_t number = asked ? 0 : travo::ReadInteger32(value);
        if (!asked && number >= order->lowest && number <= order->highest) {
            CarryOut(name, number, now);
            return;
        }
    } catch (const travo::Failure&) {
        // No number: refused below, as one out of range.
    }
    Refuse(command, static_cast<std::int32_t>(Error::Parameter));
}

void MirrorController::CarryOut(std::string_view name, std::int32_t value, Time now) {
    if (name == "cD2A") {
        Move(name, Microscope::AxisX, value, now);
        return;
    }
    if (name == "cD1A") {
        Move(name, Microscope::AxisY, value, now);
        return;
    }
    if (name == "cMAG") {
        world_.Optics().SetMagnification(value);
    } else if (name == "cWES") {
        ergoLock_ = value;
    } else if (name == "cPMS") {
        world_.Optics().SwitchMirrorMotors(value != 0, now);
    } else if (name == "cZEN") {
        ergoZ_ = value;
    } else {
        statusDue_ = value != 0;
        statusOn_ = value != 0;
    }
    Say(std::string("o").append(Letters(name)).append(std::to_string(value)).append(LineEnd));
}

void MirrorController::Move(std::string_view name, std::int32_t axis, std::int32_t target, Time now) {
    if (world_.Optics().MoveMirror(axis, target, now) == MirrorMove::MotorsOff) {
        Refuse(name, static_cast<std::int32_t>(Error::Prohibited));
        return;
    }
    underWay_[static_cast<std::size_t>(axis)] = true;
    Say(std::string("q").append(Letters(name)).append(std::to_string(target)).append(LineEnd));
}

void MirrorController::AnswerRequest(std::string_view name, Time now) {
    const Microscope& optics = world_.Optics();
    std::string value(ProgramName);
    if (name == "rD2R") {
        value = std::to_string(optics.MirrorCount(Microscope::AxisX, now));
    } else if (name == "rD1R") {
        value = std::to_string(optics.MirrorCount(Microscope::AxisY, now));
    } else if (name == "rMGR") {
        value = std::to_string(optics.Magnification());
    } else if (name == "rWER") {
        value = std::to_string(ergoLock_);
    } else if (name == "rPMR") {
        value = std::to_string(optics.MirrorMotorsOn() ? 1 : 0);
    }
    Say(std::string("a").append(Letters(name)).append(value).append(LineEnd));
}

void MirrorController::Refuse(std::string_view command, std::int32_t error) {
    Say(std::string("n").append(Letters(command)).append(std::to_string(error)).append(LineEnd));
}

void MirrorController::ReportArrival(std::int32_t axis, std::string_view name, Time now) {
    bool& underWay = underWay_[static_cast<std::size_t>(axis)];
    const Microscope& optics = world_.Optics();
    const double reached = optics.MirrorAtRest(axis);
    if (underWay && optics.MirrorNow(axis, now) == reached) {
        underWay = false;
        Say(std::string("o")
                .append(name)
                .append(std::to_string(optics.MirrorCount(axis, now)))
                .append(LineEnd));
    }
}

void MirrorController::ReportStatus(Time now) {
    const std::string status = StatusLine(now, ergoLock_, StatusFields);
    const Time quiet = now - lastStatusTime_;
    const bool changed = status != lastStatus_ && quiet >= StatusPause;
    if (!statusDue_ && !changed && quiet < StatusPeriod) {
        return;
    }
    statusDue_ = false;
    lastStatus_ = status;
    lastStatusTime_ = now;
    const std::int32_t fields = misformedLines_ != 0 ? misformedFields_ : StatusFields;
    CountDown(misformedLines_);
    Say(StatusLine(now, ergoLock_, fields).append(LineEnd));
}

std::string MirrorController::StatusLine(Time now, std::int32_t fieldTwo, std::int32_t fields) const {
    const Microscope& optics = world_.Optics();
    const auto limit = [&](std::int32_t axis) {
        return optics.AtLimit(axis) || heldAtLimit_[static_cast<std::size_t>(axis)] ? 1 : 0;
    };
    const std::array<std::int32_t, StatusFields> values = {optics.MirrorCount(Microscope::AxisX, now),
                                                           optics.MirrorCount(Microscope::AxisY, now),
                                                           fieldTwo,
                                                           optics.MirrorMotorsOn() ? 1 : 0,
                                                           optics.Magnification(),
                                                           limit(Microscope::AxisY),
                                                           limit(Microscope::AxisX),
                                                           ergoZ_};
    std::string line = "sSAA";
    for (std::int32_t field = 0; field < fields; ++field) {
        line += field > 0 ? "," : "";
        line += std::to_string(field < StatusFields ? values[static_cast<std::size_t>(field)] : 0);
    }
    return line;
}

}  // namespace workbench
