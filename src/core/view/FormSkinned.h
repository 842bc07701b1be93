// What all small windows share: title strip, frame, CLOSE and size, drag and resize, place on the screen.
#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>

#include "controls/PanelPlacing.h"
#include "controls/SkinImage.h"
#include "controls/usrKVButton.h"
#include "core/state/WindowPlace.h"
#include "core/view/modForm.h"

namespace travo {

// A plain frameless window of the system's own, hidden at first, that stays in memory. A press of the left
// button on a margin of two pixels resizes it, a press on the title strip or the ground moves it.
class FormSkinned : public QWidget {
    Q_OBJECT

public:
    class Owner {
    public:
        virtual ~Owner() = default;
        // The operator closes window `Index`, by its button or through the window system. The owner hides
        // it and raises the button that opened it.
        virtual void FormClose(std::int32_t Index) = 0;
    };

    struct System {
        Owner& owner;
        WindowMove& windowMove;
    };

    // ---- Steps, called by the owner ----

    // Puts the window where it was when the settings were written, hidden or shown. A size below the
    // least is lifted to it.
    void Place(const WindowPlace& place);
    // The present place, of the normal state.
    MeasuredWindowPlace Measured() const;
    // The design size in logical units at a display scale of 1: the default for the settings.
    WindowSize DesignSize() const;

    // Non-modal, in front, active. A window off every screen is shifted onto one.
    void ShowWindow();
    void HideWindow();
    // The window has come to the front: by ShowWindow, or by the operator's hand.
    virtual void Activated() {}
    // The end of the run: closes without a word to the owner.
    void CloseAtEnd();

    // What follows the mouse at present.
    ResizeMode Resizing() const { return mode_; }

    QSize sizeHint() const override { return design_; }

protected:
    struct Design {
        QString name;   // of the instance, as in "FormManiInfo"; its strip's picture is "title-" and that
        QString title;  // for the window system
        QString tag;    // the window's number in the operator's settings, kept as text
        QSize size;     // inner size in design pixels
        int below = 0;  // so many design pixels of Body lie below the window's edge, until it is made higher
    };

    // programFolder holds the folder skin.
    FormSkinned(const System& system, const Design& design, const QString& programFolder);

    // Under the title strip. Places on it are design pixels of the whole window. They scale with width and
    // height over their design values; in a window lower than its design what lies below the strip shares
    // the height that the strip leaves, so that nothing runs under it.
    PanelCanvas& Body() { return body_; }
    // Puts onto Body what the operator presses.
    template <typename Control>
    void PutControl(Control& control, const Placed& placed) {
        Put(body_, control, placed);
        // Else it would show the pointer of the edge that the mouse came from.
        control.setCursor(Qt::ArrowCursor);
    }
    // Puts a label or picture onto Body; a press on it goes through to the ground.
    template <typename Display>
    void PutDisplay(Display& display, const Placed& placed) {
        Put(body_, display, placed);
        display.setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    // A row or grid of them: `row` gives the Placed of each index, from 0.
    template <typename Display, std::size_t Count, typename Row>
    void PutDisplay(std::array<Display, Count>& displays, Row row) {
        for (std::size_t index = 0; index < Count; ++index) {
            PutDisplay(displays[index], row(static_cast<int>(index)));
        }
    }

    // Height of the title strip, which keeps it at every size of the window. Pixels.
    static constexpr int StripHeight = 32;
    const QSize& DesignPixels() const { return design_; }

    // At each resize, after strip and frame: puts what lies below the strip in its place.
    virtual void Arrange();
    // The size button.
    virtual void BackToDesignSize();

    bool event(QEvent* event) override;
    // Where the control that has the focus goes off, none has it: the next one may be one that acts.
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void PutStrip(const QString& name);
    void PutFrame();
    void ArrangeFrame();
    void Close();
    bool IsGround(const QPoint& point) const;

    System system_;
    QSize design_;
    QString tag_;
    PanelCanvas body_;
    SkinImage title_;
    usrKVButton close_;
    usrKVButton size_;
    SkinImage imgConer1_;
    SkinImage imgConer2_;
    std::array<QWidget, 4> lines_;

    ResizeMode mode_ = ResizeMode::None;
    // The place last asked for while an edge follows the mouse: the window system takes it up later, and
    // a mouse counted from where the window then stands would throw the edge about.
    QRect resizing_;
    bool atEnd_ = false;
};

}  // namespace travo
