// The real travo-workbench without a window, where its library finds it and nobody else does.
#pragma once

#include <sys/types.h>

#include <string>

namespace check {

// A runtime folder of this test's own in the environment, as long as this lives.
class PrivateRuntimeFolder {
public:
    PrivateRuntimeFolder();
    ~PrivateRuntimeFolder();
    PrivateRuntimeFolder(const PrivateRuntimeFolder&) = delete;
    PrivateRuntimeFolder& operator=(const PrivateRuntimeFolder&) = delete;

private:
    std::string path_;
};

class RunningWorkbench {
public:
    // Starts it and waits for the line that says that it is ready.
    RunningWorkbench();
    // Ends it by closing its standard input.
    ~RunningWorkbench();
    RunningWorkbench(const RunningWorkbench&) = delete;
    RunningWorkbench& operator=(const RunningWorkbench&) = delete;

    bool IsReady() const { return line_.find("ready at") != std::string::npos; }

private:
    PrivateRuntimeFolder folder_;
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string line_;
};

}  // namespace check
