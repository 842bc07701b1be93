#include "workbench/window/HeaderStrip.h"

#include "PlateRig.h"

namespace workbench::test {
namespace {

class HeaderStripTest : public PlateRig {
protected:
    HeaderStripTest() {
        strip.resize(1280, 44);
        strip.Show(Read(), 0);
    }
    std::string Told(const char* pill) { return Find<WirePill>(strip, pill).accessibleName().toStdString(); }
    void ShowAt(std::int64_t time) { strip.Show(Read(), time); }

    int switched = 0;
    HeaderStrip strip{[this] { ++switched; }, nullptr};
};

TEST_F(HeaderStripTest, APillForEachWireSaysHowItStands) {
    EXPECT_EQ(Told("wire_mirror"), "Mirror: shut");
    EXPECT_EQ(Told("wire_gauge"), "Gauge: shut");
    EXPECT_EQ(Told("wire_motor"), "Motor: shut");
    EXPECT_EQ(Told("wire_driver"), "Driver: quiet");
    EXPECT_EQ(Told("wire_camera"), "Camera: not running");
    Scene other = scene;
    other.wires = {{"mirror", "", true, true}, {"gauge", "", false, false}, {"motor", "", true, false}};
    other.cameraRunning = true;
    strip.Show(other, 0);
    EXPECT_EQ(Told("wire_mirror"), "Mirror: open");
    EXPECT_EQ(Told("wire_gauge"), "Gauge: cable out");
    EXPECT_EQ(Told("wire_motor"), "Motor: shut");
    EXPECT_EQ(Told("wire_camera"), "Camera: on");
}

TEST_F(HeaderStripTest, TheDriverIsOnForEightSecondsAfterACall) {
    // Calls that were made before the window came are none of now.
    Answer("driver getcount");
    HeaderStrip late([] {}, nullptr);
    late.Show(Read(), 100);
    EXPECT_EQ(Find<WirePill>(late, "wire_driver").Word(), QStringLiteral("quiet"));
    Answer("driver getcount");
    ShowAt(1000);
    EXPECT_EQ(Told("wire_driver"), "Driver: on");
    ShowAt(1000 + HeaderStrip::QuietAfter - 1);
    EXPECT_EQ(Told("wire_driver"), "Driver: on");
    ShowAt(1000 + HeaderStrip::QuietAfter);
    EXPECT_EQ(Told("wire_driver"), "Driver: quiet");
}

TEST_F(HeaderStripTest, ForgettingTheCountsIsNoCall) {
    Answer("driver getcount");
    ShowAt(1000);
    Answer("counters forget");
    ShowAt(20000);
    EXPECT_EQ(Told("wire_driver"), "Driver: quiet");
    Answer("driver getcount");
    ShowAt(20100);
    EXPECT_EQ(Told("wire_driver"), "Driver: on");
}

TEST_F(HeaderStripTest, PillsAndSwitchStandInARowWithoutTouching) {
    for (const auto& [width, height, small] : {std::tuple{1280, 44, false}, std::tuple{1024, 40, true}}) {
        strip.ShowSmall(small);
        strip.resize(width, height);
        int right = 276;  // of the tag, with a little air
        for (const char* name :
             {"wire_mirror", "wire_gauge", "wire_motor", "wire_driver", "wire_camera", "lesson"}) {
            const QRect place = Find<QWidget>(strip, name).geometry();
            EXPECT_GT(place.left(), right) << name;
            EXPECT_LE(place.bottom(), height - 5) << name;
            EXPECT_GE(place.top(), 0) << name;
            right = place.right();
        }
        EXPECT_EQ(right, width - (small ? 8 : 12) - 1);
    }
}

TEST_F(HeaderStripTest, TheSwitchOfTheCardIsLatchedWhileItIsShown) {
    Click(strip, "lesson");
    EXPECT_EQ(switched, 1);
    EXPECT_FALSE(Find<BenchSwitch>(strip, "lesson").isChecked());
    strip.ShowCard(true);
    EXPECT_TRUE(Find<BenchSwitch>(strip, "lesson").isChecked());
}

}  // namespace
}  // namespace workbench::test
