#include "workbench/window/WindowKeys.h"

#include <QKeyEvent>
#include <array>

namespace workbench {

namespace {

struct Row {
    int key;
    Qt::KeyboardModifiers::Int modifiers;
    bool shiftToo;  // with Shift as well: a tenth of the step
    WindowKey::Does does;
    const char* object;
};

constexpr auto Plain = Qt::KeyboardModifiers::Int(Qt::NoModifier);
constexpr auto Ctrl = Qt::KeyboardModifiers::Int(Qt::ControlModifier);
constexpr std::array<Row, 22> Rows{{{Qt::Key_1, Plain, false, WindowKey::Does::Press, "pick1"},
                                    {Qt::Key_2, Plain, false, WindowKey::Does::Press, "pick2"},
                                    {Qt::Key_3, Plain, false, WindowKey::Does::Press, "pick3"},
                                    {Qt::Key_4, Plain, false, WindowKey::Does::Press, "pick4"},
                                    {Qt::Key_P, Plain, false, WindowKey::Does::Press, "park"},
                                    {Qt::Key_H, Plain, false, WindowKey::Does::Press, "key"},
                                    {Qt::Key_Up, Plain, true, WindowKey::Does::Hold, "xPlus"},
                                    {Qt::Key_Down, Plain, true, WindowKey::Does::Hold, "xMinus"},
                                    {Qt::Key_Right, Plain, true, WindowKey::Does::Hold, "yPlus"},
                                    {Qt::Key_Left, Plain, true, WindowKey::Does::Hold, "yMinus"},
                                    {Qt::Key_PageUp, Plain, true, WindowKey::Does::Hold, "zUp"},
                                    {Qt::Key_PageDown, Plain, true, WindowKey::Does::Hold, "zDown"},
                                    {Qt::Key_PageUp, Ctrl, true, WindowKey::Does::WheelUp, "wheel"},
                                    {Qt::Key_PageDown, Ctrl, true, WindowKey::Does::WheelDown, "wheel"},
                                    {Qt::Key_1, Ctrl, false, WindowKey::Does::Press, "mag1"},
                                    {Qt::Key_2, Ctrl, false, WindowKey::Does::Press, "mag2"},
                                    {Qt::Key_3, Ctrl, false, WindowKey::Does::Press, "mag3"},
                                    {Qt::Key_0, Ctrl, false, WindowKey::Does::Press, "mag0"},
                                    {Qt::Key_F1, Plain, false, WindowKey::Does::Press, "lesson"},
                                    {Qt::Key_P, Ctrl, false, WindowKey::Does::Press, "traffic_pause"},
                                    {Qt::Key_C, Ctrl, false, WindowKey::Does::Press, "traffic_copy"},
                                    {Qt::Key_Escape, Plain, false, WindowKey::Does::Press, "all_clear"}}};

}  // namespace

WindowKey KeyOf(const QKeyEvent& event) {
    // Brackets stand elsewhere on each keyboard: what they type counts.
    if (event.text() == QLatin1String("]")) {
        return {WindowKey::Does::Longer, {}};
    }
    if (event.text() == QLatin1String("[")) {
        return {WindowKey::Does::Shorter, {}};
    }
    const Qt::KeyboardModifiers given = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    for (const Row& row : Rows) {
        const auto wanted = Qt::KeyboardModifiers(QFlag(static_cast<int>(row.modifiers)));
        const Qt::KeyboardModifiers counted =
            row.shiftToo ? given & ~Qt::KeyboardModifiers(Qt::ShiftModifier) : given;
        if (row.key == event.key() && counted == wanted) {
            return {row.does, QString::fromLatin1(row.object)};
        }
    }
    return {};
}

}  // namespace workbench
