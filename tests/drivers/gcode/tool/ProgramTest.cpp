// The program travo-gcode as it is built: what it prints and how it ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/Terminal.h"

namespace gcode::test {
namespace {

using ::testing::HasSubstr;

struct Ending {
    int code = -1;
    std::string text;
};

Ending Started(const std::string& words, const std::string& answer = "") {
    const std::string command = "printf '" + answer + "' | '" TRAVO_GCODE "' " + words + " 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    Ending ending;
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) {
        ending.text += static_cast<char>(byte);
    }
    ending.code = WEXITSTATUS(pclose(pipe));
    return ending;
}

TEST(GcodeProgramTest, HelpAndVersionNeedNoNeedle) {
    const Ending help = Started("--help");
    EXPECT_EQ(help.code, 0);
    EXPECT_THAT(help.text, HasSubstr("Usage: travo-gcode [--folder FOLDER] COMMAND"));
    EXPECT_THAT(help.text, HasSubstr("travo-gcode jog 1 x 100"));
    EXPECT_EQ(Started("--version").text, "travo-gcode 1.0\n");
}

TEST(GcodeProgramTest, AWrongCommandLineEndsWith2) {
    const Ending ending = Started("hoem 1");
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.text, "travo-gcode: no such command: hoem; --help says what there is\n");
}

TEST(GcodeProgramTest, AFolderWithoutSettingsIsToldAndEndsWith1) {
    const Ending ending = Started("--folder /nowhere check");
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.text, "there is no /nowhere/manipulators.ini\n");
}

TEST(GcodeProgramTest, TheManualPageNamesEveryCommandAndExitCode) {
    std::ifstream file(TRAVO_GCODE_MANUAL);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    for (const char* word : {"list", "check", "where", "jog", "home", "unlock", "watch", "EXIT STATUS",
                             "EXAMPLES", "manipulators.ini", "manipulators.state", "manipulators.log"}) {
        EXPECT_THAT(page, HasSubstr(word));
    }
}

TEST(GcodeProgramTest, ItWorksOnARealTerminal) {
    NeedleRig rig(DialectName::Grbl);
    Terminal terminal(rig.ControllerOf());
    rig.WriteSettings(SectionText(1, DialectName::Grbl, terminal.Device()));
    const std::string folder = "--folder " + rig.folder + " ";
    const Ending check = Started(folder + "check");
    EXPECT_EQ(check.code, 0) << check.text;
    EXPECT_THAT(check.text, HasSubstr("stands at X 9500, Y 12500, Z 12500"));
    const Ending jog = Started(folder + "jog 1 x 200");
    EXPECT_EQ(jog.code, 0) << jog.text;
    EXPECT_THAT(jog.text, HasSubstr("needle 1: X 9700, Y 12500, Z 12500"));
    EXPECT_EQ(Started(folder + "watch 1").code, 0);
    EXPECT_EQ(Started(folder + "unlock 1", "no\\n").code, 1);
    EXPECT_EQ(Started(folder + "unlock 1", "yes\\n").code, 0);
}

}  // namespace
}  // namespace gcode::test
