#include "drivers/gcode/Numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace gcode {
namespace {

using ::testing::ElementsAre;

TEST(GcodeNumbersTest, AMinusDigitsAndDecimalsAreANumber) {
    EXPECT_EQ(Decimal("0"), 0);
    EXPECT_EQ(Decimal("-12.5"), -12.5);
    EXPECT_EQ(Decimal("007"), 7);
    EXPECT_EQ(Decimal("123456789.123456789"), 123456789.123456789);
}

TEST(GcodeNumbersTest, NothingElseIsANumber) {
    for (const char* text : {"", "-", ".", "1.", ".5", "+1", "1e3", "nan", "inf", "-inf", "0x10", " 1", "1 ",
                             "1,5", "--1", "1.2.3", "1234567890", "1.1234567890", "1-"}) {
        EXPECT_FALSE(Decimal(text)) << text;
    }
}

TEST(GcodeNumbersTest, ANaturalNumberIsDigitsAlone) {
    EXPECT_EQ(Natural("15"), 15);
    EXPECT_EQ(Natural("999999999"), 999999999);
    for (const char* text : {"", "-1", "1.0", "1a", "1000000000"}) {
        EXPECT_FALSE(Natural(text)) << text;
    }
}

TEST(GcodeNumbersTest, ATripleMayHaveFurtherAxesBehindIt) {
    EXPECT_THAT(*DecimalTriple("1.5,-2,3"), ElementsAre(1.5, -2, 3));
    EXPECT_THAT(*DecimalTriple("1,2,3,4"), ElementsAre(1, 2, 3));
    for (const char* text : {"1,2", "1,2,", "1,,3", "1,2,3,x", "1,2,3,4,5,6,7"}) {
        EXPECT_FALSE(DecimalTriple(text)) << text;
    }
}

TEST(GcodeNumbersTest, NumbersAreWrittenWithAPointWhateverTheirSize) {
    EXPECT_EQ(Fixed(-12.3456, 3), "-12.346");
    EXPECT_EQ(Fixed(4, 0), "4");
    EXPECT_EQ(Fixed(0.000001, 5), "0.00000");
}

}  // namespace
}  // namespace gcode
