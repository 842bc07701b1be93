#include "workbench/protocol/CommandForm.h"

#include <gtest/gtest.h>

#include "core/ground/Arithmetic.h"
#include "workbench/world/Microscope.h"
#include "workbench/world/World.h"

namespace workbench {

namespace {

bool Fits(const char* form, const char* line) { return CommandForm(form).FitTo(SplitWords(line)).whole; }

}  // namespace

TEST(CommandFormTest, WordsStandAsTheyAreAndArgumentsWithinTheirRange) {
    constexpr const char* form = "world move <needle> <x:count>";
    EXPECT_TRUE(Fits(form, "world move 1 0"));
    EXPECT_TRUE(Fits(form, " world\tmove 4 25000 \r"));
    for (const char* line :
         {"world move 0 1", "world move 5 1", "world move 1 -1", "world move 1 25001", "world move 1 1.5",
          "world move 1 +1", "world move 1", "world move 1 1 1", "world", "", "move 1 1"}) {
        EXPECT_FALSE(Fits(form, line)) << line;
    }
}

TEST(CommandFormTest, WhatStandsInBracketsMayBeLeftOutFromItsEnd) {
    constexpr const char* form = "mount <needle> <heading:angle> [<yaw:angle> [<tilt:angle>]]";
    EXPECT_TRUE(Fits(form, "mount 1 45"));
    EXPECT_TRUE(Fits(form, "mount 1 45 1"));
    EXPECT_TRUE(Fits(form, "mount 1 45 1 -2.5"));
    EXPECT_FALSE(Fits(form, "mount 1"));
    EXPECT_FALSE(Fits(form, "mount 1 45 1 2 3"));
}

TEST(CommandFormTest, OneOfSeveralMayStandInAPlaceAndASwitchTakesFigures) {
    constexpr const char* form = "fault mirror error <error> [<commands>|always]";
    EXPECT_TRUE(Fits(form, "fault mirror error 8 always"));
    EXPECT_TRUE(Fits(form, "fault mirror error 8 3"));
    EXPECT_FALSE(Fits(form, "fault mirror error 8 sometimes"));
    for (const char* word : {"on", "off", "1", "0"}) {
        EXPECT_TRUE(Fits("mirror motors on|off", (std::string("mirror motors ") + word).c_str())) << word;
    }
    EXPECT_FALSE(Fits("wire log <wire> off", "wire log mirror 0"));
}

TEST(CommandFormTest, TheArgumentsAreTheWordsWithAChoiceAndAPathIsAllOfTheRest) {
    const CommandForm form("wire log <wire> <file>");
    const std::string line = "wire log gauge /tmp/a  b.log \r";
    const CommandForm::Fit fit = form.FitTo(SplitWords(line));
    ASSERT_TRUE(fit.whole);
    EXPECT_EQ(fit.arguments, (Words{"gauge", "/tmp/a  b.log"}));
    EXPECT_EQ(CommandForm("fault <wire> silent on|off").FitTo(SplitWords("fault motor silent off")).arguments,
              (Words{"motor", "off"}));
}

TEST(CommandFormTest, ItIsShownWithoutKindsAndTellsItsRanges) {
    const CommandForm form("world move <needle> <x:count> <y:count> <z:count>");
    EXPECT_EQ(form.Shown(), "world move <needle> <x> <y> <z>");
    EXPECT_EQ(form.Ranges(), "needle 1 to 4; x, y, z 0 to 25000 counts");
    EXPECT_EQ(CommandForm("wire counters <wire>").Ranges(), "wire mirror, gauge or motor");
    EXPECT_EQ(CommandForm("ping").Ranges(), "");
    EXPECT_EQ(CommandForm("ergo <line>").Ranges(), "");
}

TEST(CommandFormTest, AKindThatDoesNotExistAndALineThatBeginsWithAnArgumentAreNoForm) {
    EXPECT_THROW(CommandForm("world move <colour>"), travo::BoundsFailure);
    EXPECT_THROW(CommandForm("<needle> moves"), travo::NumberFailure);
    EXPECT_THROW(CommandForm(""), travo::NumberFailure);
}

TEST(ArgumentTest, NumbersAreTakenToTheEndsOfTheirRangeAndNoFurther) {
    const ArgumentKind& real = ArgumentKindNamed("mirror");
    EXPECT_TRUE(Accepts(real, "-180"));
    EXPECT_TRUE(Accepts(real, "179.99"));
    for (const char* word : {"180.001", "nan", "inf", "1e300", "0x10", "", "1 "}) {
        EXPECT_FALSE(Accepts(real, word)) << word;
    }
    const ArgumentKind& serial = ArgumentKindNamed("serial");
    EXPECT_TRUE(Accepts(serial, "9223372036854775807"));
    EXPECT_FALSE(Accepts(serial, "9223372036854775808"));
    EXPECT_FALSE(Accepts(serial, "-1"));
    EXPECT_FALSE(Accepts(ArgumentKindNamed("whole"), "2147483648"));
}

TEST(ArgumentTest, TheRangesAreThoseOfTheWorld) {
    EXPECT_EQ(ArgumentKindNamed("count").lowest, LowestCount);
    EXPECT_EQ(ArgumentKindNamed("count").highest, HighestCount);
    EXPECT_EQ(ArgumentKindNamed("needle").highest, travo::NeedleCount);
    EXPECT_EQ(ArgumentKindNamed("connected").highest, travo::NeedleCount);
    EXPECT_EQ(ArgumentKindNamed("index").highest, HighestMagnification);
    EXPECT_EQ(ArgumentKindNamed("mirror").highest, MirrorRange);
    EXPECT_EQ(ArgumentKindNamed("focus").highest, FocusRange);
    EXPECT_EQ(ArgumentKindNamed("focus").lowest, -FocusRange);
}

}  // namespace workbench
