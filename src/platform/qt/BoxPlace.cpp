#include "platform/qt/BoxPlace.h"

#include <algorithm>
#include <array>

namespace travo::platform::qt {

namespace {

// So that both are seen to be two.
constexpr int Gap = 12;

QRect OnScreen(QRect box, const QRect& screen) {
    box.moveRight(std::min(box.right(), screen.right()));
    box.moveBottom(std::min(box.bottom(), screen.bottom()));
    box.moveLeft(std::max(box.left(), screen.left()));
    box.moveTop(std::max(box.top(), screen.top()));
    return box;
}

int Hidden(const QRect& asked, const QRect& box) {
    const QRect both = asked.intersected(box);
    return both.width() * both.height();
}

}  // namespace

QPoint BoxPlace(const QSize& box, const QRect& asked, const QRect& screen) {
    const int middleX = asked.left() + (asked.width() - box.width()) / 2;
    const int middleY = asked.top() + (asked.height() - box.height()) / 2;
    const std::array<QPoint, 4> corners{
        QPoint(asked.right() + 1 + Gap, middleY), QPoint(asked.left() - Gap - box.width(), middleY),
        QPoint(middleX, asked.bottom() + 1 + Gap), QPoint(middleX, asked.top() - Gap - box.height())};
    std::array<QRect, 4> places{};
    std::transform(corners.begin(), corners.end(), places.begin(),
                   [&](const QPoint& corner) { return OnScreen(QRect(corner, box), screen); });
    return std::min_element(places.begin(), places.end(),
                            [&](const QRect& one, const QRect& other) {
                                return Hidden(asked, one) < Hidden(asked, other);
                            })
        ->topLeft();
}

}  // namespace travo::platform::qt
