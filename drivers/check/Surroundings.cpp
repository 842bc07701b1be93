#include "drivers/check/Surroundings.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace check {

namespace {

namespace fs = std::filesystem;

std::string HandlingOf(int signal) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0) {
        return {};
    }
    std::array<char, sizeof(void*)> address{};
    const auto handler = action.sa_handler;
    std::memcpy(address.data(), &handler, address.size());
    return std::string(address.begin(), address.end()) + std::to_string(action.sa_flags);
}

std::string Mask() {
    sigset_t mask;
    sigprocmask(SIG_BLOCK, nullptr, &mask);
    std::string text;
    for (int signal = 1; signal < NSIG; ++signal) {
        text += sigismember(&mask, signal) == 1 ? '1' : '0';
    }
    return text;
}

std::string Environment() {
    std::string text;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        text.append(*entry).append(1, '\n');
    }
    return text;
}

std::map<int, std::string> OpenDescriptors() {
    std::map<int, std::string> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd", error)) {
        const int descriptor = std::stoi(entry.path().filename().string());
        const std::string target = fs::read_symlink(entry.path(), error).string();
        // The one that lists this folder is gone with the list.
        if (!error && target.find("/proc/") != 0) {
            found[descriptor] = target;
        }
        error.clear();
    }
    return found;
}

}  // namespace

Surroundings Surroundings::Present() {
    Surroundings present;
    for (int signal = 1; signal < NSIG; ++signal) {
        const char* name = sigabbrev_np(signal);
        present.settings["handling of SIG" + (name == nullptr ? std::to_string(signal) : std::string(name))] =
            HandlingOf(signal);
    }
    present.settings["mask of signals"] = Mask();
    present.settings["locale"] = std::setlocale(LC_ALL, nullptr);
    std::error_code error;
    present.settings["current folder"] = fs::current_path(error).string();
    present.settings["environment"] = Environment();
    present.descriptors = OpenDescriptors();
    for (const auto& task : fs::directory_iterator("/proc/self/task", error)) {
        ++present.threads;
        std::ifstream list(task.path() / "children");
        for (int child = 0; list >> child;) {
            present.children.push_back(child);
        }
    }
    return present;
}

std::string Differences(const Surroundings& before, const Surroundings& after) {
    std::string names;
    for (const auto& [name, value] : before.settings) {
        if (after.settings.at(name) != value) {
            names += (names.empty() ? "" : ", ") + name;
        }
    }
    return names;
}

std::vector<std::string> NewDescriptors(const Surroundings& before, const Surroundings& after) {
    std::vector<std::string> found;
    for (const auto& [descriptor, target] : after.descriptors) {
        if (before.descriptors.count(descriptor) == 0) {
            found.push_back(std::to_string(descriptor) + " (" + target + ")");
        }
    }
    return found;
}

}  // namespace check
