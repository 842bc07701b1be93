#include "workbench/live/StillFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "workbench/live/View.h"

namespace workbench::live {

namespace {

QImage Plain(const QColor& colour) {
    QImage image(PictureSize, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

TEST(StillFileTest, IsABitmapThatReadsBack) {
    const QTemporaryDir folder;
    EXPECT_TRUE(WriteStill(Plain(Qt::red), folder.path()));
    const QImage back(folder.filePath(QStringLiteral("BirdView.bmp")), "BMP");
    EXPECT_EQ(back.size(), QSize(640, 480));
    EXPECT_EQ(back.pixelColor(5, 5), QColor(Qt::red));
}

TEST(StillFileTest, ReplacesTheOldOneAndLeavesNothingElse) {
    const QTemporaryDir folder;
    WriteStill(Plain(Qt::red), folder.path());
    WriteStill(Plain(Qt::blue), folder.path());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("BirdView.bmp")});
    EXPECT_EQ(QImage(folder.filePath(QStringLiteral("BirdView.bmp"))).pixelColor(5, 5), QColor(Qt::blue));
}

TEST(StillFileTest, SaysThatItCannotBeWritten) {
    const QTemporaryDir folder;
    EXPECT_FALSE(WriteStill(Plain(Qt::red), folder.filePath(QStringLiteral("missing"))));
    QDir(folder.path()).mkdir(QStringLiteral("BirdView.bmp"));
    EXPECT_FALSE(WriteStill(Plain(Qt::red), folder.path()));
}

}  // namespace

}  // namespace workbench::live
