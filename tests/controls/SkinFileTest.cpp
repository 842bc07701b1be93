#include "controls/SkinFile.h"

#include "controls/ControlRig.h"
#include "controls/SkinCheck.h"
#include "controls/SkinDrawing.h"

namespace travo {

using test::OwnSkin;

namespace {

QByteArray Picture(const QByteArray& root, const QByteArray& body = "<g id=\"face\"/><g id=\"glyph\"/>") {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + root + ">" + body + "</svg>\n";
}

bool IsUsable(const QByteArray& bytes) { return !SkinFault(ParseSkinFile(bytes)).has_value(); }

}  // namespace

TEST(SkinFileTest, AMissingFileAFolderAndAnEmptyFileGiveAFault) {
    const OwnSkin skin;
    skin.Write(QStringLiteral("Empty-up"), "");
    for (const char* const name : {"/skin/Missing-up.svg", "/skin", "/skin/Empty-up.svg"}) {
        EXPECT_TRUE(SkinFault(ReadSkinFile(skin.Home() + QLatin1String(name)))) << name;
    }
}

TEST(SkinFileTest, APictureCutOffAtAnyByteGivesAFault) {
    const QByteArray whole = OwnSkin::Shipped(QStringLiteral("SET-up"));
    ASSERT_TRUE(IsUsable(whole));
    // The last byte is the end of the line behind the picture.
    for (qsizetype length = 0; length < whole.size() - 1; ++length) {
        EXPECT_FALSE(IsUsable(whole.left(length))) << length;
    }
}

TEST(SkinFileTest, WhatIsNoPictureGivesAFault) {
    EXPECT_FALSE(IsUsable("\x89PNG\r\n\x1a\n"));
    EXPECT_FALSE(IsUsable("Move"));
    EXPECT_FALSE(IsUsable("<html width=\"10\" height=\"10\" viewBox=\"0 0 10 10\"/>"));
    EXPECT_FALSE(IsUsable(QByteArray(100, '\0')));
}

TEST(SkinFileTest, APictureOfTheWrongSizeGivesAFault) {
    EXPECT_TRUE(IsUsable(Picture("width=\"82\" height=\"64\" viewBox=\"0 0 82 64\"")));
    for (const char* const root :
         {"width=\"82\" height=\"64\"", "viewBox=\"0 0 82 64\"",
          "width=\"0\" height=\"64\" viewBox=\"0 0 0 64\"",
          "width=\"-82\" height=\"64\" viewBox=\"0 0 -82 64\"",
          "width=\"nan\" height=\"64\" viewBox=\"0 0 nan 64\"",
          "width=\"82\" height=\"64\" viewBox=\"0 0 41 32\"", "width=\"82\" height=\"64\" viewBox=\"0 0 82\"",
          "width=\"9999999\" height=\"64\" viewBox=\"0 0 9999999 64\"",
          "width=\"wide\" height=\"64\" viewBox=\"0 0 wide 64\""}) {
        EXPECT_FALSE(IsUsable(Picture(root))) << root;
    }
}

TEST(SkinFileTest, AFaceWithoutAGlyphGivesAFault) {
    const QByteArray root = "width=\"82\" height=\"64\" viewBox=\"0 0 82 64\"";
    EXPECT_FALSE(IsUsable(Picture(root, "<g id=\"face\"/>")));
    EXPECT_FALSE(IsUsable(Picture(root, "<g id=\"glyph\"/>")));
    EXPECT_TRUE(IsUsable(Picture(root, "<g id=\"face\"/><g id=\"glyph-left\"/>")));
    EXPECT_TRUE(IsUsable(Picture(root, "<g><g id=\"face\"/></g>")));
}

TEST(SkinFileTest, AFileWithoutEndIsNotRead) {
    EXPECT_FALSE(IsUsable(
        Picture("width=\"82\" height=\"64\" viewBox=\"0 0 82 64\"", QByteArray(SkinFile::MostBytes, ' '))));
}

TEST(SkinFileTest, EntitiesThatGrowGiveAFaultAndNotAHeapOfMemory) {
    QByteArray bytes = "<!DOCTYPE svg [<!ENTITY a0 \"xxxxxxxxxx\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray below = "&a" + QByteArray::number(i - 1) + ";";
        bytes += "<!ENTITY a" + QByteArray::number(i) + " \"" + below.repeated(10) + "\">";
    }
    bytes += "]>" + Picture("width=\"82\" height=\"64\" viewBox=\"0 0 82 64\"", "<g>&a11;</g>");
    EXPECT_FALSE(IsUsable(bytes));
}

}  // namespace travo
