// What stands where in the bird's-eye view's window.
#include <QDir>

#include "controls/ControlAccess.h"
#include "controls/ControlNames.h"
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
                   ClosedSize},
                  programFolder),
      system_(system),
      stillFile_(QDir(programFolder).filePath(QStringLiteral("BirdView.bmp"))),
      canvas_(programFolder),
      shpPicSet_(this),
      picBird_([this](const QPointF& at) { PicturePressed(at); }, this),
      usrKVCheckButton1_(&Body()),
      imgPramXYZ_(&Body()),
      imgParmName_(&Body()),
      usrKVXscroll1_(&Body()),
      usrKVXscroll2_(&Body()),
      lines_(&Body()),
      shift_(&Body()),
      rows_(QSizeF(ClosedSize)) {
    BuildPicture();
    BuildReadout(programFolder);
    BuildBars(programFolder);
    BuildButtons(programFolder);
    setMinimumSize(LeastSize());
    FormBirdView::Arrange();
}

void FormBirdView::BuildPicture() {
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

void FormBirdView::BuildReadout(const QString& programFolder) {
    imgPramXYZ_.path(QStringLiteral("birdxyz"));
    imgPramXYZ_.inipath(programFolder);
    Identify(imgPramXYZ_, QStringLiteral("imgPramXYZ"), QStringLiteral("Readout captions"));
    AddLower(imgPramXYZ_, LettersPlace);
    for (std::size_t axis = 0; axis < AxisLabels; ++axis) {
        auto* const label = new NumberLabel(&Body());
        label->Face(type::NumberStrip);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        Identify(*label, Indexed(QStringLiteral("lblXYZPos"), static_cast<int>(axis)),
                 QStringLiteral("View %1").arg(QChar('X' + static_cast<char16_t>(axis))));
        label->setText(QStringLiteral("N/A"));
        const double left = ReadingLeft + ReadingStep * static_cast<double>(axis);
        AddLower(*label, QRectF(QPointF(left, ReadingTop), ReadingSize));
        lblXYZPos_.at(axis) = label;
    }
}

void FormBirdView::BuildBars(const QString& programFolder) {
    imgParmName_.path(QStringLiteral("birdparm"));
    imgParmName_.inipath(programFolder);
    Identify(imgParmName_, QStringLiteral("imgParmName"), QStringLiteral("Bar captions"));
    AddLower(imgParmName_, NamesPlace);
    for (usrKVXscroll* const bar : {&usrKVXscroll1_, &usrKVXscroll2_}) {
        bar->path(QStringLiteral("xscroll"));
        bar->inipath(programFolder);
        bar->BackColor(BarColour);
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &usrKVXscroll::Change, this, [this] { ContrastAndBrightness(); });
    }
    connect(&usrKVXscroll2_, &usrKVXscroll::Scroll, this, [this] { ContrastAndBrightness(); });
    Identify(usrKVXscroll1_, QStringLiteral("usrKVXscroll1"), QStringLiteral("Brightness"),
             QStringLiteral("Brightness of the still"));
    Identify(usrKVXscroll2_, QStringLiteral("usrKVXscroll2"), QStringLiteral("Contrast"),
             QStringLiteral("Contrast of the still"));
    usrKVXscroll2_.setRange(LeastContrast, GreatestContrast);
    AddLower(usrKVXscroll1_, BrightnessPlace);
    AddLower(usrKVXscroll2_, ContrastPlace);
}

void FormBirdView::BuildButtons(const QString& programFolder) {
    usrKVCheckButton1_.path(QStringLiteral("BirdMode"));
    Identify(usrKVCheckButton1_, QStringLiteral("usrKVCheckButton1"), QStringLiteral("Adjust panel"),
             QStringLiteral("Open or close the lower panel"));
    connect(&usrKVCheckButton1_, &usrKVCheckButton::clicked, this, [this] { AdjustPressed(); });
    AddRow(usrKVCheckButton1_, AdjustPlace);

    lines_.path(QStringLiteral("ManiLine"));
    Identify(lines_, Indexed(QStringLiteral("usrKVCheckButton2"), 0), QStringLiteral("Hide needle lines"),
             QStringLiteral("Pressed: needle shafts are not drawn"));
    connect(&lines_, &usrKVCheckButton::clicked, this, [this] { ChangeVNeedleONOFF(lines_.Value()); });
    AddLower(lines_, LinesPlace);

    shift_.path(QStringLiteral("ViewShift"));
    Identify(shift_, Indexed(QStringLiteral("usrKVCheckButton2"), 1), QStringLiteral("Shift picture"),
             QStringLiteral("Press, then press the point of the picture that belongs to the centre"));
    connect(&shift_, &usrKVCheckButton::clicked, this, [this] { ShiftPressed(); });
    AddLower(shift_, ShiftPlace);

    for (usrKVCheckButton* const button : {&usrKVCheckButton1_, &lines_, &shift_}) {
        button->inipath(programFolder);
        // Else it would show the pointer of the edge that the mouse came from.
        button->setCursor(Qt::ArrowCursor);
    }
}

void FormBirdView::AddRow(QWidget& control, const QRectF& rectangle) { rows_.Add(control, rectangle); }

void FormBirdView::AddLower(QWidget& control, const QRectF& rectangle) {
    AddRow(control, rectangle);
    lower_.push_back(&control);
}

}  // namespace travo
