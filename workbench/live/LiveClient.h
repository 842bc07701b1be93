// Works the camera program from its own side, from another process: its operator and its faults.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

#include "workbench/socket/Exchange.h"
#include "workbench/socket/SocketPath.h"

namespace workbench::live {

// Every call is one blocking exchange and raises travo::Failure with a sentence where no camera program
// answers or where it refuses.
class LiveClient {
public:
    static constexpr std::chrono::milliseconds ExchangeLimit{5000};

    struct State {
        bool visible = false;
        std::string overlay;                 // "none", "points", "z", "center"
        std::int32_t toldMagnification = 0;  // as TRAVO has told it
        bool action = false;
        bool attached = false;
        std::int64_t callers = 0;
        std::int64_t saved = 0;  // pictures
    };

    explicit LiveClient(const std::string& socketPath = CameraSocketPath()) : exchange_(socketPath) {}

    // Whether a camera program runs.
    bool Running();
    State Now();
    // TRAVO's calls received, by their names.
    std::map<std::string, std::int64_t> Counters();

    // The operator at the camera's window.
    void Save();
    void Hide();
    void Close();
    // It ends at once and tells nobody.
    void Kill();
    // It answers nothing for so long, 0 to 60 s.
    void Hang(double seconds);
    // The next so many calls are answered with an error.
    void Fail(std::int32_t calls);

    // Any command of docs/workbench.md; what follows "ok " in the answer.
    std::string Ask(const std::string& line);

private:
    Exchange exchange_;
};

}  // namespace workbench::live
