#include "workbench/window/TruthLine.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <vector>

#include "Scenes.h"
#include "workbench/window/PlanReadout.h"
#include "workbench/window/TruthTools.h"

namespace workbench {

namespace {

QStringList Parts() {
    return {QStringLiteral("X −470.0   Y 190.7"), QStringLiteral("mirror 94, −38"),
            QStringLiteral("on cell 4")};
}

}  // namespace

TEST(TruthLine, WhereThereIsNoRoomForTheHintItsLastSentencesAreLeftOut) {
    TruthLine line;
    line.SetHeightsWidth(84);
    line.resize(440, 28);
    line.ShowScale(0.05);
    EXPECT_FALSE(line.Text().isEmpty());
    EXPECT_LT(line.Text().size(), ReadoutHint().size());
    EXPECT_TRUE(ReadoutHint().startsWith(line.Text()));
    EXPECT_TRUE(line.Text().endsWith(QLatin1Char('.')));
}

TEST(TruthLine, WithoutAPointerItSaysWhatTheHandCanDo) {
    TruthLine line;
    line.resize(896, 28);
    EXPECT_EQ(line.Text(), ReadoutHint());
    line.ShowPointer(Parts());
    line.ShowPointer({});
    EXPECT_EQ(line.Text(), ReadoutHint());
}

TEST(TruthLine, ItSaysOfThePointerWhatThereIsRoomFor) {
    TruthLine line;
    line.resize(896, 28);
    line.ShowScale(0.42);
    line.ShowPointer(Parts());
    EXPECT_EQ(line.Text(), QStringLiteral("X −470.0   Y 190.7   mirror 94, −38   on cell 4"));
    line.resize(440, 28);
    EXPECT_EQ(line.Text(), QStringLiteral("X −470.0   Y 190.7"));
}

TEST(TruthLine, AssistiveProgramsAreToldThePlaceUnderThePointerWhole) {
    TruthLine line;
    line.resize(440, 28);
    line.ShowPointer(Parts());
    EXPECT_EQ(line.accessibleDescription(),
              QStringLiteral("X −470.0   Y 190.7   mirror 94, −38   on cell 4"));
    line.Tell(QStringLiteral("cell 4"));
    EXPECT_EQ(line.accessibleDescription(), QStringLiteral("cell 4"));
    line.Tell({});
    line.ShowPointer({});
    EXPECT_EQ(line.accessibleDescription(), QString());
}

TEST(TruthLine, WhatWasClickedOnStandsUntilThePointerMovesOn) {
    TruthLine line;
    line.ShowPointer(Parts());
    line.Tell(QStringLiteral("cell 4"));
    EXPECT_EQ(line.Text(), QStringLiteral("cell 4"));
    line.Tell({});
    EXPECT_TRUE(line.Text().startsWith(QStringLiteral("X −470.0")));
}

TEST(TruthLine, ARefusalStandsForItsTimeAndIsToldInWords) {
    TruthLine line;
    line.ShowPointer(Parts());
    line.Refuse(QStringLiteral("the mirror's motors are off"));
    EXPECT_EQ(line.Text(), QStringLiteral("the mirror's motors are off"));
    EXPECT_EQ(line.accessibleDescription(), QStringLiteral("the mirror's motors are off"));
    EXPECT_EQ(TruthLine::RefusalStands, 4000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.Text().startsWith(QStringLiteral("X −470.0")); }, 6000));
}

TEST(TruthTools, TheToolsStandAtTheBarsRightEnd) {
    TruthTools tools([](PlanFollow) {}, [](double) {});
    tools.resize(636, 40);
    tools.show();
    const auto at = [&](const char* name) {
        return tools.findChild<QWidget*>(QString::fromLatin1(name))->geometry();
    };
    EXPECT_EQ(at("fit_all"), QRect(588, 6, 40, 28));
    EXPECT_EQ(at("fit_dish"), QRect(538, 6, 46, 28));
    EXPECT_EQ(at("fit_view"), QRect(488, 6, 46, 28));
    EXPECT_EQ(at("fit_needle"), QRect(424, 6, 60, 28));
    EXPECT_EQ(at("zoom_in"), QRect(392, 6, 28, 28));
    EXPECT_EQ(at("zoom_out"), QRect(360, 6, 28, 28));
}

TEST(TruthTools, ABarUnder460WideHasAShortTitle) {
    EXPECT_EQ(TruthTools::TitleFor(460), QStringLiteral("The truth, seen from above"));
    EXPECT_EQ(TruthTools::TitleFor(459), QStringLiteral("Truth"));
}

TEST(TruthTools, PressesAndKeysSayWhatToFollowAndHowToZoom) {
    std::vector<PlanFollow> chosen;
    std::vector<double> zoomed;
    TruthTools tools([&](PlanFollow follow) { chosen.push_back(follow); },
                     [&](double factor) { zoomed.push_back(factor); });
    tools.resize(636, 40);
    tools.show();
    tools.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tools));
    for (const char* name : {"fit_needle", "fit_view", "fit_dish", "fit_all", "zoom_in", "zoom_out"}) {
        QTest::mouseClick(tools.findChild<QAbstractButton*>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    const std::vector<PlanFollow> all = {PlanFollow::Needle, PlanFollow::View, PlanFollow::Dish,
                                         PlanFollow::All};
    EXPECT_EQ(chosen, all);
    EXPECT_EQ(zoomed, (std::vector<double>{1.25, 1.0 / 1.25}));
    chosen.clear();
    zoomed.clear();
    for (const char key : {'n', 'v', 'd', 'a', '+', '-'}) {
        QTest::keyClick(&tools, key);
    }
    EXPECT_EQ(chosen, all);
    EXPECT_EQ(zoomed, (std::vector<double>{1.25, 1.0 / 1.25}));
}

TEST(TruthTools, OneIsOnAndAPressAloneTurnsNoneOff) {
    TruthTools tools([](PlanFollow) {}, [](double) {});
    const auto isOn = [&](const char* name) {
        return tools.findChild<QAbstractButton*>(QString::fromLatin1(name))->isChecked();
    };
    tools.ShowFollow(PlanFollow::View);
    EXPECT_TRUE(isOn("fit_view"));
    EXPECT_FALSE(isOn("fit_all"));
    QTest::mouseClick(tools.findChild<QAbstractButton*>(QStringLiteral("fit_view")), Qt::LeftButton);
    EXPECT_TRUE(isOn("fit_view"));
    tools.ShowFollow(PlanFollow::Nothing);
    EXPECT_FALSE(isOn("fit_view"));
}

}  // namespace workbench
