// The driver library as a control program loads it, against the real travo-workbench.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <cstdint>

#include "workbench/WorkbenchProcess.h"
#include "workbench/client/WorkbenchClient.h"

namespace workbench {

using std::chrono::seconds;

namespace {

// Statuses of the library's own.
constexpr std::int32_t NoWorkbench = -10;
constexpr std::int32_t TimedOut = -11;
constexpr std::int32_t NoPlaceForAnswer = -13;

struct Position {
    std::int32_t number = 0;
    travo::PositionXYZ xyz{};
};

class Driver {
public:
    Driver() : library_(dlopen(DRIVER_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        getPosition = Find<decltype(getPosition)>("DriverGetPosition");
        moveTo = Find<decltype(moveTo)>("DriverMoveTo");
        select = Find<decltype(select)>("DriverSelect");
        getCount = Find<decltype(getCount)>("DriverGetCount");
        reconnect = Find<decltype(reconnect)>("DriverReconnect");
    }
    ~Driver() { dlclose(library_); }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    std::int32_t Read(Position& position) const {
        return getPosition(&position.number, &position.xyz[0], &position.xyz[1], &position.xyz[2]);
    }
    std::int32_t Count() const {
        std::int32_t count = -1;
        const std::int32_t status = getCount(&count);
        return status < 0 ? status : count;
    }

    std::int32_t (*getPosition)(std::int32_t*, std::int32_t*, std::int32_t*, std::int32_t*) = nullptr;
    std::int32_t (*moveTo)(std::int32_t, std::int32_t, std::int32_t) = nullptr;
    std::int32_t (*select)(std::int32_t, std::int32_t*) = nullptr;
    std::int32_t (*getCount)(std::int32_t*) = nullptr;
    std::int32_t (*reconnect)() = nullptr;

private:
    template <typename Function>
    Function Find(const char* name) {
        return reinterpret_cast<Function>(dlsym(library_, name));
    }

    void* library_;
};

}  // namespace

TEST(DriverLibraryTest, ExportsTheFiveOperationsAndNothingElse) {
    QProcess lister;
    lister.start(QStringLiteral("nm"),
                 {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                  QStringLiteral("--format=just-symbols"), QStringLiteral(DRIVER_LIBRARY)});
    ASSERT_TRUE(lister.waitForFinished());
    QStringList names = QString::fromLatin1(lister.readAllStandardOutput())
                            .split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    names.sort();
    EXPECT_EQ(names, (QStringList{QStringLiteral("DriverGetCount"), QStringLiteral("DriverGetPosition"),
                                  QStringLiteral("DriverMoveTo"), QStringLiteral("DriverReconnect"),
                                  QStringLiteral("DriverSelect")}))
        << names.join(QStringLiteral(" ")).toStdString();
}

TEST(DriverLibraryTest, EveryOperationIsAnExchangeWithTheWorkbench) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    EXPECT_EQ(driver.Count(), 4);
    std::int32_t answer = 0;
    EXPECT_EQ(driver.select(3, &answer), 0);
    EXPECT_EQ(answer, 1);
    EXPECT_EQ(driver.select(5, &answer), 0);
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(driver.moveTo(9600, 12400, 12450), 0);
    EXPECT_EQ(driver.reconnect(), 0);
    WorkbenchClient client;
    ASSERT_TRUE(client.WaitForRest(seconds(20)));
    Position position;
    EXPECT_EQ(driver.Read(position), 0);
    EXPECT_EQ(position.number, 3);
    EXPECT_EQ(position.xyz, (travo::PositionXYZ{9600, 12400, 12450}));
    const auto counters = client.Counters();
    EXPECT_EQ(counters.at("getposition"), 1);
    EXPECT_EQ(counters.at("moveto"), 1);
    EXPECT_EQ(counters.at("select"), 2);
    EXPECT_EQ(counters.at("getcount"), 1);
    EXPECT_EQ(counters.at("reconnect"), 1);
}

TEST(DriverLibraryTest, AnswersThatAreRefusalsAreNegativeAndLeaveTheValuesAlone) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    WorkbenchClient client;
    EXPECT_EQ(driver.moveTo(0, 0, 25001), -3);
    client.FailDriverCalls(1);
    EXPECT_EQ(driver.reconnect(), -1);
    EXPECT_EQ(driver.reconnect(), 0);
    client.ChangeCount(0);
    Position position{77, {1, 2, 3}};
    EXPECT_EQ(driver.Read(position), -2);
    EXPECT_EQ(position.number, 77);
    EXPECT_EQ(position.xyz, (travo::PositionXYZ{1, 2, 3}));
    EXPECT_EQ(driver.Count(), 0);
}

