#include "platform/qt/ProfileText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace travo::platform {
namespace {

using namespace std::string_literals;

// So that a difference is printed as text.
std::string Text(QByteArrayView bytes) {
    return std::string(bytes.data(), static_cast<std::size_t>(bytes.size()));
}

std::string Value(QByteArrayView text, QByteArrayView section, QByteArrayView key) {
    const std::optional<QByteArrayView> value = ProfileValue(text, section, key);
    return value ? Text(*value) : "nothing";
}

std::string With(QByteArrayView text, QByteArrayView section, QByteArrayView key, QByteArrayView value) {
    return Text(WithProfileValue(text, section, key, value));
}

TEST(ProfileValueTest, FindsTheKeyInItsSection) {
    const QByteArrayView text = "[COMPort]\r\nMirror=3\r\nMotor=5\r\n[Window]\r\nMirror=7\r\n";
    EXPECT_EQ(Value(text, "COMPort", "Mirror"), "3");
    EXPECT_EQ(Value(text, "COMPort", "Motor"), "5");
    EXPECT_EQ(Value(text, "Window", "Mirror"), "7");
    EXPECT_EQ(Value(text, "Window", "Motor"), "nothing");
    EXPECT_EQ(Value(text, "Windo", "Mirror"), "nothing");
    EXPECT_EQ(Value("", "Window", "Mirror"), "nothing");
}

TEST(ProfileValueTest, SectionsAndKeysMatchWithoutRegardToCase) {
    EXPECT_EQ(
        Value("[Manipulator Calibration:2]\r\nZERO,XYZ:2=-5\r\n", "MANIPULATOR calibration:2", "zero,xyz:2"),
        "-5");
    EXPECT_EQ(Value("[\xC4rger]\r\n\xDC=1\r\n", "\xE4RGER", "\xFC"), "1");
}

TEST(ProfileValueTest, TheFirstOfTwoEqualKeysCounts) { EXPECT_EQ(Value("[S]\nk=1\nK=2\n", "S", "K"), "1"); }

TEST(ProfileValueTest, TheFirstOfTwoEqualSectionsCounts) {
    const QByteArrayView text = "[S]\na=1\n[s]\na=2\nb=3\n";
    EXPECT_EQ(Value(text, "s", "a"), "1");
    EXPECT_EQ(Value(text, "s", "b"), "nothing");
}

TEST(ProfileValueTest, BlanksRoundNamesAndValuesDoNotCount) {
    EXPECT_EQ(Value(" \t[ S ] \r\n\t k \t= \t a b \t\r\n", "S", "k"), "a b");
}

TEST(ProfileValueTest, OnePairOfQuotesIsTakenOff) {
    EXPECT_EQ(Value("[S]\nk= \" a \" \n", "S", "k"), " a ");
    EXPECT_EQ(Value("[S]\nk=' a '\n", "S", "k"), " a ");
    EXPECT_EQ(Value("[S]\nk=\"\"a\"\"\n", "S", "k"), "\"a\"");
    EXPECT_EQ(Value("[S]\nk='\"a\"'\n", "S", "k"), "\"a\"");
    EXPECT_EQ(Value("[S]\nk=\"\"\n", "S", "k"), "");
}

TEST(ProfileValueTest, QuotesThatAreNoPairStay) {
    EXPECT_EQ(Value("[S]\nk=\"a'\n", "S", "k"), "\"a'");
    EXPECT_EQ(Value("[S]\nk=\"a\n", "S", "k"), "\"a");
    EXPECT_EQ(Value("[S]\nk=\"\n", "S", "k"), "\"");
    EXPECT_EQ(Value("[S]\nk=a\"b\"\n", "S", "k"), "a\"b\"");
}

TEST(ProfileValueTest, AnEmptyValueIsFoundAndEmpty) {
    EXPECT_EQ(Value("[S]\nk=\nl", "S", "k"), "");
    EXPECT_EQ(Value("[S]\nk= \t", "S", "k"), "");
}

TEST(ProfileValueTest, AValueMayHoldEqualsSignsSemicolonsAndBrackets) {
    EXPECT_EQ(Value("[S]\nk=a=b;c[d]\n", "S", "k"), "a=b;c[d]");
}

TEST(ProfileValueTest, CommentsAndOddLinesSayNothing) {
    const QByteArrayView text = "k=0\n;[S]\n[S\n]\n=5\nk\n;k=1\n [S]\n ; k=2\nS\n=\n[]\nk=3\n[S]\n";
    EXPECT_EQ(Value(text, "S", "k"), "nothing");
    EXPECT_EQ(Value(text, "S", ""), "nothing");
    EXPECT_EQ(Value(text, "", "k"), "3");
    EXPECT_EQ(Value(text, "S", ";k"), "nothing");
}

TEST(ProfileValueTest, ASectionLineMayBearATrailingRemark) {
    EXPECT_EQ(Value("[S] ; the first\nk=1\n", "S", "k"), "1");
}

TEST(ProfileValueTest, ASectionNameEndsAtTheLastBracketSoThatItMayHoldOthers) {
    EXPECT_EQ(Value("[a]b]\nk=1\n", "a]b", "k"), "1");
    EXPECT_EQ(With("[a]b]\nk=1\n", "a]b", "k", "2"), "[a]b]\nk=2\r\n");
    EXPECT_EQ(Value(WithProfileValue("", "[a]]", "k", "2"), "[a]]", "k"), "2");
}

TEST(ProfileValueTest, LinesMayEndInLineFeedOrNotAtAll) {
    EXPECT_EQ(Value("[S]\nk=1\nl=2", "S", "k"), "1");
    EXPECT_EQ(Value("[S]\nk=1\nl=2", "S", "l"), "2");
    EXPECT_EQ(Value("[S]\r\nl=2\r", "S", "l"), "2");
    EXPECT_EQ(Value("[S]", "S", "l"), "nothing");
}

TEST(ProfileValueTest, ANulEndsWhatIsReadOfItsLine) {
    const QByteArray text = QByteArrayLiteral("[S]\r\nk=1\0002\r\nl\0=3\r\nm=4\r\n[T\0]\r\nm=5\r\n");
    EXPECT_EQ(Value(text, "S", "k"), "1");
    EXPECT_EQ(Value(text, "S", "l"), "nothing");
    EXPECT_EQ(Value(text, "S", "m"), "4");
    EXPECT_EQ(Value(text, "T", "m"), "nothing");
}

TEST(ProfileNamesTest, SectionsAndKeysComeInOrderAndSpellingOfTheFileRepeatedOnesAsWell) {
    const QByteArrayView text =
        "; x\r\na=1\r\n[One]\r\nB=2\r\nodd\r\na=3\r\n\r\nb=4\r\n[two]\r\n[ONE]\r\nc=5\r\n";
    EXPECT_EQ(ProfileSections(text), (QByteArrayList{"One", "two", "ONE"}));
    EXPECT_EQ(ProfileKeys(text, "one"), (QByteArrayList{"B", "a", "b"}));
    EXPECT_EQ(ProfileKeys(text, "two"), QByteArrayList());
    EXPECT_EQ(ProfileKeys(text, "three"), QByteArrayList());
}

TEST(ProfileIntegerTest, BeginsWithASignOrDigits) {
    EXPECT_EQ(ProfileInteger("0"), 0);
    EXPECT_EQ(ProfileInteger("12500"), 12500);
    EXPECT_EQ(ProfileInteger("-100000"), -100000);
    EXPECT_EQ(ProfileInteger("+7"), 7);
    EXPECT_EQ(ProfileInteger("40000"), 40000);
    EXPECT_EQ(ProfileInteger("-1"), -1);
}

TEST(ProfileIntegerTest, BlanksAreSkipped) { EXPECT_EQ(ProfileInteger(" \t -5 "), -5); }

TEST(ProfileIntegerTest, WhatFollowsTheDigitsDoesNotCount) {
    EXPECT_EQ(ProfileInteger("12abc"), 12);
    EXPECT_EQ(ProfileInteger("1.9"), 1);
    EXPECT_EQ(ProfileInteger("1 2"), 1);
    EXPECT_EQ(ProfileInteger("-3-4"), -3);
}

TEST(ProfileIntegerTest, ASignAloneNothingHexadecimalOrAnyOtherBeginningIs0) {
    for (const char* value : {"", " ", "-", "+", "- 5", "--5", "+-5", "0x10", "abc", "x1", ".5", "\xB2"}) {
        EXPECT_EQ(ProfileInteger(value), 0) << value;
    }
}

TEST(ProfileIntegerTest, Beyond32BitsItWraps) {
    EXPECT_EQ(ProfileInteger("2147483647"), INT32_MAX);
    EXPECT_EQ(ProfileInteger("2147483648"), INT32_MIN);
    EXPECT_EQ(ProfileInteger("-2147483648"), INT32_MIN);
    EXPECT_EQ(ProfileInteger("-2147483649"), INT32_MAX);
    EXPECT_EQ(ProfileInteger("4294967296"), 0);
    EXPECT_EQ(ProfileInteger("4294967295"), -1);
    EXPECT_EQ(ProfileInteger("99999999999"), 1215752191);
    EXPECT_EQ(ProfileInteger("18446744073709551617"), 1);
}

TEST(WithProfileValueTest, AnEmptyTextGetsSectionAndKey) {
    EXPECT_EQ(With("", "COMPort", "Mirror", "3"), "[COMPort]\r\nMirror=3\r\n");
}

TEST(WithProfileValueTest, ARewrittenKeyKeepsItsPlaceAndSpelling) {
    EXPECT_EQ(With("[comport]\r\nMIRROR=3\r\nMotor=4\r\n", "COMPort", "Mirror", "12"),
              "[comport]\r\nMIRROR=12\r\nMotor=4\r\n");
}

TEST(WithProfileValueTest, ARewrittenKeyKeepsTheBlanksBeforeItsEqualsSign) {
    EXPECT_EQ(With("[S]\r\n  k \t= old ; x\r\nl=1\r\n", "S", "k", "new"), "[S]\r\n  k \t=new\r\nl=1\r\n");
}

TEST(WithProfileValueTest, TheFirstOfEqualSectionsAndKeysIsRewritten) {
    EXPECT_EQ(With("[S]\r\nk=1\r\nk=2\r\n[S]\r\nk=3\r\n", "S", "k", "9"),
              "[S]\r\nk=9\r\nk=2\r\n[S]\r\nk=3\r\n");
}

TEST(WithProfileValueTest, ANewKeyGoesToTheEndOfItsSection) {
    EXPECT_EQ(With("[S]\r\na=1\r\n[T]\r\nb=2\r\n", "S", "k", "9"), "[S]\r\na=1\r\nk=9\r\n[T]\r\nb=2\r\n");
    EXPECT_EQ(With("[S]\r\na=1\r\n; x\r\n\r\n \r\n[T]\r\n", "S", "k", "9"),
              "[S]\r\na=1\r\n; x\r\nk=9\r\n\r\n \r\n[T]\r\n");
    EXPECT_EQ(With("[S]\r\n\r\n[T]\r\n", "S", "k", "9"), "[S]\r\nk=9\r\n\r\n[T]\r\n");
}

TEST(WithProfileValueTest, ANewSectionGoesToTheEndOfTheFile) {
    EXPECT_EQ(With("; x\r\n[S]\r\na=1\r\n", "T", "k", "9"), "; x\r\n[S]\r\na=1\r\n[T]\r\nk=9\r\n");
}

TEST(WithProfileValueTest, AMissingFinalLineEndIsMadeUp) {
    EXPECT_EQ(With("[S]\r\na=1", "S", "k", "9"), "[S]\r\na=1\r\nk=9\r\n");
    EXPECT_EQ(With("[S]", "S", "k", "9"), "[S]\r\nk=9\r\n");
    EXPECT_EQ(With("[S]\r\na=1", "T", "k", "9"), "[S]\r\na=1\r\n[T]\r\nk=9\r\n");
    EXPECT_EQ(With("[S]\r\nk=1", "S", "k", "9"), "[S]\r\nk=9\r\n");
}

TEST(WithProfileValueTest, InAFileOfLineFeedsOnlyTheWrittenLineEndsInCRLF) {
    EXPECT_EQ(With("[S]\na=1\nk=2\nb=3\n", "S", "k", "9"), "[S]\na=1\nk=9\r\nb=3\n");
}

TEST(WithProfileValueTest, UnknownSectionsKeysCommentsAndOddLinesKeepTheirBytes) {
    const std::string before = "stray\n; \xA9 \x81\r\n[Other]\r\n x = \"y\" \n=\r\n\0\x1A\r\n[S]\r\n;c\r\n"s;
    const std::string after = "\r\n[S]\r\nk=lost\r\n\xFF\xFE\0"s;
    const std::string text = before + "k=1\r\n" + after;
    EXPECT_EQ(With(text, "S", "k", "22"), before + "k=22\r\n" + after);
}

TEST(WithProfileValueTest, AnEmptyValueIsWrittenAsSuch) {
    EXPECT_EQ(With("", "S", "k", ""), "[S]\r\nk=\r\n");
}

TEST(ProfileCanHoldTest, NoLineBreakAnywhere) {
    EXPECT_TRUE(ProfileCanHold("S", "k", "v"));
    EXPECT_FALSE(ProfileCanHold("S\n", "k", "v"));
    EXPECT_FALSE(ProfileCanHold("S", "k\r", "v"));
    EXPECT_FALSE(ProfileCanHold("S", "k", "v\nl=1"));
}

TEST(ProfileCanHoldTest, NoKeyThatWouldReadAsSomethingElse) {
    for (const char* key : {"", "a=b", ";k", "[k", "[k]"}) {
        EXPECT_FALSE(ProfileCanHold("S", key, "v")) << key;
    }
    EXPECT_TRUE(ProfileCanHold("S]", "Index:3,XYZ:0", "[;=]"));
}

TEST(WithoutProfileKeyTest, RemovesItsLineAlone) {
    EXPECT_EQ(Text(WithoutProfileKey("[S]\r\na=1\r\nK=2\r\n;c\r\nk=3\r\n", "s", "k")),
              "[S]\r\na=1\r\n;c\r\nk=3\r\n");
    EXPECT_EQ(Text(WithoutProfileKey("[S]\r\na=1\r\nk=2", "S", "k")), "[S]\r\na=1\r\n");
    EXPECT_EQ(Text(WithoutProfileKey("[S]\r\na=1\r\n[T]\r\nk=2\r\n", "S", "k")),
              "[S]\r\na=1\r\n[T]\r\nk=2\r\n");
    EXPECT_EQ(Text(WithoutProfileKey("k=1\r\n", "S", "k")), "k=1\r\n");
}

TEST(WithoutProfileSectionTest, RemovesTheFirstSectionOfThatNameUpToTheNext) {
    EXPECT_EQ(Text(WithoutProfileSection("x\r\n[S]\r\na=1\r\n;c\r\n\r\n[T]\r\nb=2\r\n[s]\r\nd=3\r\n", "s")),
              "x\r\n[T]\r\nb=2\r\n[s]\r\nd=3\r\n");
    EXPECT_EQ(Text(WithoutProfileSection("[T]\r\n[S]\r\na=1", "S")), "[T]\r\n");
    EXPECT_EQ(Text(WithoutProfileSection("[T]\r\na=1", "S")), "[T]\r\na=1");
}

// Bytes of which every second or so means something to the reader.
QByteArray AnyBytes(std::mt19937& engine) {
    const QByteArray telling = QByteArrayLiteral("[]=;\r\n\n \t\"'Sk\0");
    QByteArray bytes;
    const int size = std::uniform_int_distribution<int>(0, 60)(engine);
    for (int i = 0; i < size; ++i) {
        const int byte = std::uniform_int_distribution<int>(0, 255)(engine);
        bytes.append(byte < 224 ? telling[byte % telling.size()] : static_cast<char>(byte));
        bytes.append(byte % 32 == 0 ? "\n[S]\n" : "");
        bytes.append(byte % 32 == 1 ? "\nK=" : "");
    }
    return bytes;
}

// Whether the text is the old one with nothing but a new key in it, in a new section if need be.
bool OnlyInserted(const QByteArray& text, const QByteArray& old) {
    for (const char* lines :
         {"\r\n[S]\r\nk=value\r\n", "[S]\r\nk=value\r\n", "\r\nk=value\r\n", "k=value\r\n"}) {
        const qsizetype at = text.indexOf(lines);
        if (at >= 0 && QByteArray(text).remove(at, qsizetype(qstrlen(lines))) == old) {
            return true;
        }
    }
    return false;
}

// Whether the text is the old one but for the rest of one line behind its equals sign.
bool OnlyReplaced(const QByteArray& text, const QByteArray& old) {
    const qsizetype begin = text.indexOf("=value\r\n") + 1;
    const QByteArray rest = text.sliced(begin + 7);
    const QByteArray replaced = old.sliced(begin, old.size() - begin - rest.size());
    return begin > 0 && old.startsWith(text.first(begin)) && old.endsWith(rest) &&
           replaced.chopped(replaced.endsWith('\n') ? 1 : 0).indexOf('\n') < 0;
}

TEST(ProfileTextTest, AnyBytesTakeAKeyGiveItBackAndLoseNothing) {
    std::mt19937 engine(7);
    int present = 0;
    for (int round = 0; round < 20000; ++round) {
        const QByteArray text = AnyBytes(engine);
        const bool old = ProfileValue(text, "S", "k").has_value();
        const QByteArray with = WithProfileValue(text, "S", "k", "value");
        ASSERT_EQ(Value(with, "S", "k"), "value") << Text(text.toHex());
        ASSERT_TRUE(old ? OnlyReplaced(with, text) : OnlyInserted(with, text)) << Text(text.toHex());
        ASSERT_EQ(Text(WithProfileValue(with, "S", "k", "value")), Text(with));
        ASSERT_EQ(ProfileKeys(with, "S").size(), ProfileKeys(text, "S").size() + (old ? 0 : 1));
        present += old ? 1 : 0;
    }
    EXPECT_GT(present, 0);
}

TEST(ProfileTextTest, ALineOf10MBIsReadAndKept) {
    const QByteArray big(10 * 1024 * 1024, 'x');
    const QByteArray text = "[S]\r\n" + big + "\r\nbig=" + big + "\r\nk=1\r\n";
    EXPECT_EQ(Value(text, "S", "k"), "1");
    EXPECT_TRUE(*ProfileValue(text, "S", "big") == big);
    EXPECT_TRUE(WithProfileValue(text, "S", "k", "2") == "[S]\r\n" + big + "\r\nbig=" + big + "\r\nk=2\r\n");
}

TEST(ProfileTextTest, AMillionLinesAreReadAndKept) {
    const QByteArray many = QByteArray("[\n=\n;\n[]\n\n").repeated(200000);
    const QByteArray text = many + "[S]\nk=1\n";
    EXPECT_EQ(Value(text, "S", "k"), "1");
    EXPECT_TRUE(WithProfileValue(text, "S", "k", "2") == many + "[S]\nk=2\r\n");
    EXPECT_EQ(ProfileSections(text).size(), 200001);
}

}  // namespace
}  // namespace travo::platform
