// What the workbench says of itself, where there is no display to open a window on.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>

namespace workbench {

namespace {

struct Said {
    int exitCode = -1;
    QString text;
};

Said Say(const QString& option) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(QString::fromLatin1(name));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKBENCH_PROGRAM), {option});
    EXPECT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput())};
}

TEST(Help, IsPrintedWithoutADisplay) {
    for (const char* const option : {"--help", "-h", "--help-all"}) {
        const Said said = Say(QString::fromLatin1(option));
        EXPECT_EQ(said.exitCode, 0) << option;
        EXPECT_TRUE(said.text.contains(QStringLiteral("Simulated instruments for TRAVO."))) << option;
        EXPECT_TRUE(said.text.contains(QStringLiteral("--program-folder"))) << option;
    }
}

TEST(Help, TheVersionIsPrintedWithoutADisplay) {
    for (const char* const option : {"--version", "-v"}) {
        const Said said = Say(QString::fromLatin1(option));
        EXPECT_EQ(said.exitCode, 0) << option;
        EXPECT_TRUE(said.text.startsWith(QStringLiteral("travo-workbench 1."))) << said.text.toStdString();
    }
}

}  // namespace

}  // namespace workbench
