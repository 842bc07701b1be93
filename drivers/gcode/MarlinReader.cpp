#include "drivers/gcode/MarlinReader.h"

#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

using Kind = MarlinLine::Kind;

constexpr std::string_view Letters = "XYZ";

MarlinLine Made(Kind kind, std::string_view text = {}, int number = 0) {
    MarlinLine line;
    line.kind = kind;
    line.number = number;
    line.text = text;
    return line;
}

bool Contains(std::string_view text, std::string_view word) {
    return text.find(word) != std::string_view::npos;
}

// A value behind its label and any blanks ("X: 0"), up to the next blank; moves the text behind it.
std::optional<double> Labelled(std::string_view& text, std::string_view label) {
    text = Trimmed(text);
    if (!text.starts_with(label)) {
        return std::nullopt;
    }
    text = Trimmed(text.substr(label.size()));
    const std::string_view value = text.substr(0, text.find(' '));
    text.remove_prefix(value.size());
    return Decimal(value);
}

std::optional<Millimetres> LabelledTriple(std::string_view& text) {
    Millimetres triple{};
    for (std::size_t axis = 0; axis < triple.size(); ++axis) {
        const std::optional<double> value = Labelled(text, std::string{Letters[axis], ':'});
        if (!value) {
            return std::nullopt;
        }
        triple[axis] = *value;
    }
    return triple;
}

// "X:0.00 Y:127.00 Z:145.00 E:0.00 Count X: 0 Y:10160 Z:116000"; E and Count may be missing.
std::optional<MarlinPosition> Position(std::string_view text) {
    MarlinPosition position;
    const std::size_t count = text.find("Count");
    std::string_view head = text.substr(0, count);
    const std::optional<Millimetres> projected = LabelledTriple(head);
    head = Trimmed(head);
    if (!projected || (!head.empty() && (!Labelled(head, "E:") || !Trimmed(head).empty()))) {
        return std::nullopt;
    }
    position.projected = *projected;
    if (count != std::string_view::npos) {
        std::string_view tail = text.substr(count + std::string_view("Count").size());
        position.steps = LabelledTriple(tail);
        // Steppers are counted in whole steps; kin with more axes write more behind.
        if (!position.steps || Contains(text.substr(count), ".") ||
            (!Trimmed(tail).empty() && !Labelled(tail, "E:")) || !Trimmed(tail).empty()) {
            return std::nullopt;
        }
    }
    return position;
}

// "Soft endstops: On  Min: X0.00 Y0.00 Z0.00   Max: X200.00 Y200.00 Z200.00", and the later form
// "M211 S1 ; ON" with the same Min and Max behind or on a line of their own.
MarlinLine SoftEndstops(std::string_view text) {
    MarlinLine line = Made(Kind::SoftEndstops, text);
    const std::size_t min = text.find("Min:");
    const std::size_t max = text.find("Max:");
    if (min != std::string_view::npos && max != std::string_view::npos && min < max &&
        !Contains(text.substr(0, min), "Off") && !Contains(text.substr(0, min), "OFF")) {
        line.min = WordTriple(text.substr(min + 4, max - min - 4));
        line.max = WordTriple(text.substr(max + 4));
    }
    return line;
}

MarlinLine Setting(std::string_view text) {
    const std::string_view code = text.substr(1, text.find_first_of(" ;", 1) - 1);
    const std::optional<int> number = Natural(code);
    if (number && *number == 211) {
        return SoftEndstops(text);
    }
    return number ? Made(Kind::Setting, text, *number) : Made(Kind::Other, text);
}

MarlinLine Capability(std::string_view text) {
    const std::size_t colon = text.rfind(':');
    const std::optional<int> state = Natural(text.substr(colon + 1));
    return state ? Made(Kind::Capability, text.substr(0, colon), *state) : Made(Kind::Other, text);
}

MarlinLine Plain(std::string_view text) {
    if (text.starts_with("busy:")) {
        return Made(Kind::Busy, Trimmed(text.substr(5)));
    }
    // "start" alone, the name with its version, and the reasons of a reset.
    if (text == "start" || text.starts_with("Marlin ") || text.ends_with(" Reset") || text == "PowerUp") {
        return Made(Kind::Start, text);
    }
    if (text.starts_with("Unknown command:")) {
        return Made(Kind::Unknown, text);
    }
    if (text.starts_with("Home ") && text.ends_with("irst")) {
        return Made(Kind::HomeFirst, text);
    }
    if (Contains(text, "oft endstops") || text.starts_with("Min:")) {
        return SoftEndstops(text);
    }
    if (text.size() > 1 && text.front() == 'M' && text[1] >= '0' && text[1] <= '9') {
        return Setting(text);
    }
    return Made(Kind::Other, text);
}

}  // namespace

MarlinLine ReadMarlin(std::string_view line) {
    const std::string_view text = Trimmed(line);
    if (text == "ok" || text.starts_with("ok ")) {
        return Made(Kind::Ok, text);
    }
    if (text == "wait") {
        return Made(Kind::Busy, text);
    }
    if (text.starts_with("Error:") || text.starts_with("!!")) {
        return Made(Kind::Error, text);
    }
    if (text.starts_with("Resend:") || text.starts_with("rs ")) {
        return Made(Kind::Resend, text);
    }
    if (text.starts_with("FIRMWARE_NAME:")) {
        return Made(Kind::Firmware, text.substr(text.find(':') + 1));
    }
    if (text.starts_with("Cap:")) {
        return Capability(text.substr(4));
    }
    if (text.starts_with("X:") || Contains(text, "Count")) {
        MarlinLine made = Made(Kind::Broken, text);
        if (const std::optional<MarlinPosition> position = Position(text)) {
            made.kind = Kind::Position;
            made.position = *position;
        }
        return made;
    }
    return Plain(Trimmed(text.starts_with("echo:") ? text.substr(5) : text));
}

std::optional<double> Word(std::string_view command, char letter) {
    for (const std::string_view word : Split(command, ' ')) {
        if (word.size() > 1 && word.front() == letter) {
            return Decimal(word.substr(1));
        }
    }
    return std::nullopt;
}

std::optional<Millimetres> WordTriple(std::string_view command) {
    Millimetres triple{};
    for (std::size_t axis = 0; axis < triple.size(); ++axis) {
        const std::optional<double> value = Word(command, Letters[axis]);
        if (!value) {
            return std::nullopt;
        }
        triple[axis] = *value;
    }
    return triple;
}

}  // namespace gcode
