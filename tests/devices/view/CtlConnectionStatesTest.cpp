// The rows of the connection panel: every state with every event.
#include <tuple>

#include "devices/view/CtlConnectionRig.h"

namespace travo::test {
namespace {

enum class Now { AtRest, Watching, Connected, Refused, Lost, NotOpened };
enum class Event {
    Set,
    BadSet,
    TickWithAnswer,
    SilentTick,
    SeventhTick,
    Hide,
    Show,
    WatchOn,
    WatchOff,
    Vanish
};

struct Step {
    Now before;
    Event event;
    Now after;
    bool watches = after == Now::Watching;
};

constexpr Step Steps[] = {
    {Now::AtRest, Event::Set, Now::Watching},
    {Now::AtRest, Event::BadSet, Now::NotOpened},
    {Now::AtRest, Event::TickWithAnswer, Now::AtRest},
    {Now::AtRest, Event::SilentTick, Now::AtRest},
    {Now::AtRest, Event::SeventhTick, Now::AtRest},
    {Now::AtRest, Event::Hide, Now::AtRest},
    {Now::AtRest, Event::Show, Now::AtRest},
    {Now::AtRest, Event::WatchOn, Now::NotOpened, true},
    {Now::AtRest, Event::WatchOff, Now::AtRest},
    {Now::Watching, Event::Set, Now::Watching},
    {Now::Watching, Event::BadSet, Now::NotOpened},
    {Now::Watching, Event::TickWithAnswer, Now::Connected},
    {Now::Watching, Event::SilentTick, Now::Watching},
    {Now::Watching, Event::SeventhTick, Now::Refused},
    {Now::Watching, Event::Hide, Now::AtRest},
    {Now::Watching, Event::Show, Now::AtRest},
    {Now::Watching, Event::WatchOn, Now::Watching},
    {Now::Watching, Event::WatchOff, Now::AtRest},
    {Now::Watching, Event::Vanish, Now::Lost, true},
    {Now::Connected, Event::Set, Now::Watching},
    {Now::Connected, Event::BadSet, Now::NotOpened},
    {Now::Connected, Event::TickWithAnswer, Now::Connected},
    {Now::Connected, Event::SilentTick, Now::Connected},
    {Now::Connected, Event::SeventhTick, Now::Connected},
    {Now::Connected, Event::Hide, Now::Connected},
    {Now::Connected, Event::Show, Now::Connected},
    {Now::Connected, Event::WatchOn, Now::Watching},
    {Now::Connected, Event::WatchOff, Now::Connected},
    {Now::Connected, Event::Vanish, Now::Lost},
    {Now::Refused, Event::Set, Now::Watching},
    {Now::Refused, Event::BadSet, Now::NotOpened},
    {Now::Refused, Event::TickWithAnswer, Now::Refused},
    {Now::Refused, Event::SilentTick, Now::Refused},
    {Now::Refused, Event::SeventhTick, Now::Refused},
    {Now::Refused, Event::Hide, Now::Refused},
    {Now::Refused, Event::Show, Now::Refused},
    {Now::Refused, Event::WatchOn, Now::NotOpened, true},
    {Now::Refused, Event::WatchOff, Now::Refused},
    {Now::Lost, Event::Set, Now::Watching},
    {Now::Lost, Event::BadSet, Now::NotOpened},
    {Now::Lost, Event::TickWithAnswer, Now::Lost},
    {Now::Lost, Event::SilentTick, Now::Lost},
    {Now::Lost, Event::SeventhTick, Now::Lost},
    {Now::Lost, Event::Hide, Now::Lost},
    {Now::Lost, Event::Show, Now::Lost},
    {Now::Lost, Event::WatchOff, Now::Lost},
    {Now::Lost, Event::WatchOn, Now::NotOpened, true},
    {Now::NotOpened, Event::Set, Now::Watching},
    {Now::NotOpened, Event::BadSet, Now::NotOpened},
    {Now::NotOpened, Event::TickWithAnswer, Now::NotOpened},
    {Now::NotOpened, Event::SilentTick, Now::NotOpened},
    {Now::NotOpened, Event::SeventhTick, Now::NotOpened},
    {Now::NotOpened, Event::Hide, Now::NotOpened},
    {Now::NotOpened, Event::Show, Now::NotOpened},
    {Now::NotOpened, Event::WatchOff, Now::NotOpened},
    {Now::NotOpened, Event::WatchOn, Now::NotOpened, true},
};

class CtlConnectionStatesTest : public CtlConnectionRig,
                                public ::testing::WithParamInterface<std::tuple<int, Step>> {
protected:
    void Do(int row, Event event) {
        const auto index = static_cast<std::int16_t>(row);
        switch (event) {
            case Event::Set:
                return SetOn(row, QStringLiteral("1"));
            case Event::BadSet:
                return SetOn(row, QStringLiteral("99999"));
            case Event::TickWithAnswer:
                Answer(row);
                return Tick(row);
            case Event::SilentTick:
                return Tick(row);
            case Event::SeventhTick:
                return Tick(row, 7);
            case Event::Hide:
                return panel.Hidden();
            case Event::Show:
                return panel.Shown();
            case Event::Vanish:
                return Port(row).Vanish();
            default:
                return panel.TimerONOFF(index, event == Event::WatchOn);
        }
    }
    void SetOn(int row, const QString& port) {
        panel.ControlONOFF(true);
        Type(row, port);
        Press(row);
    }
    void Bring(int row, Now state) {
        if (state != Now::AtRest) {
            Do(row, state == Now::NotOpened ? Event::BadSet : Event::Set);
        }
        if (state == Now::Connected || state == Now::Lost) {
            Do(row, Event::TickWithAnswer);
        }
        if (state == Now::Lost) {
            Do(row, Event::Vanish);
        }
        if (state == Now::Refused) {
            Do(row, Event::SeventhTick);
        }
    }
};
INSTANTIATE_TEST_SUITE_P(Table, CtlConnectionStatesTest,
                         ::testing::Combine(::testing::Values(0, 1, 2), ::testing::ValuesIn(Steps)));

TEST_P(CtlConnectionStatesTest, TheRowSaysWhatItHasComeTo) {
    const auto& [row, step] = GetParam();
    const char* const words[] = {"Not connected", "Waiting for an answer", "Connected",
                                 "No answer",     "Connection lost",       "Port cannot be opened"};
    Bring(row, step.before);
    ASSERT_EQ(State(row).toStdString(), words[static_cast<int>(step.before)]);
    const QString storedBefore = Stored(row);
    Do(row, step.event);
    EXPECT_EQ(State(row).toStdString(), words[static_cast<int>(step.after)]);
    EXPECT_EQ(Watch(row).enabled, step.watches);
    if (step.before == Now::Watching && step.after == Now::Connected) {
        EXPECT_EQ(Stored(row), QStringLiteral("1"));
    } else if (step.event == Event::SeventhTick && step.before == Now::Watching) {
        EXPECT_EQ(Stored(row), QStringLiteral("-1"));
    } else {
        EXPECT_EQ(Stored(row), storedBefore);
    }
}

}  // namespace
}  // namespace travo::test
