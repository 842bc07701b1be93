#include "platform/qt/ProfileIndex.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/qt/ProfileText.h"

namespace travo::platform {
namespace {

std::string Found(const std::optional<QByteArrayView>& value) {
    return value ? value->toByteArray().toStdString() : "none";
}

TEST(ProfileIndexTest, FindsWhatGoingThroughTheTextFinds) {
    const char* const pieces[] = {"[a]",   "[A]", "[b]",    "[",      "]",  "k=1", "K = 2", " l=\"3\"",
                                  "; k=4", "=5",  "\xE4=6", "\xC4=7", "\r", "\n",  "\n",    "\n"};
    const char* const names[] = {"a", "b", "k", "l", "", "\xE4", "c"};
    std::mt19937 chance(1);
    for (int text = 0; text < 3000; ++text) {
        QByteArray bytes;
        for (int piece = 0; piece < 24; ++piece) {
            bytes += pieces[chance() % std::size(pieces)];
        }
        const ProfileIndex index(bytes);
        for (const char* const section : names) {
            for (const char* const key : names) {
                ASSERT_EQ(Found(index.Value(section, key)), Found(ProfileValue(bytes, section, key)))
                    << bytes.toStdString() << " | " << section << " | " << key;
            }
        }
    }
}

TEST(ProfileIndexTest, OfNoTextNothingIsFound) {
    EXPECT_EQ(ProfileIndex().Value("a", "k"), std::nullopt);
    EXPECT_EQ(ProfileIndex(QByteArray()).Value("", ""), std::nullopt);
}

TEST(ProfileIndexTest, ManyValuesOfALargeTextAreFoundInOneGoThroughIt) {
    // Ten times the goal of a second: gone through for each of them, it would be minutes.
    QByteArray bytes;
    for (int section = 0; section < 20; ++section) {
        bytes += "[Section " + QByteArray::number(section) + "]\r\n";
        for (int key = 0; key < 20000; ++key) {
            bytes += "Key " + QByteArray::number(key) + "=" + QByteArray::number(section * key) + "\r\n";
        }
    }
    const ProfileIndex index(bytes);
    for (int times = 0; times < 500; ++times) {
        ASSERT_EQ(Found(index.Value("section 19", "key 19999")), "379981");
    }
}

}  // namespace
}  // namespace travo::platform
