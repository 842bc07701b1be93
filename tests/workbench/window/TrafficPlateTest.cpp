#include "workbench/window/TrafficPlate.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>

#include "PlateRig.h"

namespace workbench::test {
namespace {

class TrafficPlateTest : public PlateRig {
protected:
    TrafficPlateTest() {
        plate.resize(617, 244);
        plate.show();
    }
    // So many lines that do not fold.
    void Take(int lines, const char* source = "mirror") {
        Scene records;
        for (int line = 0; line < lines; ++line) {
            records.traffic.push_back(
                {double(++count), source, "in", "cD2A" + std::to_string(count) + "\\r"});
        }
        plate.Show(records);
    }
    int Rows() { return list.model()->rowCount(); }
    bool AtEnd() { return list.verticalScrollBar()->value() == list.verticalScrollBar()->maximum(); }

    int count = 0;
    TrafficPlate plate{nullptr};
    TrafficList& list = Find<TrafficList>(plate, "traffic_list");
};

TEST_F(TrafficPlateTest, TheListFollowsItsEndUntilSomebodyLooksFurtherUp) {
    Take(50);
    EXPECT_TRUE(AtEnd());
    Take(5);
    EXPECT_TRUE(AtEnd());
    list.verticalScrollBar()->setValue(100);
    Take(5);
    EXPECT_EQ(list.verticalScrollBar()->value(), 100);
    list.scrollToBottom();
    Take(5);
    EXPECT_TRUE(AtEnd());
}

TEST_F(TrafficPlateTest, PausedTheListStandsStillAndNothingIsLost) {
    Take(3);
    Click(plate, "traffic_pause");
    auto& pause = Find<BenchSwitch>(plate, "traffic_pause");
    EXPECT_EQ(pause.text(), QStringLiteral("Paused"));
    EXPECT_TRUE(pause.isChecked());
    Take(4);
    EXPECT_EQ(Rows(), 3);
    Click(plate, "traffic_pause");
    EXPECT_EQ(pause.text(), QStringLiteral("Pause"));
    EXPECT_EQ(Rows(), 7);
}

TEST_F(TrafficPlateTest, AFilterHidesAWireAndLosesNothing) {
    Take(3);
    Take(2, "motor");
    EXPECT_EQ(Rows(), 5);
    Click(plate, "show_mirror");
    EXPECT_FALSE(Find<BenchSwitch>(plate, "show_mirror").isChecked());
    EXPECT_EQ(Rows(), 2);
    Click(plate, "show_mirror");
    EXPECT_EQ(Rows(), 5);
}

TEST_F(TrafficPlateTest, CopyTakesTheSelectedLinesOrAllThatAreShown) {
    Take(3);
    Click(plate, "traffic_copy");
    EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), 3);
    list.selectionModel()->select(list.model()->index(1, 0), QItemSelectionModel::Select);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("\tcD2A2\t")));
    EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), 1);
}

TEST_F(TrafficPlateTest, ClearEmptiesTheList) {
    Take(3);
    Click(plate, "traffic_clear");
    EXPECT_EQ(Rows(), 0);
}

TEST_F(TrafficPlateTest, InASmallWindowClearStandsInTheListsMenu) {
    EXPECT_TRUE(Find<BenchPush>(plate, "traffic_clear").isVisible());
    plate.ShowSmall(true);
    plate.resize(449, 210);
    EXPECT_FALSE(Find<BenchPush>(plate, "traffic_clear").isVisible());
    EXPECT_EQ(Find<BenchSwitch>(plate, "show_driver").geometry(), QRect(70 + 3 * 47, 5, 45, 22));
}

TEST_F(TrafficPlateTest, LettersInTheListWorkNothingElseOfTheWindowButItsOwnKeysDo) {
    class Window : public QWidget {
    public:
        std::vector<int> keys;
        void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    } window;
    plate.setParent(&window);
    Take(3);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_P, Qt::Key_1, Qt::Key_Escape, Qt::Key_F1}) {
        QTest::keyClick(&list, key);
    }
    QTest::keyClick(&list, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(window.keys, (std::vector<int>{Qt::Key_Escape, Qt::Key_F1, Qt::Key_P}));
    plate.setParent(nullptr);
}

}  // namespace
}  // namespace workbench::test
