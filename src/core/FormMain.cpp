#include "core/FormMain.h"

#include <QCloseEvent>
#include <QFont>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <cstddef>

#include "platform/EventLoop.h"

namespace travo {

namespace {

// Design size of the window in pixels, and logical units to the pixel.
constexpr int DesignWidth = 520;
constexpr int DesignHeight = 624;
constexpr int UnitsPerPixel = 15;

const char* const StyleSheet =
    "QWidget { background: #F0F7FC; color: #182733; }"
    "QLabel[value=\"true\"] { background: #F8FBFE; border: 1px solid #B3C7D6; border-radius: 3px;"
    " padding-right: 5px; }"
    "QLabel[caption=\"true\"] { color: #3B5364; }"
    "QLabel:disabled { color: #6C8191; }";

QString AxisName(std::int32_t axis) { return QString(QLatin1Char("XYZ"[axis])); }

QFont Semibold(const QFont& font, int pixels) {
    QFont result = font;
    result.setPixelSize(pixels);
    result.setWeight(QFont::DemiBold);
    return result;
}

}  // namespace

FormMain::FormMain(const platform::Machine& machine)
    : machine_(machine),
      state_(*this),
      objects_(machine_, state_, *this, *this),
      loop_(state_, objects_, machine_.boxes, machine_.timers, *this),
      closing_(state_, objects_, loop_, machine_.boxes, *this) {
    setObjectName(QStringLiteral("FormMain"));
    setWindowTitle(QStringLiteral("TRAVO"));
    resize(DesignWidth, DesignHeight);
    BuildNeedleTable();
}

FormMain::~FormMain() { objects_.Release(); }

bool FormMain::Start() {
    StartUp startUp(machine_, state_, objects_, loop_, *this);
    if (startUp.Initialize() == StartUp::Outcome::End || startUp.Load() == StartUp::Outcome::End) {
        loop_.Stop();
        return false;
    }
    show();
    return true;
}

void FormMain::ReportUnexpectedFailure() noexcept {
    if (!objects_.DebugLog.Alive()) {
        return;
    }
    try {
        objects_.Failures.Report(QStringLiteral("Error : Unexpected failure"));
    } catch (...) {
        // There is nobody left to tell; the program goes on.
    }
}

void FormMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closed_) {
        event->accept();
        return;
    }
    if (asking_) {
        return;
    }
    if (machine_.eventLoop.Waiting()) {
        machine_.eventLoop.QueueAfterWaits([this] { close(); });
        return;
    }
    asking_ = true;
    const bool agreed = closing_.Ask();
    asking_ = false;
    if (agreed) {
        FinishClose();
        event->accept();
    }
}

void FormMain::CloseWithoutQuestion() {
    machine_.eventLoop.QueueAfterWaits([this] {
        FinishClose();
        close();
    });
}

void FormMain::FinishClose() {
    if (closed_) {
        return;
    }
    closed_ = true;
    closing_.Close();
    if (whenClosed_) {
        whenClosed_();
    }
}

// The table of needles: a row each with its place in the common frame.
void FormMain::BuildNeedleTable() {
    setStyleSheet(QLatin1String(StyleSheet));
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setSpacing(12);
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        auto* const caption = new QLabel(AxisName(axis), this);
        caption->setProperty("caption", true);
        caption->setFont(Semibold(font(), 13));
        caption->setAlignment(Qt::AlignRight | Qt::AlignBottom);
        grid->addWidget(caption, 0, axis + 1);
    }
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        auto* const name = new QLabel(this);
        name->setObjectName(QStringLiteral("lblName(%1)").arg(needle));
        name->setFont(Semibold(font(), 15));
        nameLabel_.at(static_cast<std::size_t>(needle)) = name;
        grid->addWidget(name, needle + 1, 0);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            const std::int32_t index = needle * AxisCount + axis;
            auto* const label = new QLabel(QStringLiteral("N/A"), this);
            label->setObjectName(QStringLiteral("lblNeedle(%1)").arg(index));
            label->setAccessibleDescription(
                QStringLiteral("Needle %1 %2").arg(needle + 1).arg(AxisName(axis)));
            label->setProperty("value", true);
            label->setFont(Semibold(font(), 18));
            label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            label->setMinimumSize(92, 60);
            positionLabel_.at(static_cast<std::size_t>(index)) = label;
            grid->addWidget(label, needle + 1, axis + 1);
        }
    }
    grid->setRowStretch(NeedleCount + 1, 1);
    TellTotalManipulatorNumber();
}

void FormMain::ShowNeedle(std::int32_t needle) {
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const auto index = static_cast<std::size_t>(needle * AxisCount + axis);
        positionLabel_.at(index)->setText(QString::number(state_.Needle(needle, axis)));
    }
}

void FormMain::MagnificationChanged(std::int16_t magnification) {
    objects_.Live->AnnounceMagnification(magnification);
}

void FormMain::ViewChanged() { objects_.cEscape->NowCurrentZPos = state_.CurrentXYZ(2); }

void FormMain::checkMotor(std::int16_t) {}

void FormMain::ControlONOFF(bool) {}

void FormMain::TotalManipulatorNumber(std::int16_t number) {
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        const bool connected = needle <= number;
        nameLabel_.at(static_cast<std::size_t>(needle))
            ->setText(QStringLiteral("Needle %1\n%2")
                          .arg(needle + 1)
                          .arg(connected ? QStringLiteral("connected") : QStringLiteral("not connected")));
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            positionLabel_.at(static_cast<std::size_t>(needle * AxisCount + axis))->setEnabled(connected);
        }
    }
}

void FormMain::ManipulatorChange(std::int16_t number) {
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        QLabel* const name = nameLabel_.at(static_cast<std::size_t>(needle));
        QFont font = name->font();
        font.setUnderline(needle == number);
        name->setFont(font);
    }
}

void FormMain::ChangeNeedleXYZ(std::int16_t index, const PositionXYZ&) { ShowNeedle(index); }

void FormMain::ChangeZeroPosition() {}

void FormMain::ChangeCurrentXYZ(const PositionXYZ&) {}

void FormMain::TellTotalManipulatorNumber() { TotalManipulatorNumber(state_.intTotalManipulatorNumber); }

WindowSize FormMain::DesignSize() const {
    return {static_cast<std::int16_t>(DesignWidth * UnitsPerPixel),
            static_cast<std::int16_t>(DesignHeight * UnitsPerPixel)};
}

void FormMain::DefaultSize(const WindowSize& size) {
    setMinimumSize(size.Width / UnitsPerPixel, size.Height / UnitsPerPixel);
}

void FormMain::Place(const WindowPlace& place) {
    resize(place.Width / UnitsPerPixel, place.Height / UnitsPerPixel);
    QList<QRect> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens << screen->availableGeometry();
    }
    const QPoint stored(place.Left / UnitsPerPixel, place.Top / UnitsPerPixel);
    move(OntoScreen(QRect(stored, size()), screens));
}

MeasuredWindowPlace FormMain::Measured() const {
    const auto units = [](int pixels) { return static_cast<float>(pixels * UnitsPerPixel); };
    const QRect inner = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    const QPoint frame = pos();
    return {units(frame.y()), units(frame.x()), units(inner.height()), units(inner.width())};
}

void FormMain::Live_BirdViewSave() {}

void FormMain::Live_WindowHide() {}

void FormMain::Live_WindowClose() {}

void FormMain::LiveDied() {}

}  // namespace travo
