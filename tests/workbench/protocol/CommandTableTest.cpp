// The table of commands against what is made of it: the answers, the help, the docs.
#include "workbench/protocol/CommandTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "workbench/commands/Bench.h"
#include "workbench/protocol/CommandHelp.h"

namespace workbench {

namespace {

// A line of the form, each argument at one end of its range.
std::string Example(std::string_view form, bool highest) {
    static const std::regex argument("<(?:[^:>]+:)?([^>]+)>(?:\\|[^ \\]]+)?");
    std::string text = std::regex_replace(std::string(form), std::regex("[\\[\\]]"), "");
    text = std::regex_replace(text, std::regex("on\\|off"), highest ? "on" : "off");
    std::smatch found;
    while (std::regex_search(text, found, argument)) {
        const ArgumentKind& kind = ArgumentKindNamed(found[1].str());
        std::string value = "RZ1";
        if (kind.values == ArgumentKind::Values::Whole || kind.values == ArgumentKind::Values::Real) {
            value = std::to_string(std::llround(highest ? kind.highest : kind.lowest));
        } else if (kind.values == ArgumentKind::Values::Choice) {
            value = kind.choices.substr(0, kind.choices.find('|'));
        } else if (kind.values == ArgumentKind::Values::Serial) {
            value = "0";
        }
        text = found.prefix().str() + value + found.suffix().str();
    }
    return text;
}

std::string RefusalOf(const char* line) { return FindCommand(SplitWords(line)).refusal; }

std::string Page() {
    std::ifstream file(WORKBENCH_PAGE);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace

TEST(CommandTableTest, EveryRowIsDoneByTheWorkbenchAndEveryFormIsThereOnce) {
    const Bench bench;
    EXPECT_EQ(bench.commands.Missing(), std::vector<std::string>{});
    std::set<std::string> forms;
    for (const Command& command : AllCommands()) {
        EXPECT_TRUE(forms.insert(command.form.Shown()).second) << command.form.Shown();
        EXPECT_FALSE(command.row.sentence.empty()) << command.form.Shown();
    }
    EXPECT_GT(forms.size(), 80U);
}

TEST(CommandTableTest, ALineOfARowIsThatRowAtBothEndsOfItsRanges) {
    for (const Command& command : AllCommands()) {
        for (const bool highest : {false, true}) {
            const std::string line = Example(command.row.form, highest);
            const FoundCommand found = FindCommand(SplitWords(line));
            ASSERT_NE(found.command, nullptr) << line << ": " << found.refusal;
            EXPECT_EQ(found.command->form.Shown(), command.form.Shown()) << line;
        }
    }
}

TEST(CommandTableTest, ALineWithOneWordMoreIsRefusedUnlessItEndsWithAPath) {
    for (const Command& command : AllCommands()) {
        const std::string line = Example(command.row.form, false) + " surplus";
        const FoundCommand found = FindCommand(SplitWords(line));
        const bool endsWithPath =
            found.command != nullptr && found.command->form.Shown().find("<file>") != std::string::npos;
        EXPECT_TRUE(found.command == nullptr || endsWithPath) << line;
        EXPECT_EQ(found.command == nullptr, !found.refusal.empty()) << line;
    }
}

TEST(CommandTableTest, WhatCannotBeIsToldWithWhatCouldStandThere) {
    EXPECT_EQ(RefusalOf(""), "a command is expected; \"workbench-ask help\" lists them all");
    EXPECT_EQ(RefusalOf("wrold tip 1"),
              "there is no command \"wrold\"; \"workbench-ask help\" lists them all");
    EXPECT_EQ(RefusalOf("hardware"), "\"hardware\" is to be followed by select or selected");
    EXPECT_EQ(
        RefusalOf("driver fly"),
        "\"driver\" is to be followed by getposition, moveto, select, getcount or reconnect, not \"fly\"");
    EXPECT_EQ(RefusalOf("world move 1 0 0 25001"),
              "\"world move 1 0 0\" is to be followed by <z> (0 to 25000 counts), not \"25001\"");
    EXPECT_EQ(RefusalOf("world tip"), "\"world tip\" is to be followed by <needle> (1 to 4)");
    EXPECT_EQ(RefusalOf("ping now"), "nothing may follow \"ping\"");
    EXPECT_EQ(RefusalOf("fault mirror motors maybe"),
              "\"fault mirror motors\" is to be followed by on or off, not \"maybe\"");
}

TEST(CommandTableTest, ARefusalQuotesNothingThatIsNoTextAndNothingEndless) {
    EXPECT_EQ(RefusalOf("a\x01\"\xff"),
              "there is no command \"a???\"; \"workbench-ask help\" lists them all");
    const std::string line(5000, 'x');
    EXPECT_LT(RefusalOf(line.c_str()).size(), 120U);
}

TEST(CommandHelpTest, ItExplainsAllCommandsAndThoseThatBeginWithSomeWords) {
    const std::string all = HelpText({});
    for (const Command& command : AllCommands()) {
        EXPECT_NE(all.find("  " + command.form.Shown() + "\n"), std::string::npos) << command.form.Shown();
    }
    EXPECT_EQ(HelpText(SplitWords("world clock")),
              "world clock\n"
              "    The time since the start, from which crossings, landings and traffic count.\n"
              "    Answer: ok, then ms\n");
    EXPECT_EQ(HelpText(SplitWords("fault count")),
              "fault count <n>\n"
              "    The first n manipulators are connected; needles that are not cross nothing.\n"
              "    Arguments: n 0 to 4\n"
              "    Answer: ok\n");
    const std::string landing = HelpText(SplitWords("world landing"));
    EXPECT_NE(landing.find("world landing forget\n"), std::string::npos);
    EXPECT_EQ(landing.find("world tip"), std::string::npos);
    EXPECT_EQ(HelpText(SplitWords("wrold")), "");
    EXPECT_EQ(HelpText(SplitWords("ping now")), "");
}

TEST(CommandHelpTest, TheListOfCommandsInTheDocsIsTheTable) {
    const std::string page = Page();
    const std::string from = "<!-- commands -->\n\n";
    const std::string to = "<!-- end of commands -->\n";
    const std::size_t begin = page.find(from);
    const std::size_t end = page.find(to);
    ASSERT_NE(begin, std::string::npos);
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(page.substr(begin + from.size(), end - begin - from.size()), MarkdownText())
        << "tools/workbench-commands.sh BUILD-FOLDER writes it anew";
}

}  // namespace workbench
