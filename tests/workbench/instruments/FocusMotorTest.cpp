#include "workbench/instruments/FocusMotor.h"

#include <gtest/gtest.h>

#include "workbench/instruments/InstrumentText.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct Rig {
    std::string Tell(std::string_view bytes, int at = 0) { return AnswerOf(motor, bytes, milliseconds(at)); }
    std::string Hear(int at) { return SaidAt(motor, milliseconds(at)); }
    std::int32_t Count(int at) const { return world.Optics().FocusCount(milliseconds(at)); }

    World world;
    FocusMotor motor{world};
};

}  // namespace

TEST(FocusMotorTest, IdentifiesItself) {
    Rig desk;
    EXPECT_EQ(desk.Tell("WHO\r"), "ARemote Drive Accessory\r");
}

TEST(FocusMotorTest, AMoveIsAnsweredAtItsEnd) {
    Rig desk;
    EXPECT_EQ(desk.Tell("RELMOVEZ4000\r"), "");
    EXPECT_EQ(desk.Hear(99), "");
    EXPECT_EQ(desk.Hear(100), "A\r");
    EXPECT_EQ(desk.Hear(200), "");
    EXPECT_EQ(desk.Tell("RELMOVEZ-1000\r", 200), "");
    EXPECT_EQ(desk.Hear(300), "A\r");
    EXPECT_EQ(desk.Count(300), 3000);
    EXPECT_EQ(desk.Tell("MOVEZ-400\r", 300), "");
    EXPECT_EQ(desk.Hear(1000), "A\r");
    EXPECT_EQ(desk.Count(1000), -400);
}

TEST(FocusMotorTest, AMoveOfNoLengthIsAnsweredAtOnce) {
    Rig desk;
    EXPECT_EQ(desk.Tell("RELMOVEZ0\r"), "A\r");
}

TEST(FocusMotorTest, ItsPositionCountsFromItsOwnZero) {
    Rig desk;
    desk.Tell("MOVEZ4000\r");
    EXPECT_EQ(desk.Tell("WHEREZ\r", 50), "A2000\r");
    EXPECT_EQ(desk.Tell("ZERO\r", 100), "A\rA\r");
    EXPECT_EQ(desk.Tell("WHEREZ\r", 100), "A0\r");
    desk.Tell("MOVEZ-1000\r", 100);
    EXPECT_EQ(desk.Tell("WHEREZ\r", 200), "A\rA-1000\r");
    EXPECT_EQ(desk.Count(200), 3000);
}

TEST(FocusMotorTest, EveryCommandHasOneAnswerAlsoAMoveThatIsEnded) {
    Rig desk;
    desk.Tell("MOVEZ40000\r");
    EXPECT_EQ(desk.Tell("HALT\r", 100), "A\rA\r");
    EXPECT_EQ(desk.Count(5000), 4000);
    EXPECT_EQ(desk.Tell("HALT\r", 5000), "A\r");
    desk.Tell("MOVEZ40000\r", 5000);
    EXPECT_EQ(desk.Tell("MOVEZ0\r", 5100), "A\r");
    EXPECT_EQ(desk.Hear(9000), "A\r");
    desk.Tell("MOVEZ40000\r", 9000);
    EXPECT_EQ(desk.Tell("RESET\r", 9100), "A\rA\r");
    EXPECT_FALSE(desk.world.Optics().FocusMoves(milliseconds(9200)));
}

TEST(FocusMotorTest, KnowsTheShortFormsOfTheErgoUnit) {
    Rig desk;
    EXPECT_EQ(desk.Tell("RZ400\r"), "");
    EXPECT_EQ(desk.Tell("WZ\r", 100), "A\rA400\r");
    EXPECT_EQ(desk.Tell("ZE\r", 100), "A\r");
    EXPECT_EQ(desk.Tell("MZ-400\r", 100), "");
    EXPECT_EQ(desk.Tell("RE\r", 200), "A\rA\r");
    EXPECT_EQ(desk.Count(200), 0);
}

TEST(FocusMotorTest, RefusesWhatItDoesNotKnowOrCannotDo) {
    Rig desk;
    for (const char* line :
         {"\r", "who\r", "WHO \r", "WHOEVER\r", "MOVEZ\r", "MOVEZ+1\r", "MOVEZ1.5\r", "RELMOVEZx\r",
          "MOVEZ4000001\r", "RELMOVEZ-4000001\r", "MOVEZ99999999999\r", "\nWHO\r", "RZ\r", "WZ1\r"}) {
        EXPECT_EQ(desk.Tell(line), "N\r") << line;
    }
    EXPECT_FALSE(desk.world.Optics().FocusMoves(milliseconds(0)));
    EXPECT_EQ(desk.Tell(std::string(200, 'M')), "N\r");
    EXPECT_EQ(desk.Tell("\rWHO\r"), "ARemote Drive Accessory\r");
}

TEST(FocusMotorTest, ARefusedMoveDoesNotEndTheOneUnderWay) {
    Rig desk;
    desk.Tell("MOVEZ4000\r");
    EXPECT_EQ(desk.Tell("MOVEZ5000000\r", 50), "N\r");
    EXPECT_EQ(desk.Hear(100), "A\r");
    EXPECT_EQ(desk.Count(100), 4000);
}

TEST(FocusMotorTest, ItCanBeMadeToRefuse) {
    Rig desk;
    desk.motor.RefuseCommands(2);
    EXPECT_EQ(desk.Tell("WHO\rMOVEZ100\rWHEREZ\r"), "N\rN\rA0\r");
    EXPECT_FALSE(desk.motor.Refuses());
    desk.motor.RefuseCommands(-1);
    EXPECT_EQ(desk.Tell("WHO\rWHO\r"), "N\rN\r");
    desk.motor.RefuseCommands(0);
    EXPECT_EQ(desk.Tell("WHEREZ\r"), "A0\r");
}

TEST(FocusMotorTest, CountsCommandsByTheNamesTheyCameWith) {
    Rig desk;
    desk.Tell("WHO\rRELMOVEZ1\rRZ1\rRELMOVEZx\rgo\r");
    const Instrument::Counters expected = {{"RELMOVEZ", 2}, {"RZ", 1}, {"WHO", 1}, {"unknown", 1}};
    EXPECT_EQ(desk.motor.Received(), expected);
}

TEST(FocusMotorTest, AFloodIsOfGoodAnswers) {
    Rig desk;
    EXPECT_EQ(desk.motor.FloodLine(7, milliseconds(0)), "A7\r");
}

}  // namespace workbench
