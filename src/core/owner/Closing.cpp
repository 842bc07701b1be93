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
    ini.WriteString(settings::ShiftSection, settings::ShiftXKey, settings::FloatText(state_.ShiftX));
    ini.WriteString(settings::ShiftSection, settings::ShiftYKey, settings::FloatText(state_.ShiftY));
    WriteWindowPlace(ini, settings::MainWindowSection, window_.Measured());
    for (const auto& [section, place] : window_.SmallPlaces()) {
        WriteWindowPlace(ini, section, place);
    }
    const QString user = settings::UserSection;
    ini.WriteString(user, settings::XYOffsetKey, QString::number(objects_.cNeedleMove->lngXYOffset));
    ini.WriteString(user, settings::ZOffsetKey, QString::number(objects_.cObjectiveUpDown->lngOffset));
    ini.WriteString(user, settings::OffsetOFFKey, QString::number(window_.OffsetOFF()));
    ini.WriteString(user, settings::ContactOFFKey, QString::number(window_.ContactOFF()));
    ini.WriteString(user, settings::LineOFFKey, QString::number(window_.LineOFF()));
    ini.WriteString(user, settings::BirdOPENKey, QString::number(window_.BirdOPEN()));
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
