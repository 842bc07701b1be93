#include "workflows/FormManiInfo.h"

#include <gtest/gtest.h>

#include <QTest>
#include <array>
#include <string>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

class FormManiInfoTest : public ::testing::Test, protected FormSkinned::Owner, protected WindowMove {
protected:
    void FormClose(std::int32_t Index) override { closed.push_back(Index); }
    void Start(QWidget&) override { ++moves; }

    template <typename Control>
    Control& Find(const char* name, int index) {
        auto* const found =
            window.findChild<Control*>(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
        EXPECT_NE(found, nullptr) << name << index;
        return *found;
    }
    QString Text(const char* name, int index) { return Find<NumberLabel>(name, index).text(); }

    // One letter a needle: c connected, n not; ? where not exactly one picture is shown.
    std::string Shown() {
        std::string shown;
        for (int i = 0; i < 4; ++i) {
            const bool connected = !Find<SkinImage>("Image2", i).isHidden();
            const bool missing = !Find<SkinImage>("Image2", i + 4).isHidden();
            shown += connected == missing ? '?' : connected ? 'c' : 'n';
        }
        return shown;
    }

    void ExpectPlace(const char* name, int index, const QRect& place, int scale) {
        auto& control = Find<QWidget>(name, index);
        EXPECT_EQ(QRect(control.mapTo(&window, QPoint(0, 0)), control.size()),
                  QRect(place.topLeft() * scale, place.size() * scale))
            << name << index;
    }
    void ExpectPlaces(int scale);

    std::vector<std::int32_t> closed;
    int moves = 0;
    FormManiInfo window{{*this, *this}, QString()};
};

void FormManiInfoTest::ExpectPlaces(int scale) {
    for (int i = 0; i < 4; ++i) {
        const int top = 44 + 64 * i;
        ExpectPlace("Image2", i, {12, top, 64, 52}, scale);
        ExpectPlace("Image2", i + 4, {12, top, 64, 52}, scale);
        ExpectPlace("lblName", 2 * i, {88, top, 100, 26}, scale);
        ExpectPlace("lblName", 2 * i + 1, {88, top + 26, 100, 26}, scale);
        ExpectPlace("lblCalibration", i, {192, top, 136, 26}, scale);
        ExpectPlace("lblReCalibration", i, {192, top + 26, 136, 26}, scale);
        EXPECT_EQ(Find<SkinImage>("Image2", i).path(), QStringLiteral("mani-connected-%1").arg(i + 1));
        EXPECT_EQ(Find<SkinImage>("Image2", i + 4).path(), QStringLiteral("mani-missing-%1").arg(i + 1));
    }
}

TEST_F(FormManiInfoTest, AtFirstNoNeedleIsConnectedAndNoTimeKnown) {
    EXPECT_EQ(Shown(), "nnnn");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Text("lblCalibration", i), QString());
        EXPECT_EQ(Text("lblReCalibration", i), QString());
        EXPECT_EQ(Text("lblName", 2 * i), QStringLiteral("Calibration"));
        EXPECT_EQ(Text("lblName", 2 * i + 1), QStringLiteral("Re-Calibration"));
    }
    EXPECT_TRUE(window.isHidden());
}

TEST_F(FormManiInfoTest, ExactlyOnePictureIsShownForEveryNeedle) {
    const std::pair<std::int16_t, const char*> cases[] = {
        {0, "cnnn"}, {1, "ccnn"}, {2, "cccn"}, {3, "cccc"}, {4, "cccc"}, {32767, "cccc"}, {1, "ccnn"}};
    for (const auto& [number, shown] : cases) {
        window.TotalManipulatorNumber(number);
        EXPECT_EQ(Shown(), shown) << number;
    }
}

TEST_F(FormManiInfoTest, ManipulatorNoOfMinusOneShowsAllFourAsNotConnected) {
    window.TotalManipulatorNumber(3);
    window.TotalManipulatorNumber(-1);
    EXPECT_EQ(Shown(), "nnnn");
}

