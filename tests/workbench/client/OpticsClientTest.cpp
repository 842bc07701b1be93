// The client's half for the optics, against the real process.
#include <gtest/gtest.h>

#include <chrono>

#include "core/ground/Arithmetic.h"
#include "workbench/WorkbenchProcess.h"
#include "workbench/client/WorkbenchClient.h"

namespace workbench {

using std::chrono::seconds;

namespace {

class OpticsClientTest : public testing::Test {
protected:
    WorkbenchProcess bench_;
    WorkbenchClient client_;
};

}  // namespace

TEST_F(OpticsClientTest, TheCamerasPictureComesAsAStructure) {
    client_.ChangeCount(3);
    client_.SetMagnification(3);
    const WorkbenchClient::CameraState state = client_.Camera();
    EXPECT_EQ(state.viewCentre[0], 0.0);
    EXPECT_EQ(state.magnification, 3);
    EXPECT_EQ(state.fieldOfView[0], 121.4);
    EXPECT_EQ(state.fieldOfView[1], 90.5);
    EXPECT_EQ(state.focusZ, 0.0);
    ASSERT_EQ(state.needles.size(), 4U);
    EXPECT_TRUE(state.needles[2].connected);
    EXPECT_FALSE(state.needles[3].connected);
    EXPECT_NEAR(state.needles[0].tip[0], client_.TipOf(1).now[0], 0.001);
    EXPECT_NEAR(state.needles[0].rear[0], -8838.835, 0.001);
    ASSERT_EQ(state.cells.size(), client_.Cells().size());
    EXPECT_EQ(state.cells[0].place[0], 420.0);
    EXPECT_EQ(state.cells[0].radius, 14.0);
}

TEST_F(OpticsClientTest, MirrorFocusAndGaugeAreWorkedByHand) {
    client_.MoveMirror(500, -4);
    WorkbenchClient::MirrorState mirror = client_.Mirror();
    EXPECT_EQ(mirror.atRest[0], 180.0);
    EXPECT_EQ(mirror.atRest[1], -4.0);
    EXPECT_TRUE(mirror.motorsOn && mirror.limitX && !mirror.limitY);
    EXPECT_EQ(client_.ViewCentreAtRest()[0], -900.0);
    client_.SwitchMirrorMotors(false);
    EXPECT_THROW(client_.JogMirror(1, 1), travo::Failure);
    client_.JogFocus(-500);
    EXPECT_EQ(client_.Focus().atRest, -5.0);
    client_.MoveFocus(1000);
    EXPECT_EQ(client_.Focus().countsAtRest, 1000);
    EXPECT_THROW(client_.SetMagnification(4), travo::Failure);
    const auto end = std::chrono::steady_clock::now() + seconds(20);
    while (client_.Focus().now != 10.0 && std::chrono::steady_clock::now() < end) {
    }
    client_.PressGaugeZero();
    EXPECT_EQ(client_.Gauge().zero, 10.0);
    EXPECT_EQ(client_.Gauge().reading, 0.0);
}

}  // namespace workbench
