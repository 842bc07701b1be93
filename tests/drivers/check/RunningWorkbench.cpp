#include "drivers/check/RunningWorkbench.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

namespace check {

PrivateRuntimeFolder::PrivateRuntimeFolder() : path_("/tmp/driver-check-XXXXXX") {
    if (mkdtemp(path_.data()) != nullptr) {
        setenv("XDG_RUNTIME_DIR", path_.c_str(), 1);
    }
}

PrivateRuntimeFolder::~PrivateRuntimeFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

RunningWorkbench::RunningWorkbench() {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
        return;
    }
    process_ = fork();
    if (process_ == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        execl(WORKBENCH_PROGRAM, WORKBENCH_PROGRAM, "--headless", "--end-with-input", nullptr);
        _exit(EXIT_FAILURE);
    }
    close(input[0]);
    close(output[1]);
    input_ = input[1];
    output_ = output[0];
    // Ends with the line, or with a workbench that says nothing and goes.
    for (char character = 0; read(output_, &character, 1) == 1 && character != '\n';) {
        line_ += character;
    }
}

RunningWorkbench::~RunningWorkbench() {
    close(input_);
    waitpid(process_, nullptr, 0);
    close(output_);
}

}  // namespace check
