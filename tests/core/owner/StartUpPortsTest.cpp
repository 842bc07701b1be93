// The ports of the last run at a start.
#include "core/owner/OwnerRig.h"
#include "core/owner/StartUp.h"

namespace travo::test {

namespace {

class StartUpPortsTest : public OwnerRig {};

TEST_F(StartUpPortsTest,
       StoredPortsAreOpenedInTheOrderMirrorGaugeMotorAndTheMirrorIsAskedForTheLowestMagnification) {
    WriteSettings("[COMPort]\r\nMotor=3\r\nMagnescale=2\r\nMirror=1\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_LT(PlaceOf("port 1 open"), PlaceOf("watch 0 on port 1"));
    EXPECT_LT(PlaceOf("watch 0 on port 1"), PlaceOf("port 2 open"));
    EXPECT_LT(PlaceOf("port 2 open"), PlaceOf("watch 1 on port 2"));
    EXPECT_LT(PlaceOf("port 3 open"), PlaceOf("watch 2 on port 3"));
    EXPECT_LT(PlaceOf("port 2 open"), PlaceOf("port 3 open"));
    EXPECT_LT(PlaceOf("port 3 open"), PlaceOf("port 1 > cMAG1\r"));
    EXPECT_LT(PlaceOf("port 1 > cMAG1\r"), PlaceOf("read Manipulator Calibration:0|Index:0,XYZ:0"));
    EXPECT_FALSE(state_->bMotorONOFF);
    EXPECT_FALSE(state_->bMirrorMotorONOFF);
}

TEST_F(StartUpPortsTest, APortNumberOfOneOpensTheDeviceThatItIsStoredFor) {
    int device = 0;
    for (const char* const key : {"Mirror", "Magnescale", "Motor"}) {
        Restart();
        journal_.clear();
        WriteSettings(QByteArray("[COMPort]\r\n") + key + "=1\r\n");
        EXPECT_TRUE(Begin());
        EXPECT_EQ(CountOf("port 1 open"), 1) << key;
        EXPECT_EQ(CountOf("watch " + std::to_string(device) + " on port 1"), 1) << key;
        ++device;
    }
}

TEST_F(StartUpPortsTest, APortNumberBelowOneLeavesTheDeviceClosed) {
    WriteSettings("[COMPort]\r\nMirror=0\r\nMagnescale=-1\r\nMotor=0\r\n");
    EXPECT_TRUE(Begin());
    for (const std::string& entry : journal_) {
        EXPECT_FALSE(entry.starts_with("port ")) << entry;
    }
}

TEST_F(StartUpPortsTest, AStoredPortThatDoesNotOpenStaysClosedInSilenceAndNoMagnificationIsAsked) {
    serialPorts_.missing = {1};
    WriteSettings("[COMPort]\r\nMirror=1\r\n");
    EXPECT_TRUE(Begin());
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_FALSE(objects_->cCommunication->MirrorPortOpenCheck());
    EXPECT_EQ(CountOf("port 1 > cMAG1\r"), 0);
}

}  // namespace

}  // namespace travo::test
