#include "drivers/gcode/Manipulators.h"

#include <algorithm>
#include <map>

#include "drivers/gcode/Files.h"

namespace gcode {

Manipulators::Manipulators(std::string folder, Ports& ports)
    : folder_(std::move(folder)),
      ports_(ports),
      log_(folder_ + "/" + DriverFiles::Log),
      trust_(folder_ + "/" + DriverFiles::State) {}

void Manipulators::ConnectOnce() {
    if (!hasConnected_) {
        Connect();
    }
}

void Manipulators::Connect() {
    hasConnected_ = true;
    for (auto& needle : needles_) {
        needle.reset();
    }
    const std::string file = folder_ + "/" + DriverFiles::Settings;
    const std::optional<std::string> text = ReadWholeFile(file);
    if (!text) {
        log_.Write("there is no " + file);
    }
    const Settings settings = ReadSettings(text.value_or(""));
    for (const Mistake& mistake : settings.mistakes) {
        log_.Write(file + ":" + std::to_string(mistake.line) + ": " + mistake.text);
    }
    trust_.Load();
    for (std::size_t index = 0; index < needles_.size(); ++index) {
        if (settings.needles[index]) {
            needles_[index] = std::make_unique<Needle>(*settings.needles[index], trust_, log_);
        }
    }
    OpenPorts();
    SelectOneThatIsThere();
}

void Manipulators::OpenPorts() {
    // By another name two needles may still hang on one port; which of them is right cannot be known.
    std::map<std::string, int> users;
    for (const auto& needle : needles_) {
        users[needle ? ports_.Identity(needle->Wanted()) : std::string()] += 1;
    }
    for (auto& needle : needles_) {
        const std::string identity = needle ? ports_.Identity(needle->Wanted()) : std::string();
        if (!identity.empty() && users[identity] > 1) {
            log_.Write("needle " + std::to_string(needle->Wanted().number) +
                       ": its port is that of another needle: " + needle->Wanted().port);
            needle.reset();
        }
    }
    std::array<Needle*, MostNeedles> opened{};
    for (std::size_t index = 0; index < needles_.size(); ++index) {
        opened[index] = needles_[index] && needles_[index]->Open(ports_) ? needles_[index].get() : nullptr;
    }
    Time start{0};
    for (Needle* needle : opened) {
        if (needle != nullptr) {
            start = start == Time(0) ? needle->Now() : start;
            needle->Connect(start + OpeningLimit, start + ConnectLimit);
        }
    }
}

void Manipulators::SelectOneThatIsThere() {
    for (std::int32_t number = 1; number <= MostNeedles && Connected(selected_) == nullptr; ++number) {
        selected_ = Connected(number) != nullptr ? number : selected_;
    }
}

Needle* Manipulators::Connected(std::int32_t number) {
    if (number < 1 || number > MostNeedles) {
        return nullptr;
    }
    Needle* needle = needles_[static_cast<std::size_t>(number - 1)].get();
    return needle != nullptr && needle->IsConnected() ? needle : nullptr;
}

Status Manipulators::GetPosition(std::int32_t& number, Counts& counts) {
    ConnectOnce();
    Needle* needle = Connected(selected_);
    if (needle == nullptr) {
        return Status::NotConnected;
    }
    number = selected_;
    return needle->Position(counts);
}

Status Manipulators::MoveTo(const Counts& counts) {
    ConnectOnce();
    Needle* needle = Connected(selected_);
    return needle == nullptr ? Status::NotConnected : needle->MoveTo(counts);
}

Status Manipulators::Select(std::int32_t number, std::int32_t& answer) {
    ConnectOnce();
    if (Connected(number) == nullptr) {
        return Status::NotConnected;
    }
    selected_ = number;
    answer = 1;
    return Status::Done;
}

Status Manipulators::GetCount(std::int32_t& count) {
    ConnectOnce();
    count = 0;
    for (std::int32_t number = 1; number <= MostNeedles; ++number) {
        count = Connected(number) != nullptr ? number : count;
    }
    return Status::Done;
}

Status Manipulators::Reconnect() {
    Connect();
    return Status::Done;
}

Status Manipulators::Stop(std::int32_t number) {
    ConnectOnce();
    Needle* needle = Connected(number);
    return needle == nullptr ? Status::NotConnected : needle->Stop();
}

}  // namespace gcode
