// The faults as the operator meets them: names, lines, and what lights them.
#include "workbench/window/FaultTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace workbench::test {
namespace {

struct Row {
    int column;
    const char* object;
    const char* text;
    const char* name;
    const char* on;
    const char* off;
    const char* litBy;
};

const std::vector<Row>& Table() {
    static const std::vector<Row> rows{
        {0, "fault_mirror_silent", "Silent", "Mirror silent", "fault mirror silent on",
         "fault mirror silent off", "mirror:silent"},
        {0, "fault_mirror_cable", "Cable out", "Mirror cable out", "fault mirror vanish",
         "fault mirror return", "mirror:vanished"},
        {0, "fault_mirror_noise", "Noise", "Mirror noise", "fault mirror noise 20", "", ""},
        {0, "fault_mirror_garble", "Garble", "Mirror garble", "fault mirror garble 1",
         "fault mirror garble 0", "mirror:garble"},
        {0, "fault_mirror_cut", "Cut", "Mirror cut", "fault mirror cut 4", "fault mirror cut off",
         "mirror:cut"},
        {0, "fault_mirror_flood", "Flood", "Mirror flood", "fault mirror flood 200", "", ""},
        {1, "fault_mirror_error", "Error 8", "Mirror error", "fault mirror error 8", "fault mirror error 8 0",
         "mirror:error"},
        {1, "fault_mirror_fields", "7 fields", "Mirror fields", "fault mirror fields 7",
         "fault mirror fields 8 0", "mirror:fields"},
        {1, "fault_mirror_limitx", "Limit X", "Mirror limit X", "fault mirror limit x on",
         "fault mirror limit x off", "mirror:limitx"},
        {1, "fault_mirror_limity", "Limit Y", "Mirror limit Y", "fault mirror limit y on",
         "fault mirror limit y off", "mirror:limity"},
        {1, "fault_mirror_motors", "Motors off", "Mirror motors off", "fault mirror motors off",
         "fault mirror motors on", "motors"},
        {2, "fault_gauge_silent", "Silent", "Gauge silent", "fault gauge silent on", "fault gauge silent off",
         "gauge:silent"},
        {2, "fault_gauge_cable", "Cable out", "Gauge cable out", "fault gauge vanish", "fault gauge return",
         "gauge:vanished"},
        {2, "fault_gauge_noise", "Noise", "Gauge noise", "fault gauge noise 20", "", ""},
        {2, "fault_gauge_garble", "Garble", "Gauge garble", "fault gauge garble 1", "fault gauge garble 0",
         "gauge:garble"},
        {2, "fault_gauge_cut", "Cut", "Gauge cut", "fault gauge cut 4", "fault gauge cut off", "gauge:cut"},
        {2, "fault_gauge_flood", "Flood", "Gauge flood", "fault gauge flood 200", "", ""},
        {2, "fault_gauge_garbage", "Garbage", "Gauge garbage", "fault gauge garbage on",
         "fault gauge garbage off", "gauge:garbage"},
        {3, "fault_motor_silent", "Silent", "Motor silent", "fault motor silent on", "fault motor silent off",
         "motor:silent"},
        {3, "fault_motor_cable", "Cable out", "Motor cable out", "fault motor vanish", "fault motor return",
         "motor:vanished"},
        {3, "fault_motor_noise", "Noise", "Motor noise", "fault motor noise 20", "", ""},
        {3, "fault_motor_garble", "Garble", "Motor garble", "fault motor garble 1", "fault motor garble 0",
         "motor:garble"},
        {3, "fault_motor_cut", "Cut", "Motor cut", "fault motor cut 4", "fault motor cut off", "motor:cut"},
        {3, "fault_motor_flood", "Flood", "Motor flood", "fault motor flood 200", "", ""},
        {3, "fault_motor_refuse", "Refuses", "Motor refuses", "fault motor refuse", "fault motor refuse 0",
         "motor:refuse"},
        {4, "fault_driver_once", "Fails once", "Driver fails once", "fault driver fail 1",
         "fault driver fail off", "fail"},
        {4, "fault_driver_fails", "Fails", "Driver fails", "fault driver fail always",
         "fault driver fail off", "fail"},
        {4, "fault_driver_hang", "Hangs 3 s", "Driver hangs", "fault driver hang 3", "fault driver hang off",
         "hang"},
        {4, "fault_count", "3 needles", "Three needles", "fault count 3", "fault count 4", "count"},
        {4, "fault_range", "Range", "Out of range", "fault range {N}", "fault range off", "range"},
        {4, "fault_key", "Key moves", "Key moves on", "hardware select {M}", "", ""},
        {5, "fault_camera_hide", "Hides", "Camera hides", "camera hide", "", ""},
        {5, "fault_camera_close", "Closes", "Camera closes", "camera close", "", ""},
        {5, "fault_camera_kill", "Killed", "Camera killed", "camera kill", "", ""},
        {5, "fault_camera_hang", "Hangs 3 s", "Camera hangs", "camera hang 3", "", ""},
        {5, "fault_camera_fail", "Fails once", "Camera fails", "camera fail 1", "", ""}};
    return rows;
}

const Fault& Named(const char* object) {
    for (const Fault& fault : Faults()) {
        if (fault.object == QLatin1String(object)) {
            return fault;
        }
    }
    throw std::runtime_error(object);
}

std::vector<std::string> LinesOf(const char* object) {
    std::vector<std::string> lines;
    for (const FaultChoice& choice : ChoicesOf(Named(object))) {
        lines.push_back(choice.on);
    }
    return lines;
}

using Lines = std::vector<std::string>;

}  // namespace

