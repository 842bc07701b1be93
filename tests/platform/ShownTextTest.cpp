#include "platform/ShownText.h"

#include <gtest/gtest.h>

namespace travo::platform {
namespace {

TEST(ShownTextTest, AnOrdinaryTextIsShownAsItIs) {
    const QString text = QStringLiteral("nD2A2 : Mirror \u00e4\u20ac <b> &amp; \U0001F52C");
    EXPECT_EQ(ShownText(text, 100), text);
    EXPECT_EQ(ShownLines(text, 100), text);
    EXPECT_EQ(ShownText(QString(), 100), QString());
}

TEST(ShownTextTest, EveryCharacterWithoutAFaceHasASymbol) {
    for (char16_t code = 0; code < 0xA0; ++code) {
        const QString shown = ShownText(QString(QChar(code)), 10);
        ASSERT_EQ(shown.size(), 1);
        EXPECT_TRUE(shown.front().isPrint()) << static_cast<int>(code);
    }
    EXPECT_EQ(ShownText(QStringLiteral("a\r\nb\t\x7F"), 10), QStringLiteral("a\u240D\u240Ab\u2409\u2421"));
    EXPECT_EQ(ShownText(QStringLiteral("\u202Eabc\u2028\u00AD"), 10),
              QStringLiteral("\uFFFDabc\uFFFD\uFFFD"));
}

TEST(ShownTextTest, LinesBreakAtCrLfAlone) {
    EXPECT_EQ(ShownLines(QStringLiteral("a\r\nb\nc\rd\r\n"), 100),
              QStringLiteral("a\r\nb\u240Ac\u240Dd\r\n"));
}

TEST(ShownTextTest, ALongTextIsCut) {
    EXPECT_EQ(ShownText(QStringLiteral("abcd"), 4), QStringLiteral("abcd"));
    EXPECT_EQ(ShownText(QStringLiteral("abcde"), 4), QStringLiteral("abcd\u2026"));
}

TEST(ShownTextTest, AToolTipThatLooksLikeMarkupIsEscaped) {
    EXPECT_EQ(PlainToolTip(QStringLiteral("USB Serial")), QStringLiteral("USB Serial"));
    EXPECT_EQ(PlainToolTip(QStringLiteral("<h1>A & B</h1>")),
              QStringLiteral("<p style='white-space:pre-wrap'>&lt;h1&gt;A &amp; B&lt;/h1&gt;</p>"));
    EXPECT_TRUE(PlainToolTip(QStringLiteral("&lt;b")).startsWith(QStringLiteral("<p")));
}

}  // namespace
}  // namespace travo::platform
