// What the workbench's programs say of themselves and of wrong options, where there is no display to open a
// window on.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <ostream>
#include <string>
#include <vector>

namespace workbench {

namespace {

struct Program {
    const char* name;
    const char* path;
    const char* description;
    const char* takes;  // of its help
};

void PrintTo(const Program& program, std::ostream* stream) { *stream << program.name; }

const std::vector<Program> Programs{
    {"travo-workbench", WORKBENCH_PROGRAM, "Simulated instruments for TRAVO.", "--program-folder <folder>"},
    {"workbench-ask", ASK_PROGRAM, "Sends one command to the running workbench.",
     "ready | help [COMMAND...] | COMMAND..."},
    {"TRAVOLive", LIVE_PROGRAM, "Stands in for the live camera program", "--version"},
#ifdef TOUR_PROGRAM
    {"tour", TOUR_PROGRAM, "Plays the operator on TRAVO's workbench.", "--only <name>"},
#endif
};

struct Said {
    int exitCode = -1;
    QString out;
    QString err;
};

Said Say(const char* program, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(QString::fromLatin1(name));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QString::fromLocal8Bit(program), arguments);
    EXPECT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QStringList Words(const char* line) {
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

class CommandLineOfTest : public testing::TestWithParam<Program> {
protected:
    void ExpectHelp(const QStringList& arguments) {
        const Said said = Say(GetParam().path, arguments);
        const std::string line = arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(said.exitCode, 0) << line;
        EXPECT_TRUE(said.out.startsWith(QStringLiteral("Usage: ") + QString::fromLocal8Bit(GetParam().path)))
            << line << said.out.toStdString();
        EXPECT_TRUE(said.out.contains(QString::fromLatin1(GetParam().description))) << line;
        EXPECT_TRUE(said.out.contains(QString::fromLatin1(GetParam().takes))) << line;
        EXPECT_EQ(said.err.toStdString(), "") << line;
    }
    void ExpectRefusal(const QStringList& arguments, const char* sentence) {
        const Said said = Say(GetParam().path, arguments);
        EXPECT_EQ(said.exitCode, 1) << sentence;
        EXPECT_EQ(said.err.toStdString(), std::string(GetParam().name) + ": " + sentence + "\n");
        EXPECT_EQ(said.out.toStdString(), "") << sentence;
    }
};
INSTANTIATE_TEST_SUITE_P(Programs, CommandLineOfTest, testing::ValuesIn(Programs), [](const auto& program) {
    return QString::fromLatin1(program.param.name).remove(QLatin1Char('-')).toStdString();
});

TEST_P(CommandLineOfTest, HelpIsPrintedWithoutADisplay) {
    for (const char* const option : {"--help", "-h", "--help-all"}) {
        ExpectHelp(Words(option));
    }
}

TEST_P(CommandLineOfTest, TheVersionIsPrintedWithoutADisplay) {
    for (const char* const line : {"--version", "-v", "--version --help", "--help --version"}) {
        const Said said = Say(GetParam().path, Words(line));
        EXPECT_EQ(said.exitCode, 0) << line;
        EXPECT_EQ(said.out.toStdString(), std::string(GetParam().name) + " " TRAVO_VERSION "\n");
        EXPECT_EQ(said.err.toStdString(), "");
    }
}

TEST_P(CommandLineOfTest, AWrongOptionIsToldWithoutADisplay) {
    ExpectRefusal({QStringLiteral("--nonsense")}, "Unknown option 'nonsense'.");
    ExpectRefusal(Words("-n"), "Unknown option 'n'.");
    ExpectRefusal(Words("--help=yes"), "Unexpected value after '--help'.");
    ExpectRefusal(Words("--help --nonsense"), "Unknown option 'nonsense'.");
    ExpectRefusal(Words("--nonsense --help"), "Unknown option 'nonsense'.");
}

class TheWorkbenchTest : public CommandLineOfTest {};
INSTANTIATE_TEST_SUITE_P(Programs, TheWorkbenchTest, testing::Values(Programs.at(0)));

TEST_P(TheWorkbenchTest, SaysItsHelpBesideOtherArgumentsInAnyOrder) {
    ExpectHelp(Words("--headless --help --end-with-input"));
    ExpectHelp(Words("--program-folder /nowhere --headless -h"));
    ExpectHelp(Words("-h --program-folder=/nowhere"));
}

TEST_P(TheWorkbenchTest, RefusesAnOptionThatLacksItsValueAndAFolderThatIsNotThere) {
    ExpectRefusal(Words("--headless --program-folder"), "Missing value after '--program-folder'.");
    ExpectRefusal(Words("--program-folder /nowhere"), "there is no such program folder: /nowhere");
}

class AskTest : public CommandLineOfTest {};
INSTANTIATE_TEST_SUITE_P(Programs, AskTest, testing::Values(Programs.at(1)));

TEST_P(AskTest, TakesOptionsAheadOfTheCommandAlone) {
    ExpectHelp(Words("--help world move 1 -5 -5 -5"));
    // What comes behind the first word is the command's, whatever it looks like: here it is sent.
    const Said said = Say(GetParam().path, Words("world --help -5"));
    EXPECT_EQ(said.exitCode, 1);
    EXPECT_TRUE(said.err.startsWith(QStringLiteral("workbench-ask: "))) << said.err.toStdString();
    EXPECT_FALSE(said.err.contains(QStringLiteral("option"))) << said.err.toStdString();
    EXPECT_EQ(said.out.toStdString(), "");
}

TEST_P(AskTest, SaysHowItIsUsedWhereItIsToldNothing) {
    const Said said = Say(GetParam().path, {});
    EXPECT_EQ(said.exitCode, 2);
    EXPECT_EQ(said.err.toStdString(),
              "usage: workbench-ask ready | COMMAND...\n"
              "       workbench-ask help [COMMAND...] | help --markdown\n");
}

#ifdef TOUR_PROGRAM
class TourTest : public CommandLineOfTest {};
INSTANTIATE_TEST_SUITE_P(Programs, TourTest, testing::Values(Programs.at(3)));

TEST_P(TourTest, SaysItsHelpBesideOtherArgumentsInAnyOrder) {
    ExpectHelp(Words("--only panels --help folder workbench pictures"));
    ExpectHelp(Words("folder -h workbench"));
}

TEST_P(TourTest, RefusesWhatItCannotPlay) {
    ExpectRefusal(Words("--only nothing folder workbench pictures"),
                  "there is nothing to play of the name nothing");
    ExpectRefusal(Words("folder workbench"),
                  "takes the program folder, the workbench and a folder for pictures");
}
#endif

}  // namespace

}  // namespace workbench
