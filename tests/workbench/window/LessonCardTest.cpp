#include "workbench/window/LessonCard.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

namespace workbench::test {
namespace {

Scene AllWiresOpen() {
    Scene scene;
    scene.wires = {{"mirror", "", true, true}, {"gauge", "", true, true}, {"motor", "", true, true}};
    return scene;
}

std::vector<std::string>& Alerts() {
    static std::vector<std::string> told;
    return told;
}

void TakeAlert(QAccessibleEvent* event) {
    if (event->type() == QAccessible::Alert) {
        Alerts().push_back(qobject_cast<QWidget*>(event->object())->accessibleName().toStdString());
    }
}

struct LessonCardTest : ::testing::Test {
    LessonCardTest() {
        card.resize(252, 544);
        card.show();
        QAccessible::setActive(true);
        QAccessible::installUpdateHandler(TakeAlert);
        Alerts().clear();
    }
    ~LessonCardTest() override { QAccessible::installUpdateHandler(nullptr); }

    LessonItem& Step(int number) {
        return *card.findChild<LessonItem*>(QStringLiteral("lesson_step%1").arg(number));
    }
    void Press(const char* name) {
        QTest::mouseClick(card.findChild<QAbstractButton*>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    // Nothing hangs out of the card, nothing overlaps.
    void ExpectTidy() {
        int bottom = 0;
        for (int step = 1; step <= LessonStepCount; ++step) {
            EXPECT_EQ(Step(step).y(), bottom) << step;
            bottom = Step(step).geometry().bottom() + 1;
        }
        EXPECT_LE(bottom, Step(1).parentWidget()->height());
    }

    Lesson lesson;
    std::string wished;
    LessonCard card{{[this] { wished = "hide"; }, [this] { wished = "look"; }, [this] { wished = "again"; }},
                    nullptr};
};

TEST_F(LessonCardTest, TheNextStepIsOpenTheOthersAreRows) {
    card.Show(lesson);
    EXPECT_EQ(Step(1).Shown(), LessonItem::State::Next);
    EXPECT_EQ(Step(2).Shown(), LessonItem::State::After);
    EXPECT_GT(Step(1).height(), 60);
    EXPECT_EQ(Step(2).height(), 32);
    ExpectTidy();
}

TEST_F(LessonCardTest, AStepThatIsTickedIsToldAsAnAlertOnce) {
    card.Show(lesson);
    lesson.Take(AllWiresOpen(), {}, 0);
    ASSERT_EQ(lesson.Done(), 1);
    card.Show(lesson);
    card.Show(lesson);
    EXPECT_EQ(Alerts(), std::vector<std::string>{"Step 1 of 8, done: Connect"});
    EXPECT_EQ(Step(1).Shown(), LessonItem::State::Done);
    EXPECT_EQ(Step(2).Shown(), LessonItem::State::Next);
    EXPECT_EQ(Step(2).accessibleName().toStdString(), "Step 2 of 8, next: Pick needle 1 at 2×");
    ExpectTidy();
}

TEST_F(LessonCardTest, ToScreenReadersItIsAListOfEightItems) {
    lesson.Take(AllWiresOpen(), {}, 0);
    card.Show(lesson);
    QAccessibleInterface* const list =
        QAccessible::queryAccessibleInterface(card.findChild<QWidget*>(QStringLiteral("lesson_steps")));
    EXPECT_EQ(list->role(), QAccessible::List);
    int items = 0;
    for (int child = 0; child < list->childCount(); ++child) {
        QAccessibleInterface* const item = list->child(child);
        if (item->role() == QAccessible::ListItem && !item->state().invisible) {
            ++items;
            EXPECT_EQ(item->state().checked, items == 1) << items;
        }
    }
    EXPECT_EQ(items, LessonStepCount);
}

TEST_F(LessonCardTest, InASmallWindowEveryStepFitsWithItsText) {
    card.ShowSmall(true);
    card.resize(204, 430);
    for (int next = 1; next <= LessonStepCount; ++next) {
        LessonItem::Body body;
        for (int step = 1; step <= LessonStepCount; ++step) {
            body.text = LessonSteps().at(static_cast<std::size_t>(step - 1)).text;
            body.hasMarks = step == 3;
            body.hasButton = step == 7;
            body.notice = step == 3 ? StoredOffText(12.3) : QString();
            Step(step).Show(step < next    ? LessonItem::State::Done
                            : step == next ? LessonItem::State::Next
                                           : LessonItem::State::After,
                            {}, step == next ? body : LessonItem::Body{}, {});
        }
        card.resize(204, 430 + next % 2);
        ExpectTidy();
    }
}

TEST_F(LessonCardTest, ItsButtonsSayWhatIsWished) {
    Press("lesson_close");
    EXPECT_EQ(wished, "hide");
    EXPECT_TRUE(card.findChild<QAbstractButton*>(QStringLiteral("look"))->isHidden());
    EXPECT_TRUE(card.findChild<QAbstractButton*>(QStringLiteral("lesson_again"))->visibleRegion().isEmpty());
}

TEST_F(LessonCardTest, TextIsBrokenAtItsBlanksAndNothingIsLost) {
    const QString text = LessonSteps().at(2).text;
    const QStringList lines = Wrapped(text, 156, 13);
    EXPECT_GT(lines.size(), 4);
    EXPECT_EQ(lines.join(QLatin1Char(' ')), text);
}

}  // namespace
}  // namespace workbench::test
