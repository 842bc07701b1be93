#include "core/state/FailureHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "core/ground/Arithmetic.h"
#include "support/StandIns.h"

namespace travo {
namespace {

using platform::BoxButtons;
using platform::BoxIcon;

class FailureHandlerTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        log.LogFilePath(path);
        log.WriteDate();
    }

    std::string Log() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    static void Overflow() { Sum(INT32_MAX, 1); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("debugTRAVO.txt"));
    test::FakeClock clock;
    test::Journal journal;
    test::FakeBoxes boxes{journal};
    clsDebugLog log{clock};
    FailureHandler handler{log, boxes};
    const QString text = QStringLiteral("Needle move failed");
};

TEST_F(FailureHandlerTest, ABodyThatComesToItsEndIsTrueAndReportsNothing) {
    bool ran = false;
    EXPECT_TRUE(handler.Handle(text, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Log(), "07-03-2008\r\n");
}

TEST_F(FailureHandlerTest, AFailureIsLoggedFirstAndThenShownWithTheSameText) {
    std::string logWhileShown;
    boxes.whileShown = [&] { logWhileShown = Log(); };
    EXPECT_FALSE(handler.Handle(text, Overflow));
    EXPECT_EQ(logWhileShown, "07-03-2008\r\n14:05:33 - Needle move failed\r\n");
    EXPECT_EQ(boxes.Texts(), QStringList{text});
    EXPECT_EQ(Log(), logWhileShown);
}

TEST_F(FailureHandlerTest, TheBoxHasAnOKButtonAndNoIcon) {
    handler.Handle(text, Overflow);
    handler.Show(text);
    ASSERT_EQ(boxes.shown.size(), 2U);
    for (const test::FakeBoxes::Box& box : boxes.shown) {
        EXPECT_EQ(box.buttons, BoxButtons::OK);
        EXPECT_EQ(box.icon, BoxIcon::None);
    }
}

TEST_F(FailureHandlerTest, NothingIsRolledBack) {
    int steps = 0;
    handler.Handle(text, [&] {
        ++steps;
        Overflow();
        ++steps;
    });
    EXPECT_EQ(steps, 1);
}

TEST_F(FailureHandlerTest, EveryKindOfFailureEndsAtTheHandler) {
    EXPECT_FALSE(handler.Handle(text, [] { Bounded(4, 4); }));
    EXPECT_FALSE(handler.Handle(text, [] { ReadInteger32("abc"); }));
    EXPECT_FALSE(handler.Handle(text, [] { throw platform::DriverFailure("no answer"); }));
    EXPECT_FALSE(handler.Handle(text, [] { throw std::bad_alloc(); }));
    EXPECT_EQ(boxes.shown.size(), 4U);
}

TEST_F(FailureHandlerTest, WhateverIsThrownEndsAtTheHandler) {
    EXPECT_FALSE(handler.Handle(text, [] { throw 42; }));
    EXPECT_FALSE(handler.Handle(text, [] { throw "a text"; }));
    EXPECT_EQ(boxes.Texts(), (QStringList{text, text}));
}

TEST_F(FailureHandlerTest, ALogThatCannotBeWrittenStillShowsTheBox) {
    log.LogFilePath(folder.filePath(QStringLiteral("missing/debugTRAVO.txt")));
    EXPECT_FALSE(handler.Handle(text, Overflow));
    EXPECT_NO_THROW(handler.Report(QStringLiteral("Error : Load")));
    EXPECT_EQ(boxes.Texts(), (QStringList{text, QStringLiteral("Error : Load")}));
}

TEST_F(FailureHandlerTest, ALogWithoutAPathStillShowsTheBox) {
    log.LogFilePath(QString());
    EXPECT_FALSE(handler.Handle(QStringLiteral("Error : Initialize"), Overflow));
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Error : Initialize")});
}

TEST_F(FailureHandlerTest, AnInnerHandlerTakesTheFailureInItsOwnWordsAndTheOuterSeesNone) {
    bool wentOn = false;
    EXPECT_TRUE(handler.Handle(QStringLiteral("Error : Load"), [&] {
        EXPECT_FALSE(handler.Handle(QStringLiteral("Error : Camera Load"), Overflow));
        wentOn = true;
    }));
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Error : Camera Load")});
    EXPECT_EQ(Log(), "07-03-2008\r\n14:05:33 - Error : Camera Load\r\n");
}

TEST_F(FailureHandlerTest, AFailureAfterAnInnerHandlerReachesTheOuter) {
    EXPECT_FALSE(handler.Handle(QStringLiteral("Error : Load"), [&] {
        handler.Handle(QStringLiteral("Error : Camera Load"), [] {});
        Overflow();
    }));
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Error : Load")});
}

TEST_F(FailureHandlerTest, AProcedureMayChangeHandlerBetweenSteps) {
    handler.Handle(QStringLiteral("Error : Camera Load"), Overflow);
    handler.Handle(QStringLiteral("Error : Window Load"), Overflow);
    EXPECT_EQ(Log(), "07-03-2008\r\n14:05:33 - Error : Camera Load\r\n14:05:33 - Error : Window Load\r\n");
}

TEST_F(FailureHandlerTest, AFailureWhileTheBoxIsShownIsHandledByItself) {
    bool first = true;
    boxes.whileShown = [&] {
        if (std::exchange(first, false)) {
            handler.Handle(QStringLiteral("Error : Camera Load"), Overflow);
        }
    };
    EXPECT_FALSE(handler.Handle(QStringLiteral("Error : Load"), Overflow));
    EXPECT_EQ(boxes.Texts(),
              (QStringList{QStringLiteral("Error : Load"), QStringLiteral("Error : Camera Load")}));
    EXPECT_EQ(Log(), "07-03-2008\r\n14:05:33 - Error : Load\r\n14:05:33 - Error : Camera Load\r\n");
}

TEST_F(FailureHandlerTest, ShowWritesNoLogLine) {
    handler.Show(QStringLiteral("Device Manager is Not found"));
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Device Manager is Not found")});
    EXPECT_EQ(Log(), "07-03-2008\r\n");
}

}  // namespace
}  // namespace travo
