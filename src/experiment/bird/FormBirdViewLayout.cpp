// What stands where in the bird's-eye view's window.
#include <QDir>

#include "controls/ControlAccess.h"
#include "controls/Palette.h"
#include "experiment/bird/FormBirdView.h"

namespace travo {

namespace {

// Design pixels of the window with the lower panel closed; the lower panel stands below it.
constexpr QRectF AdjustPlace(16, 432, 120, 40);
constexpr QRectF LettersPlace(144, 432, 250, 40);
constexpr QRectF NamesPlace(16, 480, 80, 86);
constexpr QRectF BrightnessPlace(100, 482, 182, 36);
constexpr QRectF ContrastPlace(100, 528, 182, 36);
constexpr QRectF LinesPlace(290, 480, 104, 40);
constexpr QRectF ShiftPlace(290, 526, 104, 40);
constexpr double ReadingLeft = 156;
constexpr double ReadingStep = 84;
constexpr double ReadingTop = 434;
constexpr QSizeF ReadingSize(70, 36);

// 256 itself is the pole of the contrast's tangent.
constexpr int LeastContrast = -256;
constexpr int GreatestContrast = 255;

// 0xFCF7F0 with blue in the highest byte.
constexpr QColor BarColour(0xF0, 0xF7, 0xFC);

}  // namespace

FormBirdView::FormBirdView(const System& system, const QString& programFolder)
    : FormSkinned(system.window,
                  {QStringLiteral("FormBirdView"), QStringLiteral("Bird's-eye view"), QStringLiteral("1"),
                   ClosedSize, LowerPanelHeight},
                  programFolder),
      system_(system),
      stillFile_(QDir(programFolder).filePath(QStringLiteral("BirdView.bmp"))),
      canvas_(programFolder),
      shpPicSet_(this),
      picBird_([this](const QPointF& at) { PicturePressed(at); }, this) {
    // What is put onto it stands at once where it stands in the open window.
    Body().resize(Body().sizeHint());
    PlacePicture();
    PlaceBars();
    PlaceSwitches();
    PlaceReadout();
    Connect();
    setMinimumSize(LeastSize());
    FormBirdView::Arrange();
}

void FormBirdView::PlacePicture() {
    shpPicSet_.setObjectName(QStringLiteral("shpPicSet"));
    shpPicSet_.setAttribute(Qt::WA_TransparentForMouseEvents);
    shpPicSet_.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    QPalette slate = shpPicSet_.palette();
    slate.setColor(QPalette::WindowText, palette::SlateEdge);
    shpPicSet_.setPalette(slate);
    for (QWidget* const picture : std::initializer_list<QWidget*>{&shpPicSet_, &picBird_}) {
        ShowAsPicture(*picture);
    }
}

void FormBirdView::PlaceBars() {
    PutControl(usrKVCheckButton1_, {"usrKVCheckButton1", "Adjust panel", AdjustPlace, "BirdMode",
                                    "Open or close the lower panel"});
    PutDisplay(imgPramXYZ_, {"imgPramXYZ", "Readout captions", LettersPlace, "birdxyz"});
    PutDisplay(imgParmName_, {"imgParmName", "Bar captions", NamesPlace, "birdparm"});
    PutControl(usrKVXscroll1_,
               {"usrKVXscroll1", "Brightness", BrightnessPlace, "xscroll", "Brightness of the still"});
    PutControl(usrKVXscroll2_,
               {"usrKVXscroll2", "Contrast", ContrastPlace, "xscroll", "Contrast of the still"});
    usrKVXscroll2_.setRange(LeastContrast, GreatestContrast);
    for (usrKVXscroll* const bar : {&usrKVXscroll1_, &usrKVXscroll2_}) {
        bar->BackColor(BarColour);
    }
}

void FormBirdView::PlaceSwitches() {
    PutControl(lines_, {"usrKVCheckButton2(0)", "Hide needle lines", LinesPlace, "ManiLine",
                        "Pressed: needle shafts are not drawn"});
    PutControl(shift_, {"usrKVCheckButton2(1)", "Shift picture", ShiftPlace, "ViewShift",
                        "Press, then press the point of the picture that belongs to the centre"});
}

void FormBirdView::PlaceReadout() {
    PutDisplay(lblXYZPos_, [](int axis) {
        return Placed{Indexed("lblXYZPos", axis), QString("View ") + QChar(u'X' + axis),
                      QRectF(QPointF(ReadingLeft + ReadingStep * axis, ReadingTop), ReadingSize)};
    });
    for (NumberLabel& label : lblXYZPos_) {
        label.Face(type::NumberStrip);
        label.setText(QStringLiteral("N/A"));
    }
}

void FormBirdView::Connect() {
    connect(&usrKVCheckButton1_, &usrKVCheckButton::clicked, this, [this] { AdjustPressed(); });
    connect(&usrKVXscroll1_, &usrKVXscroll::Change, this, [this] { ContrastAndBrightness(); });
    connect(&usrKVXscroll2_, &usrKVXscroll::Change, this, [this] { ContrastAndBrightness(); });
    connect(&usrKVXscroll2_, &usrKVXscroll::Scroll, this, [this] { ContrastAndBrightness(); });
    connect(&lines_, &usrKVCheckButton::clicked, this, [this] { ChangeVNeedleONOFF(lines_.Value()); });
    connect(&shift_, &usrKVCheckButton::clicked, this, [this] { ShiftPressed(); });
}

}  // namespace travo
