// What the tests of the controls share: a window to stand in, the skin, pixels, counting of signals.
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <memory>

namespace travo::test {

// The folder that holds the folder skin.
inline QString SkinHome() { return QStringLiteral(SKIN_HOME); }

class ControlRig : public testing::Test {
protected:
    ControlRig() {
        window_.resize(520, 300);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    // A control of the window at 20, 20, with the skin.
    template <class Control>
    std::unique_ptr<Control> Made(const QString& path, const QSize& size) {
        auto control = std::make_unique<Control>(&window_);
        control->path(path);
        control->inipath(SkinHome());
        control->DesignSize(QSizeF(size));
        control->setGeometry(QRect(QPoint(20, 20), size));
        control->show();
        return control;
    }

    static QImage Shot(QWidget& control) {
        return control.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    }
    static double Lightness(const QImage& shot, int x, int y) { return shot.pixelColor(x, y).lightnessF(); }

    static void Press(QWidget& control) {
        QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&control);
        ASSERT_NE(access, nullptr);
        QAccessibleActionInterface* const actions = access->actionInterface();
        ASSERT_NE(actions, nullptr);
        ASSERT_FALSE(actions->actionNames().isEmpty());
        ASSERT_EQ(actions->actionNames().front(), QAccessibleActionInterface::pressAction());
        actions->doAction(actions->actionNames().front());
    }

    QWidget window_;
};

// A folder with a folder skin to put pictures into.
class OwnSkin {
public:
    OwnSkin() { QDir(folder_.path()).mkdir(QStringLiteral("skin")); }

    QString Home() const { return folder_.path(); }
    void Write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder_.path() + QStringLiteral("/skin/") + name + QStringLiteral(".svg"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray Shipped(const QString& name) {
        QFile file(SkinHome() + QStringLiteral("/skin/") + name + QStringLiteral(".svg"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir folder_;
};

}  // namespace travo::test
