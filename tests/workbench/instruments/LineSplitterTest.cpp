#include "workbench/instruments/LineSplitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace workbench {

namespace {

// The lines of the bytes, given in pieces of a size; "!" for one that overflowed.
std::string Lines(const std::string& end, const std::string& bytes, std::size_t size) {
    LineSplitter splitter(end);
    std::string text;
    for (std::size_t place = 0; place < bytes.size(); place += size) {
        splitter.Append(bytes.substr(place, size));
        while (const auto line = splitter.Next()) {
            text += (line->overflow ? "!" : line->text) + ";";
        }
    }
    return text;
}

}  // namespace

TEST(LineSplitterTest, TheSizeOfThePiecesDoesNotMatter) {
    const std::string longest(LineSplitter::LongestLine, 'x');
    const std::string bytes = "a\r\n\r\nb\rc\r\n" + longest + "\r\n" + longest + "y\r\n" + longest + longest +
                              longest + "\r\nd\r\nrest";
    const std::string lines = "a;;b\rc;" + longest + ";!;!;d;";
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        EXPECT_EQ(Lines("\r\n", bytes, size), lines) << size;
    }
}

TEST(LineSplitterTest, AOneByteEndNeedsNoCompany) {
    const std::string longest(LineSplitter::LongestLine, 'x');
    const std::string bytes = "a\r\rb\r" + longest + "\r" + longest + "y\rc\r";
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        EXPECT_EQ(Lines("\r", bytes, size), "a;;b;" + longest + ";!;c;") << size;
    }
}

TEST(LineSplitterTest, ALineEndThatBeginsInAnOverflowIsSeen) {
    const std::string bytes = std::string(200, '\r') + "\na\r\n";
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        EXPECT_EQ(Lines("\r\n", bytes, size), "!;a;") << size;
    }
}

}  // namespace workbench
