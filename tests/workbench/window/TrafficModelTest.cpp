#include "workbench/window/TrafficModel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Scenes.h"

namespace workbench {

using test::Record;

namespace {

class TrafficTest : public ::testing::Test {
protected:
    void Take(const std::vector<TrafficRecord>& records) {
        Scene scene;
        scene.beganAt = 1;
        scene.traffic = records;
        model.Take(scene);
    }
    // A reading of the gauge, asked for and answered.
    void Poll(const std::string& reading) {
        Take({Record("gauge", "in", "Ar\\r\\n", ++time), Record("gauge", "out", reading + "\\r\\n", ++time)});
    }
    // So many lines that never fold.
    void Fill(int lines) {
        for (int line = 0; line < lines; ++line) {
            Take({Record("mirror", "in", "cD2A" + std::to_string(line) + "\\r", ++time)});
        }
    }
    std::string Meaning(int row) { return model.LineAt(row).meaning.toStdString(); }
    std::string Bytes(int row) { return model.LineAt(row).bytes.toStdString(); }
    int Last() { return model.rowCount() - 1; }

    TrafficModel model;
    double time = 0.0;
};

}  // namespace

TEST_F(TrafficTest, EveryRecordIsALineWithItsWireAndWay) {
    Take({Record("mirror", "in", "cD2A94\\r"), Record("mirror", "out", "qD2A94\\r\\n"),
          Record("world", "event", "arrived 3"), Record("motor", "in", "HALT\\r")});
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(Bytes(0), "cD2A94");
    EXPECT_EQ(model.LineAt(0).way, Way::ToInstrument);
    EXPECT_EQ(model.LineAt(1).way, Way::FromInstrument);
    EXPECT_EQ(model.LineAt(2).wire, TrafficWire::Driver);
    EXPECT_EQ(model.LineAt(2).way, Way::Event);
    EXPECT_EQ(model.LineAt(3).wire, TrafficWire::Motor);
}

TEST_F(TrafficTest, APolledReadingStaysOnOneLineAndIsCounted) {
    Poll("A+00.000");
    EXPECT_EQ(Meaning(0), "reading 0");
    Fill(3);
    for (int time_ = 0; time_ < 40; ++time_) {
        Poll("A+00.000");
    }
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(Meaning(0), "reading 0, asked 41 times");
    EXPECT_EQ(model.LineAt(0).way, Way::FromInstrument);
    EXPECT_EQ(model.LineAt(0).time, time);
}

TEST_F(TrafficTest, ThePolledLineShowsTheLatestValue) {
    Poll("A+00.000");
    Poll("A+00.010");
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Bytes(0), "A+00.010");
    EXPECT_EQ(Meaning(0), "reading 10, asked 2 times");
}

TEST_F(TrafficTest, APollThatIsNotAnsweredIsCountedAsWell) {
    Take({Record("gauge", "in", "Ar\\r\\n"), Record("gauge", "in", "Ar\\r\\n"),
          Record("gauge", "in", "Ar\\r\\n")});
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Meaning(0), "asks for a reading, asked 3 times");
    EXPECT_EQ(model.LineAt(0).way, Way::ToInstrument);
}

