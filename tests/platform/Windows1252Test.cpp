#include "platform/Windows1252.h"

#include <gtest/gtest.h>

namespace travo::platform {
namespace {

QByteArray EveryByte() {
    QByteArray bytes;
    for (int code = 0; code < 256; ++code) {
        bytes.append(static_cast<char>(code));
    }
    return bytes;
}

TEST(Windows1252Test, EveryByteComesBackAsItself) {
    EXPECT_EQ(ToWindows1252(FromWindows1252(EveryByte())), EveryByte());
}

TEST(Windows1252Test, BytesBelow80AndFromA0UpAreTheCharactersOfTheSameNumber) {
    const QString text = FromWindows1252(EveryByte());
    for (int code = 0; code < 256; ++code) {
        if (code < 0x80 || code >= 0xA0) {
            EXPECT_EQ(text[code].unicode(), code);
        }
    }
}

TEST(Windows1252Test, BytesFrom80To9FAreTheCodePagesOwnCharacters) {
    EXPECT_EQ(FromWindows1252("\x80\x82\x85\x8A\x8C\x8E\x91\x94\x96\x99\x9C\x9F"),
              QStringLiteral(u"\u20ac\u201a\u2026\u0160\u0152\u017d\u2018\u201d\u2013\u2122\u0153\u0178"));
}

TEST(Windows1252Test, TheFiveUnusedBytesAreTheControlCharactersOfTheirNumber) {
    const QByteArray unused("\x81\x8D\x8F\x90\x9D");
    const QString controls = FromWindows1252(unused);
    for (int i = 0; i < unused.size(); ++i) {
        EXPECT_EQ(controls[i].unicode(), static_cast<unsigned char>(unused[i]));
    }
}

TEST(Windows1252Test, ACharacterThatTheCodePageLacksBecomesOneQuestionMark) {
    EXPECT_EQ(ToWindows1252(QStringLiteral(u"\u03a9")), "?");
    EXPECT_EQ(ToWindows1252(QStringLiteral(u"a\u8111z")), "a?z");
    EXPECT_EQ(ToWindows1252(QString(QChar(0x80))), "?");
}

TEST(Windows1252Test, ACharacterOfTwoUnitsBecomesOneQuestionMark) {
    EXPECT_EQ(ToWindows1252(QStringLiteral(u"a\U0001F52Cz")), "a?z");
}

TEST(Windows1252Test, HalfACharacterBecomesAQuestionMarkAndSwallowsNothing) {
    EXPECT_EQ(ToWindows1252(QString(QChar(0xD83D)) + QLatin1Char('z')), "?z");
    EXPECT_EQ(ToWindows1252(QLatin1Char('a') + QString(QChar(0xD83D))), "a?");
    EXPECT_EQ(ToWindows1252(QString(QChar(0xDD2C)) + QLatin1Char('z')), "?z");
}

TEST(Windows1252Test, EmptyTextsStayEmpty) {
    EXPECT_TRUE(ToWindows1252(QString()).isEmpty());
    EXPECT_TRUE(FromWindows1252({}).isEmpty());
}

TEST(Windows1252Test, LettersAreEqualWithoutRegardToCaseAccentsIncluded) {
    EXPECT_TRUE(EqualWithoutCase("COMPort", "comPORT"));
    EXPECT_TRUE(EqualWithoutCase("\xC4\xD6\xDC\xDE", "\xE4\xF6\xFC\xFE"));
    EXPECT_TRUE(EqualWithoutCase("\x8A\x8C\x8E\x9F", "\x9A\x9C\x9E\xFF"));
    EXPECT_TRUE(EqualWithoutCase("", ""));
}

TEST(Windows1252Test, OtherCharactersAreEqualOnlyToThemselves) {
    EXPECT_FALSE(EqualWithoutCase("\xD7", "\xF7"));  // times and divided by
    EXPECT_FALSE(EqualWithoutCase("[", "{"));
    EXPECT_FALSE(EqualWithoutCase("@", "`"));
    EXPECT_FALSE(EqualWithoutCase("a", "ab"));
    EXPECT_FALSE(EqualWithoutCase("", "a"));
}

TEST(Windows1252Test, EachByteHasAtMostOneOtherThatIsEqualButForCase) {
    const QByteArray all = EveryByte();
    for (const char one : all) {
        int equal = 0;
        for (const char other : all) {
            equal += EqualWithoutCase(QByteArrayView(&one, 1), QByteArrayView(&other, 1)) ? 1 : 0;
        }
        EXPECT_LE(equal, 2) << static_cast<int>(one);
    }
}

}  // namespace
}  // namespace travo::platform
