// The camera program's commands without a camera program, and with one that does not answer.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "workbench/commands/Bench.h"

namespace workbench {

namespace {

// Listens, and answers nobody: a program that hangs.
class SilentSocket {
public:
    explicit SilentSocket(const std::string& path) : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(socket_, 8), 0);
    }
    ~SilentSocket() { close(socket_); }
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;

    // What has been sent by the first who came.
    std::string FirstHeard() const {
        const int client = accept(socket_, nullptr, nullptr);
        std::string text(100, ' ');
        const ssize_t count = read(client, text.data(), text.size());
        close(client);
        return text.substr(0, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }

private:
    int socket_;
};

class CameraCommandsTest : public testing::Test {
protected:
    CameraCommandsTest() {
        std::string folder = (std::filesystem::temp_directory_path() / "camera-XXXXXX").string();
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        folder_ = folder;
        bench_.emplace("", Path());
    }
    ~CameraCommandsTest() override {
        bench_.reset();
        std::filesystem::remove_all(folder_);
    }

    std::string Path() const { return folder_ + "/live.socket"; }
    std::string Ask(const std::string& line) {
        return bench_->commands.Answer(line, std::chrono::milliseconds(1));
    }

    std::string folder_;
    std::optional<Bench> bench_;
};

}  // namespace

TEST_F(CameraCommandsTest, WithoutACameraProgramNoneRunsAndNothingCanBeHandedOn) {
    EXPECT_EQ(Ask("camera running"), "ok 0");
    for (const char* line :
         {"camera hide", "camera close", "camera kill", "camera hang 3", "camera fail 1"}) {
        EXPECT_EQ(Ask(line), "error no camera program is running") << line;
    }
}

TEST_F(CameraCommandsTest, AProgramThatHangsRunsAndTakesALineUpLater) {
    const SilentSocket camera(Path());
    EXPECT_EQ(Ask("camera hang 3"), "ok");
    EXPECT_EQ(camera.FirstHeard(), "hang 3\n");
    EXPECT_EQ(Ask("camera running"), "ok 1");
    EXPECT_EQ(Ask("camera running"), "ok 1");
}

TEST_F(CameraCommandsTest, AProgramThatHasGoneLeavesASocketBehindAndDoesNotRun) {
    {
        const SilentSocket camera(Path());
        EXPECT_EQ(Ask("camera running"), "ok 1");
    }
    EXPECT_TRUE(std::filesystem::exists(Path()));
    EXPECT_EQ(Ask("camera running"), "ok 0");
}

TEST_F(CameraCommandsTest, WhatIsOutOfRangeIsNotHandedOn) {
    const SilentSocket camera(Path());
    EXPECT_EQ(Ask("camera hang 61"),
              "error \"camera hang\" is to be followed by <seconds> (0 to 60), not \"61\"");
    EXPECT_EQ(Ask("camera fail -1"),
              "error \"camera fail\" is to be followed by <calls> (0 to 1000000), not \"-1\"");
}

}  // namespace workbench
