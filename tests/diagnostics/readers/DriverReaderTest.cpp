// The needles' driver, seen without being loaded.
#include "diagnostics/readers/DriverReader.h"

#include <gtest/gtest.h>

#include <string>

#include "diagnostics/readers/ElfSymbols.h"
#include "diagnostics/readers/Rig.h"

namespace travo::diagnostics::test {

namespace {

class DriverReaderTest : public ::testing::Test, protected Rig {
protected:
    QString File() const { return folder + QStringLiteral("/libManipulatorDriver.so"); }
    StateText Text(bool isTravoRunning = false) const {
        return NeedlesCard(ReadDriver(folder), isTravoRunning, discretion).text;
    }
    std::string Sentence() const { return Text().sentence.toStdString(); }
};

QByteArray Whole(const char* path) {
    QFile file(QString::fromLocal8Bit(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

}  // namespace

TEST_F(DriverReaderTest, WithoutADriverTheFolderIsNamedWithATilde) {
    EXPECT_EQ(Sentence(), "There is no driver in the program folder.");
    EXPECT_EQ(Text().remedy,
              QStringLiteral("Put libManipulatorDriver.so into ~/program, then start TRAVO again."));
}

TEST_F(DriverReaderTest, ACompleteDriverIsThereAndBesideARunningTravoLoadedThere) {
    Put(File(), Whole(COMPLETE_DRIVER));
    EXPECT_EQ(Sentence(), "The driver is there and complete. TRAVO is not running.");
    EXPECT_EQ(Text(true).sentence,
              QStringLiteral("The driver is loaded in TRAVO. Its calls show there, with F2."));
}

TEST_F(DriverReaderTest, TheFunctionThatIsMissingIsNamed) {
    Put(File(), Whole(DRIVER_WITHOUT_RECONNECT));
    EXPECT_EQ(Sentence(), "The driver lacks the function DriverReconnect.");
}

TEST_F(DriverReaderTest, ASymbolThatNobodyHasIsTheReasonWhyItCannotBeLoaded) {
    Put(File(), Whole(DRIVER_THAT_NEEDS_MORE));
    EXPECT_EQ(Sentence(), "The driver cannot be loaded: undefined symbol: NobodyHasThis.");
}

TEST_F(DriverReaderTest, AnythingElseInItsPlaceIsNoLibrary) {
    Put(File(), "a text");
    EXPECT_EQ(Sentence(), "The driver cannot be loaded: it is no library for this machine.");
}

TEST(ElfSymbolsTest, ALibraryCutShortOrWithDamagedPlacesIsReadWithoutHarm) {
    const QByteArray whole = Whole(COMPLETE_DRIVER);
    ASSERT_TRUE(OfferedSymbols(whole));
    EXPECT_EQ(OfferedSymbols(whole)->count("DriverMoveTo"), 1U);
    for (qsizetype size = 0; size < whole.size(); size += 61) {
        EXPECT_FALSE(OfferedSymbols(whole.left(size))) << size;
    }
    for (qsizetype place = 16; place < whole.size(); place += 7) {
        QByteArray damaged = whole;
        damaged[place] = static_cast<char>(0xFF);
        OfferedSymbols(damaged);  // any answer is good, a fault of memory is not
    }
}

}  // namespace travo::diagnostics::test
