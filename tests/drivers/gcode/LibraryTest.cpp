// The library as TRAVO has it: loaded by its name from a folder, its functions found by theirs, on real
// terminals.
#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "drivers/TravoDriver.h"
#include "drivers/gcode/Files.h"
#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/SerialPort.h"
#include "drivers/gcode/Terminal.h"

namespace gcode::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::HasSubstr;

// A copy of the library in a folder of its own, so that its settings lie beside it.
class Loaded {
public:
    explicit Loaded(const std::string& folder) {
        const std::string copy = folder + "/libManipulatorDriver.so";
        std::filesystem::copy_file(GCODE_DRIVER, copy, std::filesystem::copy_options::overwrite_existing);
        library_ = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (library_ == nullptr) {
            throw std::runtime_error(dlerror());
        }
        getPosition = Find<decltype(&DriverGetPosition)>("DriverGetPosition");
        moveTo = Find<decltype(&DriverMoveTo)>("DriverMoveTo");
        select = Find<decltype(&DriverSelect)>("DriverSelect");
        getCount = Find<decltype(&DriverGetCount)>("DriverGetCount");
        reconnect = Find<decltype(&DriverReconnect)>("DriverReconnect");
        stop = Find<decltype(&DriverStop)>("DriverStop");
        settling = *Find<const std::int32_t*>("DriverSettlingMilliseconds");
    }
    ~Loaded() { dlclose(library_); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    void* Raw() const { return library_; }

    decltype(&DriverGetPosition) getPosition;
    decltype(&DriverMoveTo) moveTo;
    decltype(&DriverSelect) select;
    decltype(&DriverGetCount) getCount;
    decltype(&DriverReconnect) reconnect;
    decltype(&DriverStop) stop;
    std::int32_t settling;

private:
    template <typename Symbol>
    Symbol Find(const char* name) {
        void* const symbol = dlsym(library_, name);
        if (symbol == nullptr) {
            throw std::runtime_error(std::string("no symbol ") + name);
        }
        return reinterpret_cast<Symbol>(symbol);
    }
    void* library_ = nullptr;
};

class GcodeLibraryTest : public ::testing::TestWithParam<DialectName> {
protected:
    GcodeLibraryTest() { rig.WriteSettings(SectionText(1, GetParam(), terminal->Device())); }

    std::int32_t Count() {
        std::int32_t count = -1;
        EXPECT_EQ(library.getCount(&count), 0);
        return count;
    }
    // Until the needle stands where it was sent, 10 s at most.
    bool Arrives(const Counts& to) {
        const Time end = Terminal::Now() + seconds(10);
        std::int32_t number = 0;
        Counts at{};
        while (at != to && Terminal::Now() < end) {
            if (library.getPosition(&number, &at[0], &at[1], &at[2]) < 0) {
                return false;
            }
        }
        return at == to;
    }

