#include "workbench/window/WindowKeys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace workbench::test {

namespace {

using Does = WindowKey::Does;

WindowKey Of(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const char* text = "") {
    return KeyOf(QKeyEvent(QEvent::KeyPress, key, modifiers, QString::fromLatin1(text)));
}

struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    Does does;
    const char* object;
};

}  // namespace

TEST(WindowKeysTest, EachKeyWorksItsControl) {
    for (const auto& [key, modifiers, does, object] :
         {Case{Qt::Key_1, {}, Does::Press, "pick1"},
          Case{Qt::Key_4, {}, Does::Press, "pick4"},
          Case{Qt::Key_2, Qt::KeypadModifier, Does::Press, "pick2"},
          Case{Qt::Key_P, {}, Does::Press, "park"},
          Case{Qt::Key_H, {}, Does::Press, "key"},
          Case{Qt::Key_Up, {}, Does::Hold, "xPlus"},
          Case{Qt::Key_Down, {}, Does::Hold, "xMinus"},
          Case{Qt::Key_Right, {}, Does::Hold, "yPlus"},
          Case{Qt::Key_Left, {}, Does::Hold, "yMinus"},
          Case{Qt::Key_PageUp, {}, Does::Hold, "zUp"},
          Case{Qt::Key_PageDown, Qt::ShiftModifier, Does::Hold, "zDown"},
          Case{Qt::Key_Up, Qt::ShiftModifier | Qt::KeypadModifier, Does::Hold, "xPlus"},
          Case{Qt::Key_PageUp, Qt::ControlModifier, Does::WheelUp, "wheel"},
          Case{Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier, Does::WheelDown, "wheel"},
          Case{Qt::Key_1, Qt::ControlModifier, Does::Press, "mag1"},
          Case{Qt::Key_0, Qt::ControlModifier, Does::Press, "mag0"},
          Case{Qt::Key_F1, {}, Does::Press, "lesson"},
          Case{Qt::Key_P, Qt::ControlModifier, Does::Press, "traffic_pause"},
          Case{Qt::Key_C, Qt::ControlModifier, Does::Press, "traffic_copy"},
          Case{Qt::Key_Escape, {}, Does::Press, "all_clear"}}) {
        EXPECT_EQ(Of(key, modifiers).does, does) << object;
        EXPECT_EQ(Of(key, modifiers).object.toStdString(), object);
    }
}

TEST(WindowKeysTest, BracketsAreTakenByWhatTheyTypeOnAnyKeyboard) {
    EXPECT_EQ(Of(Qt::Key_BracketRight, {}, "]").does, Does::Longer);
    EXPECT_EQ(Of(Qt::Key_8, Qt::GroupSwitchModifier, "[").does, Does::Shorter);
}

TEST(WindowKeysTest, OtherKeysAndOtherModifiersAreNotTheWindows) {
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_5, Qt::KeyboardModifiers{}},
                                         std::pair{Qt::Key_P, Qt::KeyboardModifiers{Qt::AltModifier}},
                                         std::pair{Qt::Key_Up, Qt::KeyboardModifiers{Qt::ControlModifier}},
                                         std::pair{Qt::Key_Escape, Qt::KeyboardModifiers{Qt::ShiftModifier}},
                                         std::pair{Qt::Key_4, Qt::KeyboardModifiers{Qt::ControlModifier}}}) {
        EXPECT_EQ(Of(key, modifiers).does, Does::Nothing) << key;
    }
}

}  // namespace workbench::test
