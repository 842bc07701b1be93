#include "support/LiveRig.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTest>

namespace travo::test {

namespace {

constexpr int PaintLimit = 20000;  // milliseconds
// Tabs as they are numbered; a tab that is not selected shows one of two further pictures.
constexpr int ConnectionTab = 4;
constexpr int UserTab = 5;
constexpr int Tabs = 6;

const QString Question =
    QStringLiteral("Do you want to end? This will clear all saved cell and escape positions.");

}  // namespace

LiveRig::LiveRig(platform::LiveCamera& camera, AtLastEnd atLastEnd) : ear_(camera) {
    machine_.folders.program = program_.path();
    machine_.folders.applicationData = data_.path();
    QFile settings(program_.filePath(QStringLiteral("KVData.ini")));
    EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write(atLastEnd == AtLastEnd::CameraOpen ? "[Window]\r\n0=0\r\n" : "[Window]\r\n0=1\r\n");
    settings.close();
    // What the bird's-eye view loads where the camera tells that it has saved its picture.
    QImage still(640, 480, QImage::Format_RGB32);
    still.fill(Qt::gray);
    EXPECT_TRUE(still.save(program_.filePath(QStringLiteral("BirdView.bmp"))));
    window_ =
        std::make_unique<FormMain>(machine_.Seams(profile_, {.camera = &ear_, .driverLibrary = nullptr}));
    EXPECT_TRUE(window_->Start());
}

template <class Control>
Control& LiveRig::Find(const QString& panel, const QString& name) const {
    return *window_->findChild<QWidget*>(panel)->findChild<Control*>(name);
}

void LiveRig::StartUp() {
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return window_->findChild<QObject*>(QStringLiteral("FirstPaint")) == nullptr; },
        PaintLimit));
}

void LiveRig::OpenTab(int tab) {
    for (const int picture : {tab + Tabs, tab + 2 * Tabs}) {
        auto* const unselected = window_->findChild<QWidget*>(QStringLiteral("imgTab(%1)").arg(picture));
        if (unselected->isVisible()) {
            QTest::mouseClick(unselected, Qt::LeftButton);
            return;
        }
    }
}

void LiveRig::ClickOn(QWidget& control) {
    EXPECT_TRUE(control.isVisible()) << control.objectName().toStdString();
    QTest::mouseClick(&control, Qt::LeftButton);
}

void LiveRig::ShowConnectionPanel() { OpenTab(ConnectionTab); }

bool LiveRig::ButtonPressed() const {
    return Find<usrKVCheckButton>(QStringLiteral("CtlUser1"), QStringLiteral("usrKVCheckButton1(0)")).Value();
}

void LiveRig::Click() {
    OpenTab(UserTab);
    ClickOn(Find<QWidget>(QStringLiteral("CtlUser1"), QStringLiteral("usrKVCheckButton1(0)")));
}

void LiveRig::Click(bool pressed) {
    EXPECT_NE(ButtonPressed(), pressed) << "a click cannot bring the camera button there";
    Click();
    EXPECT_EQ(ButtonPressed(), pressed);
}

void LiveRig::AttachButton() {
    ShowConnectionPanel();
    ClickOn(Find<QWidget>(QStringLiteral("CtlConnection1"), QStringLiteral("usrKVButton1(8)")));
}

void LiveRig::Closing() {
    machine_.boxes.answers = {platform::BoxAnswer::OK};
    EXPECT_TRUE(window_->close());
}

Texts LiveRig::Boxes() const {
    Texts texts;
    for (const QString& text : machine_.boxes.Texts()) {
        if (text != Question) {
            texts.push_back(text.toStdString());
        }
    }
    return texts;
}

}  // namespace travo::test
