#include "workbench/window/ScorePlate.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <string>
#include <vector>

#include "Scenes.h"
#include "workbench/window/ScoreRead.h"

namespace workbench {

using test::Record;

namespace {

struct Rig {
    std::string Text(const char* name) {
        return plate.findChild<QWidget*>(QString::fromLatin1(name))->accessibleDescription().toStdString();
    }

    Scene scene = test::FreshScene();
    std::vector<std::string> said;
    ScorePlate plate{[this](const std::string& line) {
        said.push_back(line);
        return std::string("ok");
    }};
};

}  // namespace

TEST(ScorePlateTest, AtFirstThereIsNoLandingAndNothingIsCounted) {
    Rig desk;
    desk.plate.Show(desk.scene);
    EXPECT_EQ(desk.Text("landing"), "none yet");
    EXPECT_EQ(desk.Text("crossings"), "0");
    EXPECT_EQ(desk.Text("refusals"), "0");
}

TEST(ScorePlateTest, TheLastLandingAndTheCrossingsAreTheWorlds) {
    Rig desk;
    desk.scene.landing = {2, 2.14, 1, 4, 1.42, 0.2, 0.0, {}};
    desk.scene.crossingsInAll = 3;
    desk.plate.Show(desk.scene);
    EXPECT_EQ(desk.Text("landing"), "1.4 units · needle 1 on cell 4 · 0.2 above · worst 2.1");
    EXPECT_EQ(desk.Text("crossings"), "3");
}

TEST(ScorePlateTest, RefusalsAreThoseOfDriverMirrorAndMotor) {
    Rig desk;
    desk.scene.traffic = {Record("driver", "call", "getcount = -1"),
                          Record("mirror", "out", "nD2A7\\r\\n"),
                          Record("motor", "out", "N\\r"),
                          Record("driver", "call", "select 4 = 0 0"),
                          Record("mirror", "out", "oD2A7\\r\\n"),
                          Record("world", "event", "crossing 1 2 0 0"),
                          Record("gauge", "out", "AAAAAAAA\\r\\n")};
    desk.plate.Show(desk.scene);
    EXPECT_EQ(desk.plate.Refusals(), 3);
    desk.scene.traffic = {Record("motor", "out", "N\\r")};
    desk.plate.Show(desk.scene);
    EXPECT_EQ(desk.Text("refusals"), "4");
}

TEST(ScorePlateTest, ForgetForgetsAllThree) {
    Rig desk;
    desk.scene.traffic = {Record("motor", "out", "N\\r")};
    desk.plate.Show(desk.scene);
    QTest::mouseClick(desk.plate.findChild<QAbstractButton*>(QStringLiteral("forget")), Qt::LeftButton);
    EXPECT_EQ(desk.said, (std::vector<std::string>{"world crossings forget", "counters forget",
                                                   "world landing forget"}));
    EXPECT_EQ(desk.Text("refusals"), "0");
}

TEST(ScorePlateTest, CrossingsFromOneOnAreWhiteOnRed) {
    Rig desk;
    desk.plate.resize(636, 46);
    const auto under = [&] { return desk.plate.grab().toImage().pixelColor(636 - 12 - 60 - 184 + 10, 20); };
    desk.plate.Show(desk.scene);
    const QColor calm = under();
    desk.scene.crossingsInAll = 1;
    desk.plate.Show(desk.scene);
    EXPECT_NE(under(), calm);
    EXPECT_EQ(under(), QColor(0xA9, 0x3A, 0x25));
}

}  // namespace workbench
