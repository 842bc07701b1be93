// The contact check of four needles beside the same segment tests of Boost.Geometry. The goal is at most
// half the time of its segment predicates.
#include <benchmark/benchmark.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/register/linestring.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "CalibratedNeedles.h"

namespace travo::bench {
namespace {

namespace geometry = boost::geometry;
using BoostPoint = geometry::model::d2::point_xy<std::int32_t>;
using BoostSegment = geometry::model::segment<BoostPoint>;
// A line of two points that needs no memory of its own: the form in which "crosses" takes a segment.
struct BoostLine : std::array<BoostPoint, 2> {};

}  // namespace
}  // namespace travo::bench

BOOST_GEOMETRY_REGISTER_LINESTRING(travo::bench::BoostLine)

namespace travo::bench {
namespace {

constexpr std::size_t Moves = 1024;

// "Inside both" as the predicates of Boost.Geometry state it: the very rule of our crossing.
struct Crosses {
    static bool Crossing(const BoostSegment& a, const BoostSegment& b) {
        return geometry::crosses(BoostLine{{a.first, a.second}}, BoostLine{{b.first, b.second}});
    }
};

// Its cheaper predicate, which also counts touching ends.
struct Intersects {
    static bool Crossing(const BoostSegment& a, const BoostSegment& b) { return geometry::intersects(a, b); }
};

// Only its side strategy, with our rule built on it by hand.
struct Sides {
    using Side = geometry::strategy::side::side_by_triangle<>;
    static bool Crossing(const BoostSegment& a, const BoostSegment& b) {
        return Side::apply(a.first, a.second, b.first) * Side::apply(a.first, a.second, b.second) < 0 &&
               Side::apply(b.first, b.second, a.first) * Side::apply(b.first, b.second, a.second) < 0;
    }
};

BoostPoint End(const Shaft& shaft, ShaftEnd end) { return {shaft[0][end], shaft[1][end]}; }

template <typename Predicate>
bool BoostCrossCheck(const Shaft& now, const Shaft& swept, const Shaft& other) {
    const BoostSegment standing(End(other, Tip), End(other, Rear));
    return Predicate::Crossing({End(now, Tip), End(swept, Tip)}, standing) ||
           Predicate::Crossing({End(now, Tip), End(now, Rear)}, standing) ||
           Predicate::Crossing({End(swept, Tip), End(swept, Rear)}, standing) ||
           (std::abs(swept[0][Tip] - other[0][Tip]) < NearlyCoincident &&
            std::abs(swept[0][Rear] - other[0][Rear]) < NearlyCoincident);
}

struct OurCheck {
    static bool Contact(const Shaft& now, const Shaft& swept, const Shaft& other) {
        return NeedleCrossCheck(now, swept, other);
    }
};

template <typename Predicate>
struct BoostCheck {
    static bool Contact(const Shaft& now, const Shaft& swept, const Shaft& other) {
        return BoostCrossCheck<Predicate>(now, swept, other);
    }
};

// One planned move with all shafts in plan view.
struct Move {
    std::int16_t needle;
    std::array<PositionXYZ, NeedleCount> tips;
    PositionXYZ target;
    Shaft now;
    Shaft swept;
    std::array<Shaft, NeedleCount> all;
};

class Field {
public:
    Field() {
        for (std::size_t n = 0; n < Moves; ++n) {
            Move move{};
            move.needle = static_cast<std::int16_t>(n % NeedleCount);
            for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
                move.tips[static_cast<std::size_t>(needle)] = needles_.InField(needle, 4000);
            }
            move.target = needles_.InField(move.needle, 4000);
            PutShafts(move);
            moves_.push_back(move);
        }
    }

    // The segment tests of one move against the three other needles.
    template <typename Check>
    static bool Clear(const Move& move) {
        for (std::size_t other = 0; other < move.all.size(); ++other) {
            if (other != static_cast<std::size_t>(move.needle) &&
                Check::Contact(move.now, move.swept, move.all[other])) {
                return false;
            }
        }
        return true;
    }

    template <typename Check>
    void AllSegmentTests() const {
        for (const Move& move : moves_) {
            benchmark::DoNotOptimize(Clear<Check>(move));
        }
    }

    // The whole check: ours as the needles' owner offers it.
    bool WholeOurs(const Move& move) {
        needles_.PlaceTip(move.needle, move.tips[static_cast<std::size_t>(move.needle)]);
        return needles_.needles.ContactEvasion(move.needle, NeedleCount - 1, move.target);
    }

    // The whole check with the same maps and shafts and Boost's segment tests.
    template <typename Check>
    bool WholeWith(const Move& move) {
        needles_.PlaceTip(move.needle, move.tips[static_cast<std::size_t>(move.needle)]);
        Move present = move;
        PutShafts(present);
        return Clear<Check>(present);
    }

    void PlaceAll(const Move& move) {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            needles_.PlaceTip(needle, move.tips[static_cast<std::size_t>(needle)]);
        }
    }

    const std::vector<Move>& moves() const { return moves_; }