TEST(FaultTableTest, HoldsEveryFaultColumnByColumn) {
    ASSERT_EQ(Faults().size(), Table().size());
    for (std::size_t at = 0; at < Table().size(); ++at) {
        const Fault& fault = Faults().at(at);
        const Row& row = Table().at(at);
        EXPECT_EQ(fault.column, row.column) << row.object;
        EXPECT_EQ(fault.object.toStdString(), row.object);
        EXPECT_EQ(fault.text.toStdString(), row.text) << row.object;
        EXPECT_EQ(fault.name.toStdString(), row.name) << row.object;
        EXPECT_EQ(fault.on, row.on) << row.object;
        EXPECT_EQ(fault.off, row.off) << row.object;
        EXPECT_EQ(fault.litBy, row.litBy) << row.object;
    }
}

TEST(FaultTableTest, OffersTheOtherNumbers) {
    EXPECT_EQ(LinesOf("fault_gauge_noise"),
              (Lines{"fault gauge noise 1", "fault gauge noise 20", "fault gauge noise 1000"}));
    EXPECT_EQ(LinesOf("fault_motor_garble"),
              (Lines{"fault motor garble 1", "fault motor garble 10", "fault motor garble 100"}));
    EXPECT_EQ(LinesOf("fault_mirror_cut").size(), 9U);
    EXPECT_EQ(LinesOf("fault_mirror_cut").back(), "fault mirror cut 8");
    EXPECT_EQ(LinesOf("fault_mirror_flood"),
              (Lines{"fault mirror flood 10", "fault mirror flood 200", "fault mirror flood 2000"}));
    EXPECT_EQ(LinesOf("fault_mirror_error").size(), 24U);
    EXPECT_EQ(LinesOf("fault_mirror_error").at(5), "fault mirror error 2 always");
    EXPECT_EQ(
        LinesOf("fault_mirror_fields"),
        (Lines{"fault mirror fields 0 1", "fault mirror fields 0 always", "fault mirror fields 7 1",
               "fault mirror fields 7 always", "fault mirror fields 9 1", "fault mirror fields 9 always",
               "fault mirror fields 100 1", "fault mirror fields 100 always"}));
    EXPECT_EQ(LinesOf("fault_motor_refuse"),
              (Lines{"fault motor refuse 1", "fault motor refuse 3", "fault motor refuse always"}));
    EXPECT_EQ(LinesOf("fault_driver_once").size(), 12U);
    EXPECT_EQ(LinesOf("fault_driver_once").at(8), "fault driver fail 3 moveto");
    EXPECT_EQ(LinesOf("fault_driver_fails").size(), 6U);
    EXPECT_EQ(LinesOf("fault_driver_hang"), (Lines{"fault driver hang 1", "fault driver hang 3",
                                                   "fault driver hang 10", "fault driver hang 60"}));
    EXPECT_EQ(LinesOf("fault_count"),
              (Lines{"fault count 0", "fault count 1", "fault count 2", "fault count 3"}));
    EXPECT_EQ(LinesOf("fault_range"),
              (Lines{"fault range 1", "fault range 2", "fault range 3", "fault range 4"}));
    EXPECT_EQ(LinesOf("fault_camera_hang").back(), "camera hang 60");
    EXPECT_EQ(LinesOf("fault_camera_fail").back(), "camera fail 3");
    EXPECT_EQ(LinesOf("fault_gauge_silent"), Lines{});
}

TEST(FaultTableTest, FillsInThePickedNeedleAndTheOneAfterIt) {
    EXPECT_EQ(ForNeedle("fault range {N}", 3), "fault range 3");
    EXPECT_EQ(ForNeedle("hardware select {M}", 3), "hardware select 4");
    EXPECT_EQ(ForNeedle("hardware select {M}", 4), "hardware select 1");
    EXPECT_EQ(ForNeedle("camera hide", 2), "camera hide");
}

TEST(FaultTableTest, LightsTheFailingDriverAtOneChipOnly) {
    Scene scene;
    scene.faults = {"fail"};
    scene.faultsLeft = {{"fail", 2}};
    EXPECT_TRUE(IsLit(Named("fault_driver_once"), scene));
    EXPECT_FALSE(IsLit(Named("fault_driver_fails"), scene));
    EXPECT_EQ(LeftText(Named("fault_driver_once"), scene), QStringLiteral("×2"));
    scene.faultsLeft = {{"fail", -1}};
    EXPECT_FALSE(IsLit(Named("fault_driver_once"), scene));
    EXPECT_TRUE(IsLit(Named("fault_driver_fails"), scene));
    EXPECT_EQ(LeftText(Named("fault_driver_fails"), scene), QStringLiteral("×∞"));
}

TEST(FaultTableTest, CountsAFlagThatIsHeldUpOnceAndTheMotorsAsWell) {
    Scene scene;
    EXPECT_EQ(FaultsOn(scene), 0);
    scene.faults = {"mirror:limit", "mirror:limitx", "gauge:silent", "needle1:noise"};
    EXPECT_EQ(FaultsOn(scene), 3);
    scene.mirror.motorsOn = false;
    EXPECT_EQ(FaultsOn(scene), 4);
    EXPECT_TRUE(IsLit(Named("fault_mirror_motors"), scene));
    EXPECT_TRUE(IsLit(Named("fault_mirror_limitx"), scene));
    EXPECT_FALSE(IsLit(Named("fault_mirror_limity"), scene));
}

}  // namespace workbench::test
