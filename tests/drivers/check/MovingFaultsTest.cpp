// Faults that only a move shows: each is found, and nothing else is said to be wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <map>

#include "drivers/check/CheckedLibrary.h"

namespace check {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

void ExpectBreach(const std::string& fault, const std::string& clause, const std::string& told) {
    const Result result = RunCheck("--move --reach 400 " + Planted(fault));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.Clauses("BROKEN"), ElementsAre(clause)) << result.text;
    EXPECT_THAT(result.Row(clause), HasSubstr(told));
}

// The file into which the library that records moves writes, for one test.
class RecordOfMoves {
public:
    struct Place {
        int number = 0;
        std::array<int, 3> counts{};
    };

    RecordOfMoves() {
        close(mkstemp(path_.data()));
        setenv("RECORD_OF_MOVES", path_.c_str(), 1);
    }
    ~RecordOfMoves() { unlink(path_.c_str()); }
    RecordOfMoves(const RecordOfMoves&) = delete;
    RecordOfMoves& operator=(const RecordOfMoves&) = delete;

    std::vector<Place> Places() const {
        std::vector<Place> places;
        std::ifstream file(path_);
        for (Place place; file >> place.number >> place.counts[0] >> place.counts[1] >> place.counts[2];) {
            places.push_back(place);
        }
        return places;
    }

private:
    std::string path_ = "/tmp/driver-check-XXXXXX";
};

}  // namespace

TEST(DriverCheckMovesTest, NothingIsMovedWithoutTheWordForIt) {
    const RecordOfMoves record;
    EXPECT_EQ(RunCheck(Planted("RecordsMoves")).exitCode, 0);
    EXPECT_THAT(record.Places(), testing::IsEmpty());
}

TEST(DriverCheckMovesTest, NoNeedleIsSentFurtherThanTheReachFromWhereItStoodAndEachComesBack) {
    const RecordOfMoves record;
    EXPECT_EQ(RunCheck("--move --reach 30 " + Planted("RecordsMoves")).exitCode, 0);
    const std::map<int, std::array<int, 3>> stood{{1, {300, 12500, 12500}}, {2, {12500, 12500, 12500}}};
    std::map<int, std::array<int, 3>> last;
    int furthest = 0;
    for (const RecordOfMoves::Place& place : record.Places()) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            furthest = std::max(furthest, std::abs(place.counts[axis] - stood.at(place.number)[axis]));
        }
        last[place.number] = place.counts;
    }
    EXPECT_EQ(furthest, 30);
    EXPECT_EQ(last, stood);
}

TEST(DriverCheckMovesTest, APlaceOutOfRangeIsNotTriedWhereItLiesBeyondTheReach) {
    const RecordOfMoves record;
    RunCheck("--move --reach 300 " + Planted("RecordsMoves"));
    const auto isOutside = [](const RecordOfMoves::Place& place) {
        return *std::min_element(place.counts.begin(), place.counts.end()) < 0;
    };
    const auto places = record.Places();
    EXPECT_TRUE(std::none_of(places.begin(), places.end(), isOutside));
    RunCheck("--move --reach 301 " + Planted("RecordsMoves"));
    const auto further = record.Places();
    EXPECT_EQ(std::count_if(further.begin(), further.end(), isOutside), 1);
}

TEST(DriverCheckMovesTest, FindsMovesWithinTheRangeThatAreRefused) {
    ExpectBreach("RefusesMoves", "taken", "(700, 12700, 12600) fails with -9");
}

TEST(DriverCheckMovesTest, FindsAMoveThatReturnsOnlyAtItsEnd) {
    ExpectBreach("ReturnsAtArrival", "returns", "with the needle there");
}

TEST(DriverCheckMovesTest, FindsReadingsThatSayWhatWasCommanded) {
    ExpectBreach("GivesCommandedPlace", "true-place", "there at once, a way of 400 counts");
}

TEST(DriverCheckMovesTest, FindsReadingsThatSayWhereTheNeedleWas) {
    ExpectBreach("GivesOldPlace", "true-place", "no reading lies between the ends of a way of 400 counts");
}

TEST(DriverCheckMovesTest, FindsAWayThatIsNoStraightLine) {
    ExpectBreach("MovesAxisByAxis", "straight", "between (300, 12500, 12500) and (700, 12700, 12600)");
}

TEST(DriverCheckMovesTest, FindsANeedleThatArrivesTooLate) {
    ExpectBreach("ArrivesLate", "arrival", "due after 100.0 ms and 20 ms");
}

TEST(DriverCheckMovesTest, FindsAPlaceOutOfRangeThatIsTaken) {
    ExpectBreach("TakesAnyPlace", "refusal", "DriverMoveTo takes (-1, 12500, 12500)");
}

TEST(DriverCheckMovesTest, FindsAStopThatStopsNothing) {
    ExpectBreach("IgnoresStop", "stop", "goes on from");
}

TEST(DriverCheckMovesTest, FindsAStopThatLosesThePosition) {
    ExpectBreach("FailsBehindStop", "stop", "no position behind a stop");
}

}  // namespace check
