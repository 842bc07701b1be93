#include "workbench/commands/SettingsWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <system_error>

#include "core/ground/Arithmetic.h"

namespace workbench {

using travo::PositionXYZ;

namespace {

const std::string SomeTime = "24/05/11    09:30";

using Values = std::map<std::string, std::string>;  // "section/key"

Values ReadProfile(const std::string& text) {
    Values values;
    std::string section;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line.pop_back();  // the CR
        if (line.starts_with("[")) {
            section = line.substr(1, line.size() - 2);
        } else {
            const std::size_t equals = line.find('=');
            values[section + "/" + line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    return values;
}

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector CrossProduct(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// The two maps of a control program that knows a needle by its settings alone: three unit vectors
// measured in counts are the columns of the matrix from counts to common units.
class Maps {
public:
    Maps(const Values& values, int needle, bool storedCentre) {
        const auto read = [&](const std::string& key) {
            Vector place{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                place[axis] = std::stod(values.at("Manipulator Calibration:" + std::to_string(needle) + "/" +
                                                  key + ",XYZ:" + std::to_string(axis)));
            }
            return place;
        };
        const Vector apex = read("Index:0");
        const Vector left = read("Index:1");
        const Vector right = read("Index:2");
        const Vector raised = read("Index:3");
        zero_ = read("ZERO");
        centre_ = storedCentre ? read("Center") : 0.5 * (0.5 * (left + right) + apex);
        Vector x = right - left;
        const Vector y = left + right - 2.0 * apex;
        const Vector z = raised - apex;
        // Of the cross product the third component is taken with the other sign.
        Vector hand = CrossProduct(x, y);
        hand[2] = -hand[2];
        const Vector differences = {std::abs(hand[0] - z[0]), std::abs(hand[1] - z[1]),
                                    std::abs(hand[2] - z[2])};
        const auto dominant = static_cast<std::size_t>(
            std::max_element(differences.begin(), differences.end()) - differences.begin());
        direct_ = hand[dominant] * z[dominant] <= 0.0;
        x = (direct_ ? 1.0 : -1.0) * x;
        columns_ = {Unit(x), Unit(y), Unit(z)};
    }

    PositionXYZ ToCommon(const PositionXYZ& counts) const {
        const Vector way = Exact(counts) - centre_;
        Vector moved = way[0] * columns_[0] + way[1] * columns_[1] + way[2] * columns_[2];
        moved[0] = direct_ ? moved[0] : -moved[0];
        return Whole(zero_ + moved);
    }

    // By Cramer's rule.
    PositionXYZ ToCounts(const PositionXYZ& place) const {
        Vector way = Exact(place) - zero_;
        way[0] = direct_ ? way[0] : -way[0];
        const double whole = Dot(columns_[0], CrossProduct(columns_[1], columns_[2]));
        const Vector counts = {Dot(way, CrossProduct(columns_[1], columns_[2])) / whole,
                               Dot(columns_[0], CrossProduct(way, columns_[2])) / whole,
                               Dot(columns_[0], CrossProduct(columns_[1], way)) / whole};
        return Whole(centre_ + counts);
    }

private:
    static Vector Unit(const Vector& a) { return (1.0 / std::sqrt(Dot(a, a))) * a; }

    Vector zero_{};
    Vector centre_{};
    std::array<Vector, 3> columns_{};
    bool direct_ = false;
};

Maps MapsOf(const Mount& mount, const CalibrationView& view, bool storedCentre) {
    const std::array<NeedleCalibration, 1> calibrations = {CalibrationOf(mount, view)};
    return {ReadProfile(SettingsText(calibrations, SomeTime)), 0, storedCentre};
}

void ForEachPlace(const std::function<void(const Vector&)>& look) {
    for (int x = -900; x <= 900; x += 75) {
        for (int y = -900; y <= 900; y += 75) {
            for (const double z : {-500.0, 0.0, 500.0}) {
                look({static_cast<double>(x), static_cast<double>(y), z});
            }
        }
    }
}

// The largest distance of what the map says from where the tip truly is.
double ForwardError(const Mount& mount, const Maps& maps) {
    double worst = 0.0;
    ForEachPlace([&](const Vector& place) {
        const PositionXYZ counts = Whole(CountsFor(mount, place));
        worst = std::max(worst, DistanceOf(Exact(maps.ToCommon(counts)), TipOf(mount, Exact(counts))));
    });
    return worst;
}

// The largest distance of the true tip from the target that was asked for.
double LandingError(const Mount& mount, const Maps& maps) {
    double worst = 0.0;
    ForEachPlace([&](const Vector& place) {
        worst = std::max(worst, DistanceOf(TipOf(mount, Exact(maps.ToCounts(Whole(place)))), place));
    });
    return worst;
}

class TemporaryFolder {
public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "settings-XXXXXX") {
        std::string name = path_.string();
        path_ = mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

std::string Contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(SettingsWriterTest, TheMapGivesTheTrueTipWithin2UnitsOver900ForAllDefaultMounts) {
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        for (const bool storedCentre : {true, false}) {
            const Mount mount = DefaultMount(needle);
            const double error = ForwardError(mount, MapsOf(mount, {}, storedCentre));
            EXPECT_LE(error, 2.0) << "needle " << needle
                                  << (storedCentre ? ", stored centre" : ", computed centre");
            RecordProperty("forward_error_" + std::to_string(needle) + (storedCentre ? "s" : "c"),
                           std::to_string(error));
        }
    }
}

TEST(SettingsWriterTest, ATargetLandsWithin2UnitsOver900ForAllDefaultMounts) {
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        for (const bool storedCentre : {true, false}) {
            const Mount mount = DefaultMount(needle);
            const double error = LandingError(mount, MapsOf(mount, {}, storedCentre));
            EXPECT_LE(error, 2.0) << "needle " << needle
                                  << (storedCentre ? ", stored centre" : ", computed centre");
            RecordProperty("landing_error_" + std::to_string(needle) + (storedCentre ? "s" : "c"),
                           std::to_string(error));
        }
    }
}

TEST(SettingsWriterTest, AFreeHeadingOrAnOffCentreCalibrationCostsAtMost11Units) {
    double worstFree = 0.0;
    for (int tenths = 0; tenths < 3600; tenths += 17) {
        const Mount mount = HomedMount(tenths / 10.0);
        worstFree = std::max(worstFree, LandingError(mount, MapsOf(mount, {}, true)));
    }
    EXPECT_LE(worstFree, 11.0);
    RecordProperty("free_heading", std::to_string(worstFree));
    double worstOff = 0.0;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const Mount mount = DefaultMount(needle);
        for (const std::int32_t mirror : {-60, -33, 17, 40, 60}) {
            const CalibrationView view{mirror, -mirror / 2, 120};
            worstOff = std::max(worstOff, LandingError(mount, MapsOf(mount, view, true)));
        }
    }
    EXPECT_LE(worstOff, 11.0);
    RecordProperty("off_centre", std::to_string(worstOff));
}

TEST(SettingsWriterTest, AYawAndATiltShowTheirCost) {
    const Mount yawed = HomedMount(45.0, 1.3);
    const double yawCost = LandingError(yawed, MapsOf(yawed, {}, true));
    EXPECT_GT(yawCost, 2.0);
    RecordProperty("yaw_1.3", std::to_string(yawCost));
    // A tilt leaves the family of mounts that the map can tell.
    const Mount tilted = HomedMount(135.0, 0.0, 1.0);
    const double tiltCost = LandingError(tilted, MapsOf(tilted, {}, true));
    EXPECT_GT(tiltCost, 10.0);
    RecordProperty("tilt_1", std::to_string(tiltCost));
}

TEST(SettingsWriterTest, ThePointsAreApexLeftRightAndTheRaisedApex) {
    const Mount mount = DefaultMount(0);
    const NeedleCalibration calibration = CalibrationOf(mount, {});
    const std::array<Vector, 4> marks = {
        {{0.0, -60.0, 0.0}, {-80.0, 60.0, 0.0}, {80.0, 60.0, 0.0}, {0.0, -60.0, 100.0}}};
    for (std::size_t point = 0; point < marks.size(); ++point) {
        EXPECT_LT(DistanceOf(TipOf(mount, Exact(calibration.points[point])), marks[point]), 0.9) << point;
    }
    EXPECT_EQ(calibration.zero, (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(calibration.centre, (PositionXYZ{HomeCount, HomeCount, HomeCount}));
}

TEST(SettingsWriterTest, ACalibrationElsewhereRecordsThatView) {
    const CalibrationView view{20, -30, 250};
    const Mount mount = DefaultMount(3);
    const NeedleCalibration calibration = CalibrationOf(mount, view);
    EXPECT_EQ(calibration.zero, travo::MirrorToCommon({20, -30, 250}));
    const PlanPoint centre = ViewCentreOf(20, -30);
    EXPECT_LT(DistanceOf(TipOf(mount, Exact(calibration.centre)), {centre[0], centre[1], 250.0}), 0.9);
}

TEST(SettingsWriterTest, AMarkOutOfReachIsRefused) {
    Mount mount = DefaultMount(0);
    mount.offset[2] = -100.0;
    EXPECT_THROW(CalibrationOf(mount, {}), travo::BoundsFailure);
}

std::string AxisKey(std::size_t needle, const std::string& name, std::size_t axis) {
    return "Manipulator Calibration:" + std::to_string(needle) + "/" + name + ",XYZ:" + std::to_string(axis);
}

TEST(SettingsWriterTest, TheTextHoldsEveryKeyOfEveryNeedleAndBothOffsets) {
    std::array<NeedleCalibration, travo::NeedleCount> calibrations;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        calibrations[static_cast<std::size_t>(needle)] = CalibrationOf(DefaultMount(needle), {});
    }
    const Values values = ReadProfile(SettingsText(calibrations, SomeTime));
    EXPECT_EQ(values.size(), 2u + 4u * 20u);
    EXPECT_EQ(values.at("User_Value/XYOffset"), "0");
    EXPECT_EQ(values.at("User_Value/ZOffset"), "0");
    for (std::size_t needle = 0; needle < calibrations.size(); ++needle) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (std::size_t point = 0; point < 4; ++point) {
                EXPECT_EQ(values.at(AxisKey(needle, "Index:" + std::to_string(point), axis)),
                          std::to_string(calibrations[needle].points[point][axis]));
            }
            EXPECT_EQ(values.at(AxisKey(needle, "ZERO", axis)), "0");
            EXPECT_EQ(values.at(AxisKey(needle, "Center", axis)), "12500");
        }
        const std::string section = "Manipulator Calibration:" + std::to_string(needle) + "/";
        EXPECT_EQ(values.at(section + "Time"), SomeTime);
        EXPECT_EQ(values.at(section + "ReTime"), SomeTime);
    }
}

TEST(SettingsWriterTest, EveryLineEndsWithCrLf) {
    const std::array<NeedleCalibration, 1> calibrations = {CalibrationOf(DefaultMount(0), {})};
    const std::string text = SettingsText(calibrations, SomeTime);
    EXPECT_EQ(text.substr(0, 26), "[User_Value]\r\nXYOffset=0\r\n");
    EXPECT_TRUE(text.ends_with("\r\n"));
    for (std::size_t i = 0; i < text.size(); ++i) {
        EXPECT_EQ(text[i] == '\n', i > 0 && text[i - 1] == '\r') << "at " << i;
        EXPECT_LT(static_cast<unsigned char>(text[i]), 128);
    }
}

TEST(SettingsWriterTest, AnOlderFileIsReplacedAndNothingIsLeftBesideIt) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "KVData.ini";
    std::ofstream(path) << std::string(10000, 'x');
    WriteSettings(path.string(), "[A]\r\nB=1\r\n");
    EXPECT_EQ(Contents(path), "[A]\r\nB=1\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(SettingsWriterTest, AFileThatCannotBeWrittenIsAFailure) {
    const TemporaryFolder folder;
    EXPECT_THROW(WriteSettings((folder.Path() / "missing" / "KVData.ini").string(), "x"), std::system_error);
    EXPECT_THROW(WriteSettings(folder.Path().string(), "x"), std::system_error);
}

}  // namespace workbench
