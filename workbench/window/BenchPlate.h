// A plate of the window: its face and the captions on it. What it holds are its children.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>
#include <vector>

class QPainter;

namespace workbench {

class BenchPlate : public QWidget {
public:
    // A caption with its baseline at a point of the plate.
    struct Caption {
        double x;
        double baseline;
        QString text;
        double pixels;
        QColor colour;
        QFont::Weight weight = QFont::DemiBold;
    };

    // `name` is what people call the plate.
    BenchPlate(const QString& objectName, const QString& name, QWidget* parent);

protected:
    void Captions(std::vector<Caption> captions);
    void paintEvent(QPaintEvent* event) override;
    // Beside face and captions.
    virtual void PaintMore(QPainter&) {}

private:
    std::vector<Caption> captions_;
};

}  // namespace workbench