    // Ends the program where a result differs; returns how many moves are clear.
    std::size_t Compare() {
        std::size_t clear = 0;
        for (const Move& move : moves_) {
            PlaceAll(move);
            const bool ours = WholeOurs(move);
            clear += ours;
            if (ours != Clear<OurCheck>(move) || ours != Clear<BoostCheck<Crosses>>(move) ||
                ours != Clear<BoostCheck<Intersects>>(move) || ours != Clear<BoostCheck<Sides>>(move) ||
                ours != WholeWith<BoostCheck<Crosses>>(move)) {
                std::fprintf(stderr, "The contact checks differ.\n");
                std::abort();
            }
        }
        return clear;
    }

private:
    PositionXYZ ToCommon(std::int32_t needle, const PositionXYZ& p) const {
        const clsNeedleMove& needles = needles_.needles;
        return {needles.Calibration(needle, 0, p), needles.Calibration(needle, 1, p),
                needles.Calibration(needle, 2, p)};
    }
    PositionXYZ ToManipulator(std::int32_t needle, const PositionXYZ& p) const {
        const clsNeedleMove& needles = needles_.needles;
        return {needles.InverseCalibration(needle, 0, p), needles.InverseCalibration(needle, 1, p),
                needles.InverseCalibration(needle, 2, p)};
    }
    // The rear of the shaft, and its tip pushed forward to `atLeastX` where that is further.
    Shaft ShaftAt(std::int32_t needle, const PositionXYZ& tip, const std::int32_t* atLeastX) const {
        PositionXYZ front = ToManipulator(needle, tip);
        PositionXYZ rear = front;
        rear[0] = 0;
        if (atLeastX == nullptr) {
            return PlanShaft(tip, ToCommon(needle, rear));
        }
        front[0] = std::max(front[0], *atLeastX);
        return PlanShaft(ToCommon(needle, front), ToCommon(needle, rear));
    }
    void PutShafts(Move& move) const {
        const std::int32_t targetX = needles_.needles.InverseCalibration(move.needle, 0, move.target);
        const Shaft target = ShaftAt(move.needle, move.target, nullptr);
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            const auto row = static_cast<std::size_t>(needle);
            move.all[row] = ShaftAt(needle, move.tips[row], needle == move.needle ? &targetX : nullptr);
        }
        move.now = move.all[static_cast<std::size_t>(move.needle)];
        move.swept = SweptShaft(move.now, target);
    }

    CalibratedNeedles needles_{2};
    std::vector<Move> moves_;
};

Field& TheField() {
    static Field field;
    return field;
}

void Report(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Moves));
}

template <typename Check>
void SegmentTests(benchmark::State& state) {
    const Field& field = TheField();
    for ([[maybe_unused]] auto _ : state) {
        field.AllSegmentTests<Check>();
    }
    Report(state);
}

// Ours and a peer in turn, so that a change of the processor's speed meets both alike.
template <typename Peer>
void SegmentTestsOursAgainst(benchmark::State& state) {
    const Field& field = TheField();
    std::vector<double> ours;
    std::vector<double> boost;
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(NanosecondsEach(Moves, [&] { field.AllSegmentTests<OurCheck>(); }));
        boost.push_back(NanosecondsEach(Moves, [&] { field.AllSegmentTests<Peer>(); }));
    }
    state.counters["ours_ns"] = Median(ours);
    state.counters["boost_ns"] = Median(boost);
    state.counters["ratio"] = MedianRatio(ours, boost);
}

template <typename Peer>
void WholeCheckOursAgainst(benchmark::State& state) {
    Field& field = TheField();
    std::vector<double> ours;
    std::vector<double> boost;
    for ([[maybe_unused]] auto _ : state) {
        ours.push_back(NanosecondsEach(Moves, [&] {
            for (const Move& move : field.moves()) {
                benchmark::DoNotOptimize(field.WholeOurs(move));
            }
        }));
        boost.push_back(NanosecondsEach(Moves, [&] {
            for (const Move& move : field.moves()) {
                benchmark::DoNotOptimize(field.WholeWith<Peer>(move));
            }
        }));
    }
    state.counters["ours_ns"] = Median(ours);
    state.counters["boost_ns"] = Median(boost);
    state.counters["ratio"] = MedianRatio(ours, boost);
}

BENCHMARK(SegmentTests<OurCheck>);
BENCHMARK(SegmentTests<BoostCheck<Crosses>>);
BENCHMARK(SegmentTests<BoostCheck<Intersects>>);
BENCHMARK(SegmentTests<BoostCheck<Sides>>);
BENCHMARK(SegmentTestsOursAgainst<BoostCheck<Crosses>>);
BENCHMARK(SegmentTestsOursAgainst<BoostCheck<Intersects>>);
BENCHMARK(SegmentTestsOursAgainst<BoostCheck<Sides>>);
BENCHMARK(WholeCheckOursAgainst<BoostCheck<Crosses>>);
BENCHMARK(WholeCheckOursAgainst<BoostCheck<Intersects>>);

}  // namespace
}  // namespace travo::bench

int main(int argc, char** argv) {
    try {
        const std::size_t clear = travo::bench::TheField().Compare();
        std::printf("%zu of %zu moves are clear\n", clear, travo::bench::Moves);
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
