// The round pad that moves the tilting mirror.
#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

#include "controls/DesignSized.h"
#include "controls/FocusMark.h"
#include "controls/SkinPictures.h"
#include "devices/links/clsCommunication.h"
#include "mirror/motion/clsMirrorMove.h"
#include "mirror/view/CtlControllerAccess.h"
#include "mirror/view/PadAreas.h"
#include "platform/Display.h"

namespace travo {

// One picture of a wheel with 17 areas, pad-00 to pad-18 of the skin: 0 at rest, 1 to 17 with that area held
// down, 18 disabled. It keeps to the left upper corner, a square of the smaller side.
//
// One press is one move: the pad acts on release, wherever the pointer then is, and holding does not repeat.
// The left button, or the keys: arrows press the inner ring, with Shift the outer one, Home the centre. A
// press that loses the focus, or whose pad is disabled or hidden meanwhile, is dropped: nothing moves.
// With the mirror's port closed the pictures react and no command goes out. Failures of the moves go up.
class CtlController : public QWidget, public DesignSized, public PadControl {
    Q_OBJECT

public:
    struct System {
        clsCommunication& cCommunication;
        clsMirrorMove& cMirrorMove;
        platform::Display& display;
    };

    // Enabled at first.
    explicit CtlController(const System& system, QWidget* parent = nullptr);

    // The program's folder; the pictures lie in its folder skin.
    void inipath(const QString& folder);

    // True shows the pad at rest, false shows it disabled and drops a press. The focus goes to no other
    // control meanwhile, and comes back unless the operator has taken it elsewhere.
    void ChangeEnable(bool New_Enable);

    // Number of the picture on show, 0 to 18.
    std::int16_t PictureShown() const;

    QSize sizeHint() const override { return DesignSize().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void DesignSizeChanged() override;

private:
    // By what an area is held down.
    enum class Hold : std::uint8_t { None, Mouse, Key };

    void PressArea(std::int16_t area) override;
    std::int16_t PressedArea() const override { return area_; }

    double Scale() const { return ScaleAt(QSizeF(size())); }
    // Of the picture, in pixels.
    int Side() const;
    std::int16_t AreaAt(const QPointF& pointer) const;
    void Press(std::int16_t area, Hold hold);
    void Release();
    void Drop();

    System system_;
    SkinPictures pictures_;
    FocusMark focusMark_;
    std::int16_t area_ = NoPadArea;
    Hold hold_ = Hold::None;
    int key_ = 0;
    bool hadFocus_ = false;  // when it was disabled
};

}  // namespace travo
