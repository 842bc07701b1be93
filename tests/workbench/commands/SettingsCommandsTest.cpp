// What is written for tour and tests, and what for the desk.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "workbench/commands/Bench.h"
#include "workbench/commands/DeskSettings.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

class SettingsCommandsTest : public testing::Test {
protected:
    SettingsCommandsTest() {
        std::string folder = (std::filesystem::temp_directory_path() / "settings-XXXXXX").string();
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        folder_ = folder;
        bench_.emplace(folder);
    }
    ~SettingsCommandsTest() override {
        bench_.reset();
        std::filesystem::remove_all(folder_);
    }

    std::string Ask(const std::string& line) { return bench_->commands.Answer(line, milliseconds(10)); }
    std::string Written() const {
        std::ifstream file(folder_ + "/KVData.ini", std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    static std::size_t CountOf(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
            ++count;
        }
        return count;
    }

    std::string folder_;
    std::optional<Bench> bench_;
};

}  // namespace

TEST_F(SettingsCommandsTest, TheDeskBeginsWithStandOffsPortsPlacesAndOpenWindows) {
    EXPECT_EQ(Ask("as-new"), "ok");
    const std::string text = Written();
    for (const char* part :
         {"[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n",
          "[User_Value]\r\nXYOffset=0\r\nZOffset=100\r\nOffsetOFF=0\r\nContactOFF=0\r\n",
          "[FormMain_Position]\r\nTop=0\r\nLeft=0\r\nHeight=9360\r\nWidth=7800\r\n",
          "[FormMirror2_Position]\r\nTop=13380\r\nLeft=9660\r\nHeight=2880\r\nWidth=4140\r\n",
          "[Window]\r\n0=0\r\n1=0\r\n2=1\r\n3=1\r\n4=0\r\n",
          "[Manipulator Calibration:0]\r\nIndex:0,XYZ:0=12458\r\n"}) {
        EXPECT_EQ(CountOf(text, part), 1U) << part << "\n" << text;
    }
    EXPECT_EQ(CountOf(text, "[Manipulator Calibration:"), 4U);
    EXPECT_EQ(CountOf(text, "[User_Value]"), 1U);
}

TEST_F(SettingsCommandsTest, NoTwoWindowsOfTheDeskLieOverEachOtherOrOverTheWorkbench) {
    struct Place {
        int left, top, right, bottom;
    };
    std::vector<Place> places = {{640 * 15, 0, 1920 * 15, 860 * 15}};
    std::istringstream lines(DeskSettingsText());
    std::map<std::string, int> values;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("_Position") != std::string::npos) {
            values.clear();
        } else if (const std::size_t equals = line.find('='); equals != std::string::npos) {
            values[line.substr(0, equals)] = std::stoi(line.substr(equals + 1));
        }
        if (values.size() == 4 && values.contains("Width")) {
            places.push_back({values["Left"], values["Top"], values["Left"] + values["Width"],
                              values["Top"] + values["Height"]});
            values.clear();
        }
    }
    ASSERT_EQ(places.size(), 6U);
    for (std::size_t a = 0; a < places.size(); ++a) {
        EXPECT_LE(places[a].right, 1920 * 15);
        EXPECT_LE(places[a].bottom, 1200 * 15);
        EXPECT_LE(places[a].left, 32767);
        for (std::size_t b = 0; b < a; ++b) {
            EXPECT_TRUE(places[a].right <= places[b].left || places[b].right <= places[a].left ||
                        places[a].bottom <= places[b].top || places[b].bottom <= places[a].top)
                << a << " lies over " << b;
        }
    }
}

TEST_F(SettingsCommandsTest, NothingIsWrittenAsNewWhileAnyPortIsOpen) {
    for (const WireName name : {WireName::Mirror, WireName::Gauge, WireName::Motor}) {
        bench_->instruments.WireOf(name).SetOpen(true, milliseconds(0));
        EXPECT_EQ(Ask("as-new"), "error somebody has a port open: close TRAVO first");
        EXPECT_FALSE(std::filesystem::exists(folder_ + "/KVData.ini"));
        bench_->instruments.WireOf(name).SetOpen(false, milliseconds(0));
    }
    EXPECT_EQ(Ask("as-new " + folder_ + "/an other.ini"), "ok");
    EXPECT_TRUE(std::filesystem::exists(folder_ + "/an other.ini"));
}

TEST_F(SettingsCommandsTest, ForTourAndTestsTheOffsetsAreZeroAndNothingElseIsSet) {
    bench_->instruments.WireOf(WireName::Mirror).SetOpen(true, milliseconds(0));
    EXPECT_EQ(Ask("write-settings ports"), "ok");
    const std::string text = Written();
    EXPECT_TRUE(
        text.starts_with("[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n"
                         "[User_Value]\r\nXYOffset=0\r\nZOffset=0\r\n[Manipulator"))
        << text;
    EXPECT_EQ(Ask("write-settings"), "ok");
    EXPECT_TRUE(Written().starts_with("[User_Value]\r\nXYOffset=0\r\nZOffset=0\r\n[Manipulator"));
}

}  // namespace workbench
