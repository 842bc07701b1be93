#include "core/owner/Closing.h"

#include "core/state/SettingsKeys.h"

namespace travo {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

bool Closing::Ask() {
    const QString question =
        QStringLiteral("Do you want to end? This will clear all saved cell and escape positions.");
    // A stray Enter or Space must not end the work.
    const platform::BoxOpening opening{.beside = {}, .isFocusOnCancel = true};
    return boxes_.ShowSo(question, BoxButtons::OKCancel, BoxIcon::None, opening) == BoxAnswer::OK;
}

void Closing::Close() {
    objects_.Failures.Handle(QStringLiteral("Error : Unload"), [this] { CloseSteps(); });
    // Nothing may move once the program has said that it closes, also after a failure.
    loop_.Stop();
}

// The order of the closing: what is kept, windows, camera, ports.
void Closing::CloseSteps() {
    Save();
    window_.CloseSmallWindows();
    objects_.Live->AnnounceHideWindow();
    ClosePorts();
}

void Closing::Save() {
    const clsIniEdit::Together together(*objects_.cIniEdit);
    WriteValues();
    window_.SaveOpenWindows();
}

void Closing::WriteValues() {
    clsIniEdit& ini = *objects_.cIniEdit;
    const QString shift = QStringLiteral("FormBirdView_Shift");
    ini.WriteString(shift, QStringLiteral("X"), settings::FloatText(state_.ShiftX));
    ini.WriteString(shift, QStringLiteral("Y"), settings::FloatText(state_.ShiftY));
    WriteWindowPlace(ini, QStringLiteral("FormMain_Position"), window_.Measured());
    for (const auto& [section, place] : window_.SmallPlaces()) {
        WriteWindowPlace(ini, section, place);
    }
    const QString user = QStringLiteral("User_Value");
    ini.WriteString(user, QStringLiteral("XYOffset"), QString::number(objects_.cNeedleMove->lngXYOffset));
    ini.WriteString(user, QStringLiteral("ZOffset"), QString::number(objects_.cObjectiveUpDown->lngOffset));
    ini.WriteString(user, QStringLiteral("OffsetOFF"), QString::number(window_.OffsetOFF()));
    ini.WriteString(user, QStringLiteral("ContactOFF"), QString::number(window_.ContactOFF()));
    ini.WriteString(user, QStringLiteral("LineOFF"), QString::number(window_.LineOFF()));
    ini.WriteString(user, QStringLiteral("BirdOPEN"), QString::number(window_.BirdOPEN()));
}

void Closing::ClosePorts() {
    clsCommunication& instruments = *objects_.cCommunication;
    if (instruments.MagnescalePortOpenCheck()) {
        instruments.MagnescaleKeyON();
        instruments.MagnescalePortClose();
    }
    if (instruments.MirrorPortOpenCheck()) {
        instruments.MirrorPortClose();
    }
    if (instruments.MotorPortOpenCheck()) {
        instruments.MotorPortClose();
    }
}

}  // namespace travo
