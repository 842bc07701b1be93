#include "drivers/check/Host.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "drivers/check/Library.h"
#include "drivers/check/Surroundings.h"

namespace check {

namespace {

// What a library's threads have to end by themselves once it is unloaded: one that has been joined is seen in
// /proc for a moment yet.
constexpr std::chrono::milliseconds EndOfThreads(100);

void SetText(Answer& answer, const std::string& text) {
    std::strncpy(answer.text.data(), text.c_str(), answer.text.size() - 1);
}

Answer Remains(const Surroundings& before) {
    std::this_thread::sleep_for(EndOfThreads);
    const Surroundings after = Surroundings::Present();
    const std::vector<std::string> descriptors = NewDescriptors(before, after);
    Answer answer;
    answer.values[0] = after.threads - before.threads;
    answer.values[1] = static_cast<std::int32_t>(descriptors.size());
    answer.values[2] = static_cast<std::int32_t>(after.children.size() - before.children.size());
    for (const std::string& descriptor : descriptors) {
        SetText(answer, std::string(answer.text.data()) + (answer.text[0] == 0 ? "" : ", ") + descriptor);
    }
    return answer;
}

Answer Serve(const Request& request, const std::string& path, Library& library, const Surroundings& before) {
    Answer answer;
    switch (request.wish) {
        case Wish::Load:
            return library.Load(path);
        case Wish::Unload:
            return library.Unload();
        case Wish::Changes:
            SetText(answer, Differences(before, Surroundings::Present()));
            return answer;
        case Wish::Remains:
            return Remains(before);
        case Wish::EndCalmly:
            // Through exit: what the library has left for the end of the process runs now.
            std::exit(EXIT_SUCCESS);
        default:
            return library.Call(request);
    }
}

}  // namespace

void HostLibrary(int socket, const std::string& path) {
    Library library;
    const Surroundings before = Surroundings::Present();
    Request request;
    while (read(socket, &request, sizeof(request)) == static_cast<ssize_t>(sizeof(request))) {
        const Answer answer = Serve(request, path, library, before);
        // What a library has printed through C is on its way before the answer is.
        std::fflush(nullptr);
        if (write(socket, &answer, sizeof(answer)) != static_cast<ssize_t>(sizeof(answer))) {
            break;
        }
    }
    _exit(EXIT_FAILURE);
}

}  // namespace check