TEST(DriverLibraryTest, AMissingPlaceForAnAnswerIsANegativeStatus) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    std::int32_t value = 0;
    EXPECT_EQ(driver.getPosition(&value, &value, nullptr, &value), NoPlaceForAnswer);
    EXPECT_EQ(driver.select(1, nullptr), NoPlaceForAnswer);
    EXPECT_EQ(driver.getCount(nullptr), NoPlaceForAnswer);
}

TEST(DriverLibraryTest, WithoutAWorkbenchEveryOperationIsANegativeStatus) {
    const Driver driver;
    Position position;
    std::int32_t value = 0;
    EXPECT_EQ(driver.Read(position), NoWorkbench);
    EXPECT_EQ(driver.moveTo(1, 2, 3), NoWorkbench);
    EXPECT_EQ(driver.select(1, &value), NoWorkbench);
    EXPECT_EQ(driver.getCount(&value), NoWorkbench);
    EXPECT_EQ(driver.reconnect(), NoWorkbench);
}

TEST(DriverLibraryTest, AHangGivesANegativeStatusWhileItStillLasts) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    WorkbenchClient client;
    ASSERT_EQ(driver.Count(), 4);
    client.HangDriver(600.0);
    EXPECT_EQ(driver.Count(), TimedOut);
    EXPECT_EQ(client.Ask("fault list"), "hang");
    client.ClearFaults();
    Position position;
    EXPECT_EQ(driver.Read(position), 0);
    EXPECT_EQ(position.number, 1);
}

TEST(DriverLibraryTest, ACallThatAHangSwallowedIsNotMadeLater) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    WorkbenchClient client;
    client.HangDriver(600.0);
    EXPECT_EQ(driver.moveTo(12500, 12500, 12500), TimedOut);
    client.ClearFaults();
    EXPECT_EQ(driver.Count(), 4);
    EXPECT_FALSE(client.AnyNeedleMoves());
    EXPECT_EQ(client.Counters().at("moveto"), 0);
}

TEST(DriverLibraryTest, AHangThatEndsWithinTheLimitOnlyMakesTheCallSlow) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const Driver driver;
    WorkbenchClient client;
    client.HangDriver(0.1);
    EXPECT_EQ(driver.Count(), 4);
}

TEST(DriverLibraryTest, AKilledWorkbenchIsANegativeStatusAndARestartedOneWorksAgain) {
    const Driver driver;
    {
        WorkbenchProcess bench;
        ASSERT_TRUE(bench.Ready());
        ASSERT_EQ(driver.Count(), 4);
        bench.Kill();
        EXPECT_EQ(driver.Count(), NoWorkbench);
        EXPECT_EQ(driver.Count(), NoWorkbench);
    }
    const WorkbenchProcess again;
    ASSERT_TRUE(again.Ready());
    EXPECT_EQ(driver.Count(), 4);
}

TEST(DriverLibraryTest, AWorkbenchRestartedBetweenTwoCallsIsFoundByTheNext) {
    const Driver driver;
    {
        const WorkbenchProcess bench;
        ASSERT_TRUE(bench.Ready());
        ASSERT_EQ(driver.Count(), 4);
    }
    const WorkbenchProcess again;
    ASSERT_TRUE(again.Ready());
    EXPECT_EQ(driver.Count(), 4);
}

}  // namespace workbench
