#include "devices/links/ManipulatorRecord.h"

#include <gtest/gtest.h>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr PositionXYZ Counts{12000, 0, 25000};

TEST(ManipulatorRecordTest, IsIndexAndCountsWithCommas) {
    EXPECT_EQ(ManipulatorRecord::Text(2, Counts), "2,12000,0,25000");
}

TEST(ManipulatorRecordTest, TellsWhatWasWrittenIntoIt) {
    const ManipulatorRecord record(ManipulatorRecord::Text(3, Counts));
    EXPECT_TRUE(record.HoldsPosition());
    EXPECT_EQ(record.Index(), 3);
    EXPECT_EQ(record.Counts(), Counts);
}

TEST(ManipulatorRecordTest, Minus1AloneHoldsNoPosition) {
    EXPECT_EQ(ManipulatorRecord::Nothing(), "-1");
    EXPECT_FALSE(ManipulatorRecord(ManipulatorRecord::Nothing()).HoldsPosition());
}

TEST(ManipulatorRecordTest, WithABadCountStillTellsItsIndex) {
    for (const char* const text : {"1,2,3", "1,2,3,x", "1,,3,4", "1,2,3, 4", "1"}) {
        const ManipulatorRecord record(text);
        EXPECT_EQ(record.Index(), 1) << text;
        EXPECT_THROW(record.Counts(), NumberFailure) << text;
    }
}

TEST(ManipulatorRecordTest, WithoutAnIndexIsAFailure) {
    for (const char* const text : {"", ",1,2,3", "x,1,2,3", " 1,2,3,4"}) {
        EXPECT_THROW(ManipulatorRecord(text).Index(), NumberFailure) << text;
        EXPECT_THROW(ManipulatorRecord(text).HoldsPosition(), NumberFailure) << text;
    }
}

TEST(ManipulatorRecordTest, BeyondItsIntegersIsAnOverflow) {
    EXPECT_THROW(ManipulatorRecord("32768,1,2,3").Index(), OverflowFailure);
    EXPECT_THROW(ManipulatorRecord("1,2147483648,2,3").Counts(), OverflowFailure);
}

}  // namespace

}  // namespace travo
