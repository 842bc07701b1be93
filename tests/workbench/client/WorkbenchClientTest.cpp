#include "workbench/client/WorkbenchClient.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "core/ground/Arithmetic.h"
#include "workbench/WorkbenchProcess.h"

namespace workbench {

using std::chrono::milliseconds;
using std::chrono::seconds;
using travo::PositionXYZ;

TEST(WorkbenchClientTest, WithoutAWorkbenchEveryCallIsAFailure) {
    WorkbenchClient client;
    EXPECT_FALSE(client.WaitUntilReady(milliseconds(20)));
    EXPECT_THROW(client.TipOf(1), travo::Failure);
    EXPECT_THROW(client.Shutdown(), travo::Failure);
}

TEST(WorkbenchClientTest, MovesANeedleToAPlaceAndSeesItLandThere) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    ASSERT_TRUE(client.WaitUntilReady(seconds(20)));
    const PositionXYZ counts = client.Aim(2, {-80.0, 60.0, 0.0});
    client.Move(2, counts);
    EXPECT_LT(std::abs(client.TipOf(2).atRest[0] + 80.0), 1.0);
    ASSERT_TRUE(client.WaitForRest(seconds(20)));
    EXPECT_EQ(client.CountsOf(2), counts);
    const WorkbenchClient::Tip tip = client.TipOf(2);
    EXPECT_EQ(tip.now, tip.atRest);
    EXPECT_LT(std::abs(tip.now[1] - 60.0), 1.0);
    client.Jog(2, {-10, 20, 30});
    ASSERT_TRUE(client.WaitForRest(seconds(20)));
    EXPECT_EQ(client.CountsOf(2), (PositionXYZ{counts[0] - 10, counts[1] + 20, counts[2] + 30}));
}

TEST(WorkbenchClientTest, ReadsCrossingsCellsAndViews) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    EXPECT_EQ(client.ShaftCrossings().inAll, 0);
    client.Move(2, {12900, 12500, 12500});
    ASSERT_TRUE(client.WaitForRest(seconds(20)));
    client.Move(1, {12900, 12500, 12500});
    ASSERT_TRUE(client.WaitForRest(seconds(20)));
    const WorkbenchClient::Crossings crossings = client.ShaftCrossings();
    EXPECT_EQ(crossings.inAll, 1);
    EXPECT_EQ(crossings.pairsCrossedNow, 1);
    ASSERT_EQ(crossings.last.size(), 1u);
    EXPECT_EQ(crossings.last[0].needleA, 1);
    EXPECT_EQ(crossings.last[0].needleB, 2);
    EXPECT_NEAR(crossings.last[0].x, 0.0, 0.01);
    client.ForgetCrossings();
    EXPECT_EQ(client.ShaftCrossings().inAll, 0);
    const auto cells = client.Cells();
    ASSERT_EQ(cells.size(), 6u);
    for (const auto& cell : cells) {
        const auto centre = client.ViewCentre(cell.mirrorX, cell.mirrorY);
        EXPECT_EQ(centre[0], cell.place[0]);
        EXPECT_EQ(centre[1], cell.place[1]);
    }
}

TEST(WorkbenchClientTest, SetsAndClearsEveryFault) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    client.FailDriverAlways();
    client.HangDriver(600.0);
    client.ChangeCount(2);
    client.StrayPosition(1);
    client.SelectAtHardware(2);
    EXPECT_EQ(client.Ask("fault list"), "fail hang count range");
    client.ClearFaults();
    EXPECT_EQ(client.Ask("fault list"), "");
    EXPECT_EQ(client.Ask("driver getposition"), "status 0 2 9500 12500 12500");
    client.FailDriverCalls(1);
    EXPECT_EQ(client.Ask("driver getcount"), "status -1");
    EXPECT_EQ(client.Counters().at("refused"), 1);
    client.ForgetCounters();
    EXPECT_EQ(client.Counters().at("refused"), 0);
}

TEST(WorkbenchClientTest, ARefusedCommandIsAFailureThatTellsWhy) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    try {
        client.Move(9, {0, 0, 0});
        FAIL() << "needle 9 moved";
    } catch (const travo::Failure& failure) {
        EXPECT_STREQ(
            failure.what(),
            "the workbench refused \"world move 9 0 0 0\": \"world move\" is to be followed by <needle> (1 "
            "to 4), not \"9\"");
    }
    EXPECT_NO_THROW(client.Move(1, {0, 0, 0}));
}

TEST(WorkbenchClientTest, MountsANeedleWithErrors) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    client.MountNeedle(1, {45.0, 0.0, 1.0});
    const WorkbenchClient::Tip tip = client.TipOf(1);
    EXPECT_NEAR(tip.now[2], 3000.0 * 0.0174524, 0.01);
}

TEST(WorkbenchClientTest, WritesTheSettingsOfTheNeedlesAsTheyAreMounted) {
    const QTemporaryDir folder;
    const WorkbenchProcess bench({QStringLiteral("--program-folder"), folder.path()});
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    client.WriteSettings(folder.filePath(QStringLiteral("other file.ini")).toStdString());
    EXPECT_EQ(client.Ask("write-settings"), "");
    QFile here(folder.filePath(QStringLiteral("KVData.ini")));
    ASSERT_TRUE(here.open(QIODevice::ReadOnly));
    EXPECT_TRUE(here.readAll().startsWith(
        "[User_Value]\r\nXYOffset=0\r\nZOffset=0\r\n[Manipulator Calibration:0]\r\n"));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("other file.ini"))));
}

TEST(WorkbenchClientTest, AShutdownEndsTheWorkbench) {
    WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    client.Shutdown();
    EXPECT_EQ(bench.ExitCode(), 0);
    EXPECT_THROW(client.Ask("ping"), travo::Failure);
}

}  // namespace workbench
