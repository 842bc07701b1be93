#include "core/view/CtlUser.h"

#include <QLocale>
#include <algorithm>
#include <charconv>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"

namespace travo {

namespace {

// Digits that the operator can enter: all that fit 32 bits whatever they are.
constexpr int OffsetDigits = 9;

// Whether a text may stay in an offset box: a number that is not negative once it is rounded to a whole
// one of 32 bits. What is no number at all fails every comparison.
bool IsOffset(const QString& text) {
    bool isNumber = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &isNumber);
    return isNumber && value >= -0.5 && value < 2147483647.5;
}

// The number that a text begins with, 0 where it begins otherwise.
double LeadingNumber(const QString& text) {
    QByteArray figures = text.trimmed().toLatin1();
    if (figures.startsWith('+')) {
        figures.remove(0, 1);
    }
    double value = 0;
    std::from_chars(figures.constData(), figures.constData() + figures.size(), value);
    return value;
}

}  // namespace

CtlUser::CtlUser(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(QSizeF(486, 520), programFolder, parent), system_(system), cIniEdit_(system.profile) {
    setObjectName(QStringLiteral("CtlUser1"));
    cIniEdit_.IniFilePath(settings::MyPath(programFolder, system.folders.Separator()) + settings::FileName());
    Place();
    modes_[StepMode].SetRaised(true);
    modes_[TabMode].SetRaised(false);
    ReadWindows();
    Connect();
}

CtlUser::~CtlUser() {
    if (saveWindowsAtEnd_ && saved_ != WindowsNow()) {
        SaveWindows();
    }
}

void CtlUser::ReadWindows() {
    for (std::size_t index = 0; index < windows_.size(); ++index) {
        const std::int32_t key =
            cIniEdit_.GetInt(settings::WindowSection, settings::WindowKey(static_cast<std::int32_t>(index)),
                             settings::WindowClosed);
        windows_.at(index).SetRaised(key != settings::WindowOpen);
    }
}

CtlUser::OpenWindows CtlUser::WindowsNow() const {
    OpenWindows open{};
    std::transform(windows_.begin(), windows_.end(), open.begin(),
                   [](const usrKVCheckButton& button) { return button.Value(); });
    return open;
}

void CtlUser::SaveWindows() {
    const OpenWindows open = WindowsNow();
    for (std::size_t index = 0; index < open.size(); ++index) {
        const std::int32_t key = open.at(index) ? settings::WindowOpen : settings::WindowClosed;
        cIniEdit_.WriteString(settings::WindowSection, settings::WindowKey(static_cast<std::int32_t>(index)),
                              QString::number(key));
    }
    saved_ = open;
}

void CtlUser::Connect() {
    for (NumberBox& box : offsets_) {
        connect(&box, &NumberBox::textChanged, this, [this, &box] { OffsetTextChanged(box); });
    }
    connect(&apply_, &usrKVButton::clicked, this, [this] { ApplyOffsets(Minimum::Told); });
    for (std::size_t index = 0; index < switches_.size(); ++index) {
        connect(&switches_.at(index), &usrKVCheckButton::clicked, this,
                [this, index] { SwitchClicked(index); });
    }
    for (std::size_t index = 0; index < modes_.size(); ++index) {
        connect(&modes_.at(index), &usrKVCheckButton::clicked, this, [this, index] { ModeClicked(index); });
    }
    for (std::size_t index = 0; index < windows_.size(); ++index) {
        connect(&windows_.at(index), &usrKVCheckButton::clicked, this,
                [this, index] { WindowToggle(static_cast<std::int32_t>(index)); });
    }
}

void CtlUser::Shown() {
    minimum_.setText(QString::number(system_.objective.lngMinimumOffset));
    ShowOffset(offsets_[OffsetXY], system_.needleMove.lngXYOffset);
    ShowOffset(offsets_[OffsetZ], system_.objective.lngOffset);
}

void CtlUser::ShowOffset(NumberBox& box, std::int32_t value) {
    const QString text = QString::number(value);
    // One that was stored with ten digits must not come back as another one.
    box.setMaxLength(std::max(OffsetDigits, static_cast<int>(text.size())));
    box.setText(text);
}

void CtlUser::OffsetTextChanged(NumberBox& box) {
    if (!IsOffset(box.text())) {
        box.setText(QStringLiteral("0"));
    }
}

void CtlUser::ApplyOffsets(Minimum minimum) {
    ApplyOffset(offsets_[OffsetXY], system_.needleMove.lngMinimumXYOffset, system_.needleMove.lngXYOffset,
                minimum, QStringLiteral("XY Offset changes to minimum value"));
    ApplyOffset(offsets_[OffsetZ], system_.objective.lngMinimumOffset, system_.objective.lngOffset, minimum,
                QStringLiteral("Z Offset changes to minimum value"));
}

void CtlUser::ApplyOffset(NumberBox& box, std::int32_t least, std::int32_t& offset, Minimum minimum,
                          const QString& text) {
    const double value = LeadingNumber(box.text());
    if (value >= least || bOffsetOFF_) {
        offset = convert(value);
        return;
    }
    offset = least;
    ShowOffset(box, least);
    if (minimum == Minimum::Told) {
        system_.failures.Show(text);
    }
}

void CtlUser::SwitchClicked(std::size_t Index) {
    const bool pressed = switches_.at(Index).Value();
    if (Index == ContactSwitch) {
        system_.needleMove.ContactEvasionONOFF(pressed);
        return;
    }
    bOffsetOFF_ = pressed;
    if (!pressed) {
        ApplyOffsets(Minimum::Silent);
    }
}

void CtlUser::OffsetONOff(std::int32_t ONOff) {
    switches_[OffsetSwitch].SetRaised(ONOff == 0);
    bOffsetOFF_ = ONOff != 0;
}

void CtlUser::ContactONOff(std::int32_t ONOff) {
    switches_[ContactSwitch].SetRaised(ONOff == 0);
    system_.needleMove.ContactEvasionONOFF(switches_[ContactSwitch].Value());
}

void CtlUser::ModeClicked(std::size_t Index) {
    // Whatever state the click left them in, one is pressed.
    modes_[StepMode].SetRaised(Index == TabMode);
    modes_[TabMode].SetRaised(Index == StepMode);
    system_.owner.ModeChange(Index == TabMode);
}

void CtlUser::WindowToggle(std::int32_t Index) {
    system_.failures.Handle(QStringLiteral("Error : Window Load"), [this, Index] {
        const bool pressed = WindowButton(Index).Value();
        if (Index == CameraWindow) {
            CameraToggle(pressed);
        } else if (pressed) {
            system_.owner.ShowWindow(Index);
        } else {
            system_.owner.HideWindow(Index);
        }
    });
}

void CtlUser::CameraToggle(bool pressed) {
    if (!system_.state.LiveOpen) {
        system_.live.Clear();
        if (!CreateCamera()) {
            return;
        }
        system_.live.LiveAttach();
        system_.state.LiveOpen = true;
    }
    if (pressed) {
        system_.live.LiveShowWindow();
    } else {
        system_.live.LiveHideWindow();
    }
}

bool CtlUser::CreateCamera() {
    return system_.failures.Handle(QStringLiteral("Error : Camera Load"), [this] {
        try {
            system_.live.Create();
        } catch (...) {
            // Before the box: what the operator sees behind it is how things stand.
            LiveButtonChange(true);
            throw;
        }
    });
}

void CtlUser::FormClose(std::int32_t Index) {
    WindowButton(Index).SetRaised(true);
    WindowToggle(Index);
}

void CtlUser::LiveFromHide() {
    LiveButtonChange(true);
    system_.live.AnnounceHideWindow();
}

void CtlUser::LiveButtonChange(bool bONOFF) { WindowButton(CameraWindow).SetRaised(bONOFF); }

usrKVCheckButton& CtlUser::WindowButton(std::int32_t Index) {
    return windows_.at(Bounded(Index, windows_.size()));
}

}  // namespace travo
