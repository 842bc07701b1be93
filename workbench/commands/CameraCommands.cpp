#include "workbench/commands/CameraCommands.h"

#include <chrono>
#include <string>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

// The camera program itself waits for an answer of the workbench's at times, while it hears nothing else: a
// workbench that waited as long for it would make both give up.
constexpr std::chrono::milliseconds AnswerLimit{20};

// What the camera program answers behind "ok"; nothing where it has not answered yet.
std::string HandOn(Exchange& camera, const std::string& line) {
    std::string answer;
    switch (camera.Ask(line, AnswerLimit, answer)) {
        case Exchange::Outcome::NoWorkbench:
        case Exchange::Outcome::Broken:
            throw travo::Failure("no camera program is running");
        case Exchange::Outcome::TimedOut:
            return {};
        case Exchange::Outcome::Answered:
            break;
    }
    if (!answer.starts_with("ok")) {
        throw travo::Failure("the camera program refused it: " + answer);
    }
    return answer.substr(2);
}

}  // namespace

void AddCameraCommands(Commands& commands, Exchange& camera) {
    commands.Add("camera running", [&camera](const Words&, Time) { return Flag(camera.IsThere()); });
    for (const char* const word : {"hide", "close", "kill"}) {
        commands.Add(std::string("camera ") + word,
                     [&camera, word](const Words&, Time) { return HandOn(camera, word); });
    }
    commands.Add("camera hang <seconds>", [&camera](const Words& words, Time) {
        return HandOn(camera, "hang " + std::string(words[0]));
    });
    commands.Add("camera fail <calls>", [&camera](const Words& words, Time) {
        return HandOn(camera, "fail " + std::string(words[0]));
    });
}

}  // namespace workbench