    NeedleRig rig{GetParam()};  // for its folder and its controller; its driver stays unused
    std::unique_ptr<Terminal> terminal = std::make_unique<Terminal>(rig.ControllerOf());
    Loaded library{rig.folder};
};

INSTANTIATE_TEST_SUITE_P(Each, GcodeLibraryTest,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeLibraryTest, ItsFunctionsWorkOnARealTerminal) {
    EXPECT_EQ(library.settling, 200);
    ASSERT_EQ(Count(), 1) << rig.LogText();
    std::int32_t answer = 0;
    EXPECT_EQ(library.select(1, &answer), 0);
    EXPECT_EQ(answer, 1);
    std::int32_t number = 0;
    Counts at{};
    ASSERT_EQ(library.getPosition(&number, &at[0], &at[1], &at[2]), 0) << rig.LogText();
    EXPECT_EQ(number, 1);
    EXPECT_EQ(at, Start);
    ASSERT_EQ(library.moveTo(9800, 12400, 12500), 0) << rig.LogText();
    EXPECT_TRUE(Arrives({9800, 12400, 12500})) << rig.LogText();
    EXPECT_LT(library.moveTo(25001, 0, 0), 0);
    EXPECT_LT(library.select(2, &answer), 0);
}

TEST_P(GcodeLibraryTest, StopEndsAMoveOnARealTerminal) {
    ASSERT_EQ(Count(), 1) << rig.LogText();
    ASSERT_EQ(library.moveTo(25000, 12500, 12500), 0) << rig.LogText();
    const std::int32_t status = library.stop(1);
    if (GetParam() == DialectName::Omm) {
        EXPECT_LT(status, 0);
        return;
    }
    EXPECT_EQ(status, 0) << rig.LogText();
    EXPECT_FALSE(
        terminal->With([](Controller& controller, Time now) { return controller.Motors().IsMoving(now); }));
}

TEST_P(GcodeLibraryTest, ACableThatIsPulledFailsAndAnotherTerminalInItsPlaceWorksAgain) {
    ASSERT_EQ(Count(), 1) << rig.LogText();
    terminal->Unplug();
    std::int32_t number = 0;
    Counts at{};
    EXPECT_LT(library.getPosition(&number, &at[0], &at[1], &at[2]), 0);
    EXPECT_EQ(Count(), 0);
    terminal = std::make_unique<Terminal>(rig.ControllerOf());
    rig.WriteSettings(SectionText(1, GetParam(), terminal->Device()));
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(library.reconnect(), 0);
    EXPECT_EQ(Count(), 1) << rig.LogText();
}

TEST_P(GcodeLibraryTest, NothingIsWrittenToStandardOutputAndNoFileStaysOpenBehindIt) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    // A folder of its own: the copy of a library that is loaded must not be written over.
    const std::string folder = rig.folder + "/other";
    std::filesystem::create_directory(folder);
    for (const char* name : {"/manipulators.ini", "/manipulators.state"}) {
        std::filesystem::copy_file(rig.folder + name, folder + name);
    }
    const auto before = openFiles();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    {
        const Loaded other(folder);
        std::int32_t count = 0;
        EXPECT_EQ(other.getCount(&count), 0);
        EXPECT_EQ(count, 1);
        EXPECT_GT(openFiles(), before);
        EXPECT_EQ(other.moveTo(-1, 0, 0), -3);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(openFiles(), before);
}

TEST(GcodeSerialPortTest, APortIsHadByOneOnly) {
    NeedleRig rig(DialectName::Grbl);
    const Terminal terminal(rig.ControllerOf());
    NeedleSettings settings;
    settings.port = terminal.Device();
    settings.baud = 250000;
    SerialPorts ports;
    std::string why;
    std::unique_ptr<Wire> first = ports.Open(settings, why);
    ASSERT_TRUE(first) << why;
    EXPECT_FALSE(ports.Open(settings, why));
    EXPECT_EQ(why, terminal.Device() + " is in use by another program");
    first.reset();
    EXPECT_TRUE(ports.Open(settings, why)) << why;
}

TEST(GcodeSerialPortTest, WhatIsNoPortIsToldInWords) {
    NeedleRig rig(DialectName::Grbl);
    SerialPorts ports;
    NeedleSettings settings;
    settings.baud = 115200;
    const auto why = [&](const std::string& port) {
        settings.port = port;
        std::string text;
        EXPECT_FALSE(ports.Open(settings, text));
        return text;
    };
    EXPECT_EQ(why("/dev/no-such-port"),
              "there is no device /dev/no-such-port: is it plugged in and switched on?");
    EXPECT_EQ(why(rig.folder + "/manipulators.ini"), rig.folder + "/manipulators.ini is no serial port");
    EXPECT_EQ(why("/dev/null"), "/dev/null is no serial port");
    const std::string pipe = rig.folder + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(why(pipe), pipe + " is no serial port");
    EXPECT_THAT(why(rig.folder), HasSubstr("cannot be opened"));
}

TEST(GcodeSerialPortTest, TwoNamesOfOneDeviceHaveOneIdentity) {
    NeedleRig rig(DialectName::Grbl);
    const Terminal terminal(rig.ControllerOf());
    const Terminal other(rig.ControllerOf());
    std::filesystem::create_symlink(terminal.Device(), rig.folder + "/link");
    const auto identity = [](const std::string& port) {
        NeedleSettings settings;
        settings.port = port;
        return SerialPorts().Identity(settings);
    };
    EXPECT_EQ(identity(terminal.Device()), identity(rig.folder + "/link"));
    EXPECT_NE(identity(terminal.Device()), identity(other.Device()));
    EXPECT_EQ(identity("/dev/no-such-port"), "");
}

}  // namespace
}  // namespace gcode::test
