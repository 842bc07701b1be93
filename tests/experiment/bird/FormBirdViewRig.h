// The bird's-eye view's window on a program folder with the shipped skin, and what the tests do to it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QTest>
#include <array>
#include <ostream>
#include <stdexcept>
#include <vector>

#include "controls/ControlNames.h"
#include "experiment/bird/FormBirdView.h"
#include "support/PanelRig.h"

inline void PrintTo(const QSize& size, std::ostream* stream) {
    *stream << size.width() << "x" << size.height();
}
inline void PrintTo(const QRect& rectangle, std::ostream* stream) {
    *stream << rectangle.x() << "," << rectangle.y() << " " << rectangle.width() << "x" << rectangle.height();
}
inline void PrintTo(const QColor& colour, std::ostream* stream) { *stream << colour.name().toStdString(); }

namespace travo::test {

// A program folder of its own, with the shipped skin.
class BirdFolder {
public:
    explicit BirdFolder(const QString& path) : path_(path) {
        QFile::link(QStringLiteral(SKIN_HOME) + QStringLiteral("/skin"), path_ + QStringLiteral("/skin"));
    }
    const QString& Path() const { return path_; }
    QString Still() const { return path_ + QStringLiteral("/BirdView.bmp"); }
    void WriteStill(const QByteArray& bytes) const {
        QFile file(Still());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void WriteStill(const QImage& picture) const { ASSERT_TRUE(picture.save(Still(), "BMP")); }
    void WriteStill(const QColor& colour, const QSize& size = QSize(640, 480)) const {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        WriteStill(picture);
    }

private:
    QString path_;
};

class FormBirdViewRig : protected FormSkinned::Owner, protected WindowMove, protected FormBirdView::Owner {
public:
    static constexpr QColor Ground{255, 153, 134};
    static constexpr QColor NeedleColour{255, 153, 153};
    static constexpr QColor CellAColour{0, 204, 255};
    static constexpr QColor ViewColour{255, 204, 176};
    // At this size of the closed window a canvas pixel is a pixel of the picture.
    static constexpr QSize FullSize{788, 861};

    void Show(const QSize& size = FullSize) {
        window.resize(size);
        window.ShowWindow();
        QApplication::processEvents();
    }

    template <typename Control>
    Control& Find(const QString& name) const {
        auto* const control = window.findChild<Control*>(name);
        if (control == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *control;
    }
    QWidget& picBird() const { return Find<QWidget>(QStringLiteral("picBird")); }
    usrKVCheckButton& Adjust() const { return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton1")); }
    usrKVCheckButton& Lines() const { return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton2(0)")); }
    usrKVCheckButton& ShiftButton() const {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton2(1)"));
    }
    usrKVXscroll& Brightness() const { return Find<usrKVXscroll>(QStringLiteral("usrKVXscroll1")); }
    usrKVXscroll& Contrast() const { return Find<usrKVXscroll>(QStringLiteral("usrKVXscroll2")); }
    QString Reading(int axis) const {
        return Find<NumberLabel>(Indexed(QStringLiteral("lblXYZPos"), axis)).text();
    }

    // A click of the mouse, which reaches what is on show only.
    static void Click(QAbstractButton& button) {
        if (!button.isVisible()) {
            throw std::runtime_error("not on show: " + button.objectName().toStdString());
        }
        QTest::mouseClick(&button, Qt::LeftButton);
    }
    void Open() {
        if (!window.BirdOPEN()) {
            Click(Adjust());
        }
    }

    // What the operator sees of the picture; at FullSize these are canvas pixels.
    QImage Picture() const { return picBird().grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QColor At(int x, int y) const { return Picture().pixelColor(x, y); }
    // How many pixels of that colour a rectangle of the picture holds.
    int Count(const QColor& colour, const QRect& part = QRect(0, 0, CanvasSize, CanvasSize)) const {
        const QImage picture = Picture();
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                count += picture.pixelColor(x, y) == colour ? 1 : 0;
            }
        }
        return count;
    }

    // Needle read at a place of the common frame, with the far end of its shaft.
    void Needle(std::int16_t index, const PositionXYZ& place, const PositionXYZ& root = {-900, -900, 0}) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.state.Needle(index, axis, place.at(static_cast<std::size_t>(axis)));
        }
        window.ChangeNeedleXYZ(index, rig.state.Needles(), rig.state.CurrentXYZ(), root);
    }
    void Connected(std::int16_t highest) { rig.state.intTotalManipulatorNumber = highest; }

    void MoveMouse(const QPoint& onScreen, Qt::MouseButtons buttons = Qt::LeftButton) {
        QMouseEvent event(QEvent::MouseMove, QPointF(window.mapFromGlobal(onScreen)), QPointF(onScreen),
                          Qt::NoButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }

    PanelRig rig;
    BirdFolder folder{rig.ProgramFolder()};
    std::int16_t cellNo = -1;
    std::vector<std::int32_t> closed;
    int moves = 0;
    FormBirdView window{{{*this, *this}, rig.state, rig.boxes, *this}, rig.ProgramFolder()};

protected:
    void FormClose(std::int32_t Index) override { closed.push_back(Index); }
    void Start(QWidget&) override { ++moves; }
    std::int16_t ExperimentCellNo() const override { return cellNo; }
};

}  // namespace travo::test
