// The guard of the driver's calls, seen by what the operations do.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "devices/links/ManipulatorRig.h"

namespace travo::test {
namespace {

using Moves = std::vector<std::array<std::int32_t, 3>>;

enum class Guard { Free, Taken };

struct Row {
    std::string name;
    std::function<void(ManipulatorRig&)> operation;
    Guard before;
    Journal calls;  // what reaches the driver
    Guard after;
};

void Jog(ManipulatorRig& rig) {
    std::int16_t number = 1;
    rig.link->ConnectTest(number);
}
void Change(ManipulatorRig& rig) { rig.link->ConnectChange(2); }
void Send(ManipulatorRig& rig) { rig.link->SendData(0, {1, 2, 3}, {1, 2, 3}); }
void SendOutside(ManipulatorRig& rig) { rig.link->SendData(0, {1, 2, 25001}, {1, 2, 3}); }
void Request(ManipulatorRig& rig) { rig.link->RequestData(); }
void RequestOutside(ManipulatorRig& rig) {
    rig.driver.position[0][1] = -1;
    rig.link->RequestData();
    rig.driver.position[0][1] = 200;
}
void TestOutside(ManipulatorRig& rig) {
    rig.driver.position[0][1] = -1;
    Jog(rig);
    rig.driver.position[0][1] = 200;
}
void TestAtTheEnd(ManipulatorRig& rig) {
    rig.driver.position[0][0] = 24951;
    Jog(rig);
}
void Count(ManipulatorRig& rig) { rig.link->ConnectedNumber(); }
void ReConnect(ManipulatorRig& rig) { rig.link->ReConnect(); }
void Numbers(ManipulatorRig& rig) {
    rig.link->NumberSetting(0, 2);
    rig.link->CheckNumberSetting(2);
}
std::function<void(ManipulatorRig&)> Failing(const std::string& operation,
                                             const std::function<void(ManipulatorRig&)>& run) {
    return [operation, run](ManipulatorRig& rig) {
        rig.driver.failing = {operation};
        run(rig);
        rig.driver.failing.clear();
    };
}

const std::string Select1 = "DriverSelect 1";
const std::string Select2 = "DriverSelect 2";
const std::string Get = "DriverGetPosition";
const std::string MoveTo = "DriverMoveTo";
const std::string BoxFailed = "box Manipulator : Communication failed";
const std::string BoxOutside = "box Manipulator : Outside the movement range";
const std::string BoxChange = "box Error : Manipulator : Communication failed";

std::vector<Row> Rows() {
    using enum Guard;
    return {
        {"RequestFree", Request, Free, {Get}, Free},
        {"RequestTaken", Request, Taken, {}, Free},
        {"RequestOutsideFree", RequestOutside, Free, {Get}, Taken},
        {"RequestOutsideTaken", RequestOutside, Taken, {}, Free},
        {"RequestFailingFree", Failing(Get, Request), Free, {Get, BoxFailed}, Free},
        {"RequestFailingTaken", Failing(Get, Request), Taken, {}, Free},
        {"ChangeFree", Change, Free, {Select2}, Free},
        {"ChangeTaken", Change, Taken, {}, Free},
        {"ChangeFailingFree", Failing("DriverSelect", Change), Free, {Select2, BoxChange}, Free},
        {"ChangeFailingTaken", Failing("DriverSelect", Change), Taken, {}, Free},
        {"TestFree", Jog, Free, {Select1, Get, MoveTo, MoveTo}, Free},
        {"TestTaken", Jog, Taken, {Get, MoveTo, MoveTo}, Free},
        {"TestOutsideFree", TestOutside, Free, {Select1, Get, BoxFailed}, Free},
        {"TestOutsideTaken", TestOutside, Taken, {Get, BoxFailed}, Free},
        {"TestAtTheEndFree", TestAtTheEnd, Free, {Select1, Get, BoxOutside}, Free},
        {"TestAtTheEndTaken", TestAtTheEnd, Taken, {Get, BoxOutside}, Free},
        {"TestFailingInSelect", Failing("DriverSelect", Jog), Free, {Select1, BoxFailed}, Free},
        {"TestFailingInMove", Failing(MoveTo, Jog), Free, {Select1, Get, MoveTo, BoxFailed}, Free},
        {"SendFree", Send, Free, {MoveTo}, Free},
        {"SendTaken", Send, Taken, {MoveTo}, Free},
        {"SendOutsideFree", SendOutside, Free, {BoxOutside}, Free},
        {"SendOutsideTaken", SendOutside, Taken, {BoxOutside}, Free},
        {"SendFailingFree", Failing(MoveTo, Send), Free, {MoveTo, BoxFailed}, Free},
        {"SendFailingTaken", Failing(MoveTo, Send), Taken, {MoveTo, BoxFailed}, Free},
        {"CountFree", Count, Free, {"DriverGetCount"}, Free},
        {"CountTaken", Count, Taken, {"DriverGetCount"}, Taken},
        {"ReConnectFree", ReConnect, Free, {"DriverReconnect"}, Free},
        {"ReConnectTaken", ReConnect, Taken, {"DriverReconnect"}, Taken},
        {"NumbersFree", Numbers, Free, {}, Free},
        {"NumbersTaken", Numbers, Taken, {}, Taken},
    };
}

class GuardTableTest : public ::testing::TestWithParam<Row>, public ManipulatorRig {};

TEST_P(GuardTableTest, CallsTheDriverOrNotAndLeavesTheGuard) {
    if (GetParam().before == Guard::Taken) {
        TakeGuard();
    }
    GetParam().operation(*this);
    EXPECT_EQ(journal, GetParam().calls);
    EXPECT_EQ(GuardIsTaken(), GetParam().after == Guard::Taken);
}

INSTANTIATE_TEST_SUITE_P(EachOperation, GuardTableTest, ::testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

class clsManipulatorGuardTest : public ::testing::Test, public ManipulatorRig {
protected:
    // Runs the procedure inside the first driver operation of that name, and only there.
    void DuringDriverCall(const std::string& operation, std::function<void()> procedure) {
        driver.whileCalled = [operation, once = Once(std::move(procedure))](const std::string& called) {
            if (called == operation) {
                once();
            }
        };
    }
    // Runs the procedure inside the first wait that serves events.
    void DuringWait(std::function<void()> procedure) { eventLoop.whileServed = Once(std::move(procedure)); }
};

TEST_F(clsManipulatorGuardTest, RequestDataWithTheGuardTakenReturnsEmptyTextAndLeavesTheGuardFree) {
    TakeGuard();
    EXPECT_EQ(link->RequestData(), "");
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(link->RequestData(), "0,100,200,300");
}

TEST_F(clsManipulatorGuardTest, ConnectChangeReturnsMinus1WhileAnotherDriverCallIsUnderWay) {
    std::vector<std::int32_t> answers;
    DuringDriverCall(Get, [&] {
        answers.push_back(link->ConnectChange(2));
        answers.push_back(link->ConnectChange(3));
    });
    EXPECT_EQ(link->RequestData(), "2,0,0,0");
    // The first has freed the guard on its way out, so the second reaches the driver.
    EXPECT_EQ(answers, (std::vector<std::int32_t>{-1, 1}));
    EXPECT_EQ(journal, (Journal{Get, "DriverSelect 3"}));
}

TEST_F(clsManipulatorGuardTest, RequestDataDuringTheDriverCallOfAMoveReturnsEmptyText) {
    std::string reply = "none";
    DuringDriverCall(MoveTo, [&] { reply = link->RequestData(); });
    EXPECT_EQ(link->SendData(0, {1, 2, 3}, {1, 2, 3}), 1);
    EXPECT_EQ(reply, "");
    EXPECT_FALSE(GuardIsTaken());
}

TEST_F(clsManipulatorGuardTest, SendDataDuringAnotherDriverCallMovesAndFreesTheGuard) {
    std::string reply = "none";
    DuringDriverCall("DriverSelect", [&] {
        link->SendData(0, {1, 2, 3}, {1, 2, 3});
        reply = link->RequestData();
    });
    link->ConnectChange(1);
    EXPECT_EQ(driver.moves, (Moves{{1, 2, 3}}));
    EXPECT_EQ(reply, "0,1,2,3");
}

TEST_F(clsManipulatorGuardTest, RequestDataDuringConnectTestsWaitReadsTheJoggedPlace) {
    std::string reply;
    DuringWait([&] { reply = link->RequestData(); });
    Jog(*this);
    EXPECT_EQ(reply, "0,150,200,300");
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {100, 200, 300}}));
}

