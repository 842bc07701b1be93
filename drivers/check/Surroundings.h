// What a library finds around it in its process, and must leave as it was.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace check {

// All of this process, at one moment.
struct Surroundings {
    // Handling of each signal, mask of signals, locale, current folder, environment: by name.
    std::map<std::string, std::string> settings;
    std::map<int, std::string> descriptors;  // with what each leads to
    int threads = 0;
    std::vector<int> children;

    static Surroundings Present();
};

// Names of the settings that differ, with commas between; empty where all are alike.
std::string Differences(const Surroundings& before, const Surroundings& after);
// The descriptors that are in the second alone, with what they lead to.
std::vector<std::string> NewDescriptors(const Surroundings& before, const Surroundings& after);

}  // namespace check
