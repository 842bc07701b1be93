// The skinned scroll bar: horizontal, with an arrow at each end and a notch at its neutral middle.
#pragma once

#include <QAbstractSlider>

#include "controls/DesignSized.h"
#include "controls/FocusMark.h"
#include "controls/SkinPictures.h"

namespace travo {

// Arrows are 36 design pixels wide, the thumb is 26. Range -255 to 255, a step 1, a page 16 at first, as of
// every QAbstractSlider. An arrow steps, the bar beside the thumb pages, both again and again while they
// are held; a double click on bar or thumb returns to the neutral value.
// Pictures <path>-track, -left, -right and -thumb, each with -up, -down (not of the track) and -disabled.
class usrKVXscroll : public QAbstractSlider, public DesignSized {
    Q_OBJECT

public:
    static constexpr int Neutral = 0;

    explicit usrKVXscroll(QWidget* parent = nullptr);

    void path(const QString& name);
    const QString& path() const { return path_; }
    void inipath(const QString& folder);
    const QString& inipath() const { return pictures_.Folder(); }
    void Enabled(bool enabled) { setEnabled(enabled); }
    bool Enabled() const { return isEnabled(); }
    // Behind the bar, seen at its round corners.
    void BackColor(const QColor& colour);
    const QColor& BackColor() const { return backColor_; }

    // The present value, during a drag that of the thumb.
    int Value() const { return sliderPosition(); }

    QSize sizeHint() const override { return DesignSize().toSize(); }

Q_SIGNALS:
    // The value has changed for good: by step, page, key, wheel or code, or at the end of a drag.
    void Change();
    // The thumb has been dragged to another value.
    void Scroll();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void sliderChange(SliderChange change) override;
    void DesignSizeChanged() override;

private:
    enum class Piece { None, Left, Right, BarLeft, BarRight, Thumb };

    double Scale() const { return ScaleAt(QSizeF(size())); }
    QRectF LeftArrow() const;
    QRectF RightArrow() const;
    QRectF Thumb() const;
    Piece PieceAt(const QPointF& place) const;
    int ValueAt(double thumbLeft) const;
    void LetGo();
    QString PieceState(Piece piece) const;
    void PaintPiece(QPainter& painter, const QString& piece, const QString& state, const QRectF& place);
    void PaintTrack(QPainter& painter);
    void PaintHoverRing(QPainter& painter) const;

    QString path_;
    QColor backColor_;
    SkinPictures pictures_;
    FocusMark focusMark_;
    Piece held_ = Piece::None;
    Piece under_ = Piece::None;
    QPointF pressedAt_;
    // From the thumb's left edge to where it was taken.
    double grip_ = 0;
};

}  // namespace travo