TEST_F(FormManiInfoTest, ACalibrationTimeIsShownAsItStandsAtItsNeedleOnly) {
    window.SetCalibTime(2, QStringLiteral("26/03/14    09:41"), 0);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Text("lblCalibration", i), i == 2 ? QStringLiteral("26/03/14    09:41") : QString());
        EXPECT_EQ(Text("lblReCalibration", i), QString());
    }
    window.SetCalibTime(3, QStringLiteral("26/03/14    13:05"), 1);
    EXPECT_EQ(Text("lblReCalibration", 3), QStringLiteral("26/03/14    13:05"));
    EXPECT_EQ(Text("lblCalibration", 3), QString());
}

TEST_F(FormManiInfoTest, ACalibTimeOfMinusOneEmptiesTheLabel) {
    for (const std::int16_t which : std::to_array<std::int16_t>({0, 1})) {
        window.SetCalibTime(0, QStringLiteral("26/03/14    09:41"), which);
        window.SetCalibTime(0, QStringLiteral("-1"), which);
        EXPECT_EQ(Text(which == 0 ? "lblCalibration" : "lblReCalibration", 0), QString());
    }
    window.SetCalibTime(0, QStringLiteral(" -1"), 0);
    EXPECT_EQ(Text("lblCalibration", 0), QStringLiteral(" -1"));
}

TEST_F(FormManiInfoTest, ACalibTimeOfNothingEmptiesTheLabelToo) {
    window.SetCalibTime(1, QStringLiteral("26/03/14    09:41"), 0);
    window.SetCalibTime(1, QString(), 0);
    EXPECT_EQ(Text("lblCalibration", 1), QString());
}

TEST_F(FormManiInfoTest, CalibOrReOfTwoIsTreatedAsReCalibration) {
    for (const std::int16_t which : std::to_array<std::int16_t>({2, -1, 32767})) {
        const QString time = QStringLiteral("time %1").arg(which);
        window.SetCalibTime(1, time, which);
        EXPECT_EQ(Text("lblReCalibration", 1), time);
        EXPECT_EQ(Text("lblCalibration", 1), QString());
    }
}

TEST_F(FormManiInfoTest, ANeedleBeyondTheTableIsAFailure) {
    EXPECT_THROW(window.SetCalibTime(4, QStringLiteral("x"), 0), BoundsFailure);
    EXPECT_THROW(window.SetCalibTime(-1, QStringLiteral("x"), 1), BoundsFailure);
}

TEST_F(FormManiInfoTest, CloseTellsTheOwnerNumberThree) {
    window.ShowWindow();
    QTest::mouseClick(&Find<usrKVButton>("usrKVButton1", 0), Qt::LeftButton);
    EXPECT_EQ(closed, std::vector<std::int32_t>{3});
}

TEST_F(FormManiInfoTest, SizeSetsWidthAndHeightBackToTheRememberedValues) {
    window.ShowWindow();
    window.resize(600, 222);
    QTest::mouseClick(&Find<usrKVButton>("usrKVButton1", 1), Qt::LeftButton);
    EXPECT_EQ(window.size(), QSize(340, 300));
}

TEST_F(FormManiInfoTest, ADragOnItsPictureMovesItAndADragOfItsBorderResizesIt) {
    window.ShowWindow();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {40, 70});
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {40, 16});
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {250, 60});
    EXPECT_EQ(moves, 3);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {339, 299});
    QTest::mouseMove(window.windowHandle(), QPoint(400, 360));
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {400, 360});
    EXPECT_EQ(window.size(), QSize(400, 360));
    EXPECT_EQ(moves, 3);
}

TEST_F(FormManiInfoTest, EveryControlStandsInItsPlace) {
    window.ShowWindow();
    ExpectPlaces(1);
}

TEST_F(FormManiInfoTest, EveryControlScalesWithTheWindowAlsoOneThatIsHidden) {
    window.resize(680, 600);
    window.ShowWindow();
    ExpectPlaces(2);
}

TEST_F(FormManiInfoTest, ALabelsNameForAScreenReaderIsItsText) {
    window.SetCalibTime(0, QStringLiteral("26/03/14    09:41"), 0);
    EXPECT_EQ(Find<NumberLabel>("lblCalibration", 0).accessibleName(), QStringLiteral("26/03/14    09:41"));
}

}  // namespace
}  // namespace travo::test
