#include "controls/ApplicationStyle.h"

#include <QStringList>
#include <utility>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {

// A word in brackets is a colour or the families of the font stack.
constexpr char Sheet[] = R"(
QMessageBox { background-color: [ground]; }
QMessageBox QLabel { color: [ink]; font: 600 15px [families]; }
QMessageBox QPushButton {
    color: [ink]; font: 700 17px [families];
    min-width: 88px; min-height: 44px; padding: 0px 8px 0px 8px;
    background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 [faceHigh], stop:1 [faceLow]);
    border: 1px solid [edge]; border-bottom: 3px solid [lip]; border-radius: 5px;
}
QMessageBox QPushButton:hover { border: 3px solid [ring]; }
QMessageBox QPushButton:focus { border: 2px solid [ink]; }
QMessageBox QPushButton:pressed {
    background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 [pressHigh], stop:1 [pressLow]);
    border: 1px solid [edge]; padding-top: 2px;
}
QToolTip {
    color: [onSlate]; background-color: [slate]; border: 1px solid [slateEdge];
    padding: 3px; font: 13px [families];
}
)";

QString Families() {
    QStringList quoted;
    for (const QString& family : FontStack()) {
        quoted << QLatin1Char('"') + family + QLatin1Char('"');
    }
    return quoted.join(QStringLiteral(", "));
}

}  // namespace

QString ApplicationStyleSheet() {
    const std::pair<const char*, QColor> colours[] = {
        {"[ground]", palette::Ground},     {"[ink]", palette::Ink},
        {"[faceHigh]", palette::FaceHigh}, {"[faceLow]", palette::FaceLow},
        {"[edge]", palette::Edge},         {"[lip]", palette::Lip},
        {"[ring]", palette::Ring},         {"[pressLow]", palette::PressLow},
        {"[onSlate]", palette::OnSlate},   {"[pressHigh]", palette::PressHigh},
        {"[slate]", palette::Slate},       {"[slateEdge]", palette::SlateEdge},
    };
    QString sheet = QString::fromLatin1(Sheet);
    for (const auto& [word, colour] : colours) {
        sheet.replace(QLatin1String(word), colour.name());
    }
    return sheet.replace(QLatin1String("[families]"), Families());
}

}  // namespace travo