TEST_F(TrafficTest, PositionsOfOneNeedleFoldAndAnotherNeedleBeginsAnew) {
    Take({Record("driver", "call", "getposition = 0 1 100 200 300"),
          Record("driver", "call", "getposition = 0 1 101 200 300")});
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Meaning(0), "101 200 300, asked 2 times");
    Take({Record("driver", "call", "getposition = 0 2 5 6 7")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(Meaning(1), "5 6 7");
}

TEST_F(TrafficTest, StatusLinesFoldWhileOnlyThePlaceChanges) {
    Take({Record("mirror", "out", "sSAA1,0,0,1,2,0,0,0\\r\\n"),
          Record("mirror", "out", "sSAA5,0,0,1,2,0,0,0\\r\\n")});
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Meaning(0), "status: 5, 0, 2×, motors on, came 2 times");
    Take({Record("mirror", "out", "sSAA5,0,0,0,2,0,0,0\\r\\n")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(Meaning(1), "status: 5, 0, 2×, motors off");
}

TEST_F(TrafficTest, ARefusalBeginsALineAndSoDoesWhatComesBehindIt) {
    const TrafficRecord good = Record("driver", "call", "getposition = 0 1 1 2 3");
    const TrafficRecord bad = Record("driver", "call", "getposition = -1");
    Take({good, good, bad, bad, good, good});
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(Meaning(0), "1 2 3, asked 2 times");
    EXPECT_TRUE(model.LineAt(1).bad);
    EXPECT_EQ(Meaning(2), "refused: status −1, made to fail");
    EXPECT_EQ(Meaning(3), "1 2 3, asked 2 times");
}

TEST_F(TrafficTest, AnotherKindOfAnswerBeginsALineWithItsOwnQuestion) {
    Poll("A+00.000");
    Poll("A+00.000");
    Poll("AAAAAAAA");
    Poll("AAAAAAAA");
    Poll("A+00.000");
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(Meaning(0), "reading 0, asked 2 times");
    EXPECT_EQ(Meaning(1), "not known, asked 2 times");
    EXPECT_TRUE(model.LineAt(1).bad);
    EXPECT_EQ(Meaning(2), "reading 0");
    EXPECT_FALSE(model.LineAt(2).bad);
}

TEST_F(TrafficTest, TwentyLinesBelowItBeginANewOne) {
    Poll("A+00.000");
    Fill(19);
    Poll("A+00.000");
    EXPECT_EQ(model.rowCount(), 20);
    EXPECT_EQ(Meaning(0), "reading 0, asked 2 times");
    Fill(1);
    Poll("A+00.000");
    EXPECT_EQ(model.rowCount(), 22);
    EXPECT_EQ(Meaning(0), "reading 0, asked 2 times");
    EXPECT_EQ(Meaning(21), "reading 0");
}

TEST_F(TrafficTest, AnswersHeldBackAtAPollShareOneRedLine) {
    Take({Record("gauge", "event", "silent A+00.000\\r\\n"),
          Record("gauge", "event", "silent A+00.001\\r\\n"), Record("motor", "event", "silent A\\r")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(Meaning(0), "the answer is held back: fault Silent, came 2 times");
    EXPECT_TRUE(model.LineAt(0).bad);
    EXPECT_EQ(Bytes(1), "silent A");
}

TEST_F(TrafficTest, BytesThatAFaultTouchedAreRedThoughTheyReadWell) {
    Poll("A+00.000");
    Take({Record("gauge", "in", "Ar\\r\\n"), Record("gauge", "event", "garbled A+00.000\\r\\n"),
          Record("gauge", "out", "A+00.900\\r\\n")});
    Poll("A+00.000");
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_FALSE(model.LineAt(0).bad);
    EXPECT_EQ(Bytes(2), "A+00.900");
    EXPECT_TRUE(model.LineAt(2).bad);
    EXPECT_FALSE(model.LineAt(3).bad);
}

TEST_F(TrafficTest, ItKeepsTheLatest2000Lines) {
    Fill(2001);
    ASSERT_EQ(model.rowCount(), 2000);
    EXPECT_EQ(Bytes(0), "cD2A1");
    EXPECT_EQ(Bytes(1999), "cD2A2000");
}

TEST_F(TrafficTest, AWireThatIsNotShownLosesNothing) {
    Take({Record("mirror", "in", "rD2R\\r"), Record("motor", "in", "HALT\\r")});
    model.SetShown(TrafficWire::Motor, false);
    Take({Record("motor", "in", "WHO\\r"), Record("mirror", "in", "rD1R\\r")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(Bytes(1), "rD1R");
    model.SetShown(TrafficWire::Motor, true);
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(Bytes(2), "WHO");
}

TEST_F(TrafficTest, PausedTheListStandsStillAndRecordsGoOnBeingTaken) {
    Poll("A+00.000");
    model.SetPaused(true);
    Poll("A+00.000");
    Fill(2);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Meaning(0), "reading 0");
    model.SetPaused(false);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(Meaning(0), "reading 0, asked 2 times");
}

TEST_F(TrafficTest, AnotherChoiceOfWiresWhilePausedShowsNothingThatCameSince) {
    Take({Record("mirror", "in", "rD2R\\r")});
    model.SetPaused(true);
    Fill(2);
    model.SetShown(TrafficWire::Mirror, false);
    EXPECT_EQ(model.rowCount(), 0);
    model.SetShown(TrafficWire::Mirror, true);
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(TrafficTest, ClearedTheListIsEmptyAndFoldsIntoNothing) {
    Poll("A+00.000");
    model.Clear();
    EXPECT_EQ(model.rowCount(), 0);
    Poll("A+00.000");
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Meaning(0), "reading 0");
}

TEST_F(TrafficTest, ItTellsItsViewsWhatChanged) {
    int inserted = 0;
    int removed = 0;
    int changed = 0;
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, [&] { ++inserted; });
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] { ++removed; });
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, [&] { ++changed; });
    Poll("A+00.000");
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(changed, 0);
    Poll("A+00.001");
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(changed, 1);
    Fill(TrafficModel::MostLines);
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(model.rowCount(), TrafficModel::MostLines);
}

TEST_F(TrafficTest, CopyGivesSelectedLinesOrAllAsTabSeparatedText) {
    Take({Record("mirror", "in", "cD2A94\\r"), Record("mirror", "out", "nD2A8\\r\\n"),
          Record("world", "event", "arrived 3")});
    const QString at = model.TimeText(model.LineAt(0));
    EXPECT_TRUE(at.endsWith(QStringLiteral(".001")));
    EXPECT_EQ(model.CopyText({1}),
              at + QStringLiteral("\tMirror\tfrom\tnD2A8\trefused: error 8, unknown error\n"));
    EXPECT_EQ(model.CopyText(), at + QStringLiteral("\tMirror\tto\tcD2A94\ttilt X to 94\n") +
                                    model.CopyText({1}) + at +
                                    QStringLiteral("\tDriver\tevent\tarrived\tneedle 3 has arrived\n"));
}

}  // namespace workbench
