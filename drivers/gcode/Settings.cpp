#include "drivers/gcode/Settings.h"

#include <algorithm>
#include <map>

#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/SettingsKeys.h"

namespace gcode {

namespace {

constexpr std::size_t MostBytes = 65536;
constexpr std::string_view SectionStart = "[needle ";

// Goes through the text line by line.
class Reading {
public:
    Settings Read(std::string_view text) {
        if (text.size() > MostBytes) {
            Wrong(1, "the file is longer than 64 kB and was not read");
            return std::move(settings_);
        }
        int line = 0;
        for (std::string_view content : Split(text, '\n')) {
            if (!content.empty() && content.back() == '\r') {
                content.remove_suffix(1);
            }
            TakeLine(++line, content);
        }
        CloseSection();
        RefuseSharedPorts();
        std::stable_sort(settings_.mistakes.begin(), settings_.mistakes.end(),
                         [](const Mistake& one, const Mistake& other) { return one.line < other.line; });
        return std::move(settings_);
    }

private:
    void TakeLine(int line, std::string_view content) {
        if (std::any_of(content.begin(), content.end(),
                        [](char byte) { return static_cast<unsigned char>(byte) < ' ' && byte != '\t'; })) {
            Wrong(line, "the line holds bytes that are no text");
            return;
        }
        const std::string_view text = Trimmed(content);
        if (text.empty() || text.front() == '#' || text.front() == ';') {
            return;
        }
        if (text.front() == '[') {
            CloseSection();
            OpenSection(line, text);
            return;
        }
        const std::size_t sign = text.find('=');
        if (sign == std::string_view::npos) {
            Wrong(line, "neither a section nor a key with a value: \"" + std::string(text) + "\"");
            return;
        }
        TakePair(line, Trimmed(text.substr(0, sign)), Trimmed(text.substr(sign + 1)));
    }

    void OpenSection(int line, std::string_view text) {
        sectionLine_ = line;
        current_ = {};
        seen_.clear();
        isOpen_ = true;
        const bool isNeedle = text.starts_with(SectionStart) && text.back() == ']';
        const std::optional<std::int32_t> number =
            isNeedle ? Natural(text.substr(SectionStart.size(), text.size() - SectionStart.size() - 1))
                     : std::nullopt;
        if (!number || *number < 1 || *number > MostNeedles) {
            isFaulty_ = true;
            Wrong(line, "a section must be [needle 1] to [needle 4], not " + std::string(text));
            return;
        }
        current_.number = *number;
        int& first = sections_[*number];
        isFaulty_ = first != 0;
        if (isFaulty_) {
            Wrong(line, "needle " + std::to_string(*number) + " has a section already, in line " +
                            std::to_string(first));
            settings_.needles[static_cast<std::size_t>(*number - 1)].reset();
        } else {
            first = line;
        }
    }

    void TakePair(int line, std::string_view key, std::string_view value) {
        if (!isOpen_) {
            Wrong(line, "a key stands ahead of the first section: " + std::string(key));
            return;
        }
        if (!IsKey(key)) {
            Wrong(line, "\"" + std::string(key) + "\" is not a key");
            return;
        }
        if (const auto [place, isNew] = seen_.emplace(key, line); !isNew) {
            Wrong(line, std::string(key) + " stands in line " + std::to_string(place->second) + " already");
            return;
        }
        if (const std::string wrong = TakeValue(current_, key, value); !wrong.empty()) {
            Wrong(line,
                  std::string(key) + ": " + wrong + (value.empty() ? "" : ", not " + std::string(value)));
        }
    }

    void CloseSection() {
        if (!isOpen_ || current_.number == 0) {
            return;
        }
        for (const std::string_view key : NeededKeys) {
            if (seen_.find(key) == seen_.end()) {
                Wrong(sectionLine_,
                      "needle " + std::to_string(current_.number) + " has no key " + std::string(key));
            }
        }
        if (!isFaulty_) {
            if (const std::string wrong = WrongTogether(current_); !wrong.empty()) {
                Wrong(sectionLine_, wrong);
            }
        }
        if (!isFaulty_) {
            current_.baud = current_.baud == 0 ? UsualBaud(current_.dialect) : current_.baud;
            settings_.needles[static_cast<std::size_t>(current_.number - 1)] = current_;
        }
        isOpen_ = false;
    }

    // Which of two needles hangs on a port that both name cannot be known.
    void RefuseSharedPorts() {
        std::map<std::string, int> counts;
        for (const auto& needle : settings_.needles) {
            counts[needle ? needle->port : std::string()] += needle ? 1 : 0;
        }
        for (auto& needle : settings_.needles) {
            if (needle && counts[needle->port] > 1) {
                settings_.mistakes.push_back({sections_[needle->number], needle->number,
                                              "needle " + std::to_string(needle->number) +
                                                  " names the port of another needle: " + needle->port});
                needle.reset();
            }
        }
    }

    void Wrong(int line, std::string text) {
        isFaulty_ = true;
        settings_.mistakes.push_back({line, isOpen_ ? current_.number : 0, std::move(text)});
    }

    Settings settings_;
    NeedleSettings current_;
    std::map<std::string, int, std::less<>> seen_;  // keys of this section, with their lines
    std::map<int, int> sections_;                   // needles, with the lines of their sections
    int sectionLine_ = 0;
    bool isOpen_ = false;
    bool isFaulty_ = false;
};

}  // namespace

Settings ReadSettings(std::string_view text) { return Reading().Read(text); }

}  // namespace gcode
