#include "workbench/window/WindowMemory.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace workbench::test {

namespace {
constexpr QRect LargeDesk(0, 0, 1920, 1200);
constexpr QRect SmallDesk(0, 0, 1366, 768);
}  // namespace

TEST(WindowMemoryTest, KeepsPlaceAndCardInAFolderThatItMakes) {
    const QTemporaryDir folder;
    const WindowMemory memory(folder.filePath(QStringLiteral("new/window.ini")));
    EXPECT_EQ(memory.Read(), WindowMemory::Kept{});
    const WindowMemory::Kept kept{QRect(20, 40, 1300, 900), false};
    memory.Write(kept);
    EXPECT_EQ(memory.Read(), kept);
}

TEST(WindowMemoryTest, TakesWhatMakesNoSenseAsNeverKept) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("window.ini"));
    WindowMemory(file).Write({QRect(20, 40, 30, 20), true});
    EXPECT_EQ(WindowMemory(file).Read(), WindowMemory::Kept{});
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("[window]\nplace=nowhere\n\x01\x02");
    damaged.close();
    EXPECT_EQ(WindowMemory(file).Read(), WindowMemory::Kept{});
}

TEST(WindowMemoryTest, StandsInTheUsersConfigurationUnderAName) {
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    WindowMemory::OfUser().Write({QRect(20, 40, 1300, 900), false});
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("travo-workbench/window.ini"))));
}

TEST(OpeningPlaceTest, IsTheRightUpperCornerOfALargeDesk) {
    const std::optional<QRect> place = OpeningPlace(std::nullopt, LargeDesk);
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->size(), QSize(1280, 860));
    EXPECT_EQ(place->right(), LargeDesk.right());
    EXPECT_LT(place->top(), 40);
    EXPECT_TRUE(OpeningPlace(std::nullopt, QRect(0, 0, 1900, 1150)).has_value());
    EXPECT_FALSE(OpeningPlace(std::nullopt, QRect(0, 0, 1899, 1150)).has_value());
    EXPECT_FALSE(OpeningPlace(std::nullopt, QRect(0, 0, 1900, 1149)).has_value());
}

TEST(OpeningPlaceTest, IsTheKeptOneWhileItsHeaderCanBeReached) {
    const QRect kept(30, 100, 1100, 720);
    EXPECT_EQ(OpeningPlace(kept, LargeDesk), kept);
    EXPECT_EQ(OpeningPlace(kept, SmallDesk), kept);
    EXPECT_EQ(OpeningPlace(QRect(2500, 100, 1100, 720), SmallDesk), std::nullopt);
    EXPECT_NE(OpeningPlace(QRect(2500, 100, 1100, 720), LargeDesk), QRect(2500, 100, 1100, 720));
}

}  // namespace workbench::test
