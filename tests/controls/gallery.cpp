// Draws every control in every state into one picture file, for the eye: gallery SKINFOLDER FILE
// (the folder that holds skin/). The display scale is QT_SCALE_FACTOR.
#include <QApplication>
#include <cmath>

#include "controls/ApplicationStyle.h"
#include "controls/NumberBox.h"
#include "controls/NumberLabel.h"
#include "controls/PanelCanvas.h"
#include "controls/SkinImage.h"
#include "controls/SkinNames.h"
#include "controls/SkinTab.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "controls/usrKVXscroll.h"

namespace {

using namespace travo;

constexpr double SheetWidth = 1840;
constexpr double SheetHeight = 2440;

class Gallery {
public:
    explicit Gallery(const QString& folder)
        : sheet_(QSizeF(SheetWidth, SheetHeight), folder), folder_(folder) {
        QPalette colours;
        colours.setColor(QPalette::Window, palette::Ground);
        sheet_.setPalette(colours);
        sheet_.setAutoFillBackground(true);
        sheet_.resize(sheet_.sizeHint());
        Legend();
        Buttons();
        Pictures();
        Parts();
    }

    QWidget& Sheet() { return sheet_; }

private:
    QRectF Room(const QSizeF& size) {
        if (x_ + size.width() > SheetWidth - 12) {
            x_ = 24;
            y_ += height_ + 10;
            height_ = 0;
        }
        const QRectF room(QPointF(x_, y_), size);
        x_ += size.width() + 10;
        height_ = std::max(height_, size.height());
        return room;
    }

    template <class Button>
    Button& Put(const QString& path, const QSizeF& size) {
        auto* const button = new Button(&sheet_);
        button->path(path);
        button->inipath(folder_);
        sheet_.Add(*button, Room(size));
        return *button;
    }

    void NewRow() { x_ = SheetWidth; }

    void Legend() {
        const QSizeF size(82, 64);
        Put<usrKVButton>(QStringLiteral("SET"), size);
        Put<usrKVButton>(QStringLiteral("SET"), size).setAttribute(Qt::WA_UnderMouse);
        focused_ = &Put<usrKVButton>(QStringLiteral("SET"), size);
        Put<usrKVButton>(QStringLiteral("SET"), size).setDown(true);
        Put<usrKVButton>(QStringLiteral("SET"), size).Enabled(false);
        Put<usrKVCheckButton>(QStringLiteral("ExpDirect"), size).setAttribute(Qt::WA_UnderMouse);
        Put<usrKVButton>(QStringLiteral("SET"), QSizeF(86, 104));
        Put<usrKVCheckButton>(QStringLiteral("ExpView"), QSizeF(82, 142)).SetRaised(false);
        Put<usrKVCheckButton>(QStringLiteral("ExpView"), QSizeF(82, 142));
        Put<usrKVButton>(QStringLiteral("size"), QSizeF(13, 13));
        Put<usrKVButton>(QStringLiteral("NoSuchSkin"), size);
        Put<usrKVCheckButton>(QStringLiteral("NoSuchSkin"), size).SetRaised(false);
        Put<usrKVButton>(QStringLiteral("NoSuchSkin"), size).Enabled(false);
        NewRow();
    }

    void Buttons() {
        for (const ButtonSkin& skin : ButtonSkins()) {
            const bool isHalved = skin.size.width() > 300 && skin.name != QLatin1String("CellPosSelect");
            const QSizeF size(isHalved ? 214 : skin.size.width(), skin.size.height());
            if (!skin.isTwoState) {
                Put<usrKVButton>(skin.name, size);
                Put<usrKVButton>(skin.name, size).setDown(true);
                Put<usrKVButton>(skin.name, size).Enabled(false);
                continue;
            }
            for (int state = 0; state < 4; ++state) {
                auto& button = Put<usrKVCheckButton>(skin.name, size);
                button.SetRaised(state % 2 == 0);
                button.Enabled(state < 2);
            }
        }
        NewRow();
    }

    void Pictures() {
        for (const PictureSkin& skin : PictureSkins()) {
            if (skin.name.startsWith(QLatin1String("pad-")) && skin.name > QLatin1String("pad-01")) {
                continue;
            }
            if (skin.name.startsWith(QLatin1String("tab-"))) {
                Put<SkinTab>(skin.name, skin.size);
            } else {
                Put<SkinImage>(skin.name, skin.size);
            }
        }
        NewRow();
    }

    void Parts() {
        Put<SkinImage>(QStringLiteral("title-FormManiInfo"), QSizeF(700, 32));
        for (const int value : {0, 100, -255}) {
            auto& bar = Put<usrKVXscroll>(QStringLiteral("xscroll"), QSizeF(182, 36));
            bar.setValue(value);
            bar.Enabled(value != -255);
        }
        for (const char* const text : {"-412", "N/A", "-100000", "-2147483648"}) {
            auto* const label = new NumberLabel(&sheet_);
            label->setText(QString::fromLatin1(text));
            sheet_.Add(*label, Room(QSizeF(92, 60)));
            auto* const box = new NumberBox(&sheet_);
            box->setText(QString::fromLatin1(text));
            sheet_.Add(*box, Room(QSizeF(92, 48)));
        }
        NewRow();
        const QRectF plate = Room(QSizeF(462, 110));
        sheet_.Paint(Plate{plate});
        sheet_.Paint(CaptionText(plate.x() + 12, plate.y() + 6, QStringLiteral("What moves")));
        sheet_.Paint(NameText(plate.x() + 12, plate.y() + 30, 40, QStringLiteral("Name of a row")));
        sheet_.Paint(HintText(plate.x() + 12, plate.y() + 90, QStringLiteral("A hint stands here.")));
        sheet_.Paint(Rule{plate.x() + 12, plate.right() - 12, plate.y() + 100});
        sheet_.Paint(DashedSlot{QRectF(plate.right() - 90, plate.y() + 10, 80, 80)});
        sheet_.Paint(PaintedIcon{QStringLiteral("icon-plug"), plate.right() - 120, plate.y() + 40, 22});
    }

    PanelCanvas sheet_;
    QString folder_;
    double x_ = 24;
    double y_ = 24;
    double height_ = 0;

public:
    QWidget* focused_ = nullptr;
};

}  // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    application.setStyleSheet(ApplicationStyleSheet());
    if (argumentCount < 3) {
        return 1;
    }
    Gallery gallery(QString::fromLocal8Bit(arguments[1]));
    gallery.Sheet().show();
    gallery.Sheet().activateWindow();
    QApplication::processEvents();
    gallery.focused_->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    return gallery.Sheet().grab().save(QString::fromLocal8Bit(arguments[2])) ? 0 : 1;
}
