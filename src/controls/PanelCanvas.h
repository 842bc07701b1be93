// The base of a panel: paints its plates and texts, and keeps its controls in place.
#pragma once

#include <QWidget>
#include <vector>

#include "controls/PanelItems.h"
#include "controls/ScaledLayout.h"
#include "controls/SkinPictures.h"

namespace travo {

class PanelCanvas : public QWidget {
    Q_OBJECT

public:
    // `design` is the size in design pixels that all places are given in. programFolder holds the folder
    // skin.
    PanelCanvas(const QSizeF& design, const QString& programFolder, QWidget* parent = nullptr);

    // The program's folder, for painted icons and for the pictures of the controls.
    const QString& inipath() const { return pictures_.Folder(); }

    // Behind all else; nothing at first, so that the owner's own ground is seen.
    void Ground(const QColor& colour);

    // Something to paint, on top of what was added before. Gives its number. What is painted takes no
    // mouse.
    int Paint(const PanelItem& item);
    // A painted item is seen at first. Raises std::out_of_range for a number never given.
    void Visible(int item, bool visible);
    // Other content in the place of an item, as where a row turns grey. Raises std::out_of_range likewise.
    void Replace(int item, const PanelItem& content);

    // What is painted, in order, whether it is seen or not.
    std::vector<PanelItem> Items() const;

    // Puts a control, a child of this panel, into the layout; it stands there at once.
    void Add(QWidget& control, const QRectF& rectangle);

    // The smaller of present over design width and height.
    double Scale() const { return layout_.Scale(QSizeF(size())); }
    const ScaledLayout& Layout() const { return layout_; }

    QSize sizeHint() const override { return layout_.Design().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Painted {
        PanelItem item;
        bool isVisible = true;
    };

    void Draw(QPainter& painter, const Plate& plate);
    void Draw(QPainter& painter, const PaintedText& text);
    void Draw(QPainter& painter, const Rule& rule);
    void Draw(QPainter& painter, const DashedSlot& slot);
    void Draw(QPainter& painter, const PaintedIcon& icon);

    ScaledLayout layout_;
    QColor ground_ = Qt::transparent;
    SkinPictures pictures_;
    std::vector<Painted> painted_;
};

}  // namespace travo
