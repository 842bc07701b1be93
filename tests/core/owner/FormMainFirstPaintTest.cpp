#include "core/owner/FormMainFirstPaint.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

namespace travo::test {

namespace {

constexpr std::chrono::hours Never{1};
constexpr int Limit = 20000;  // milliseconds

// Notes when it is painted.
class Sheet : public QWidget {
public:
    using QWidget::QWidget;
    bool isPainted = false;

protected:
    void paintEvent(QPaintEvent*) override { isPainted = true; }
};

TEST(FormMainFirstPaintTest, IsToldOnceTheWindowAndWhatLiesInItArePainted) {
    Sheet window;
    Sheet inner(&window);
    inner.setGeometry(0, 0, 50, 50);
    int called = 0;
    bool werePainted = false;
    window.show();
    CallAfterFirstPaint(window, Never, [&] {
        ++called;
        werePainted = window.isPainted && inner.isPainted;
    });
    EXPECT_EQ(called, 0) << "from the event loop alone";
    EXPECT_TRUE(QTest::qWaitFor([&] { return called > 0; }, Limit));
    EXPECT_TRUE(werePainted);
    window.isPainted = false;
    window.update();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isPainted; }, Limit));
    QCoreApplication::processEvents();
    EXPECT_EQ(called, 1);
}

TEST(FormMainFirstPaintTest, IsToldAfterTheTimeWhereTheWindowIsNotPainted) {
    Sheet window;
    int called = 0;
    CallAfterFirstPaint(window, std::chrono::milliseconds(1), [&] { ++called; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return called > 0; }, Limit));
    EXPECT_FALSE(window.isPainted);
}

TEST(FormMainFirstPaintTest, IsNotToldWhereTheWindowEndsBefore) {
    auto window = std::make_unique<Sheet>();
    bool isCalled = false;
    CallAfterFirstPaint(*window, std::chrono::milliseconds(0), [&] { isCalled = true; });
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isCalled);
}

}  // namespace

}  // namespace travo::test