TEST_F(clsManipulatorGuardTest, AReadingOutOfRangeDuringConnectTestsWaitKeepsTheManipulatorFromGoingBack) {
    DuringWait([&] { RequestOutside(*this); });
    Jog(*this);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}}));
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(GuardIsTaken());
}

TEST_F(clsManipulatorGuardTest, TwoReadingsOutOfRangeDuringConnectTestsWaitLetItGoBack) {
    DuringWait([&] {
        RequestOutside(*this);
        RequestOutside(*this);
    });
    Jog(*this);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {100, 200, 300}}));
}

TEST_F(clsManipulatorGuardTest, ConnectChangeDuringConnectTestsWaitSendsTheOtherManipulatorToTheOldPlace) {
    std::int32_t answer = 0;
    DuringWait([&] { answer = link->ConnectChange(2); });
    Jog(*this);
    EXPECT_EQ(answer, 1);
    EXPECT_EQ(driver.position[0], (std::array<std::int32_t, 3>{150, 200, 300}));
    EXPECT_EQ(driver.position[1], (std::array<std::int32_t, 3>{100, 200, 300}));
}

TEST_F(clsManipulatorGuardTest, SendDataDuringConnectTestsWaitMovesBeforeItGoesBack) {
    DuringWait([&] { Send(*this); });
    Jog(*this);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {1, 2, 3}, {100, 200, 300}}));
}

TEST_F(clsManipulatorGuardTest, ConnectTestDuringConnectTestsWaitRunsToItsEndFirst) {
    std::int16_t inner = 2;
    DuringWait([&] { link->ConnectTest(inner); });
    std::int16_t outer = 1;
    link->ConnectTest(outer);
    EXPECT_EQ(inner, 1);
    EXPECT_EQ(outer, 0);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {50, 0, 0}, {0, 0, 0}, {100, 200, 300}}));
}

TEST_F(clsManipulatorGuardTest, AFailedReadingDuringConnectTestsWaitIsReportedAndLetsItGoBack) {
    DuringWait([&] { Failing(Get, Request)(*this); });
    Jog(*this);
    EXPECT_EQ(boxes.Texts(), QStringList{CommunicationFailed});
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {100, 200, 300}}));
}

}  // namespace
}  // namespace travo::test
