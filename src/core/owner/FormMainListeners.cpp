#include "core/owner/FormMainListeners.h"

#include "devices/links/LineLimit.h"

namespace travo {

namespace {

// A camera that saves its picture more often is followed no faster, in milliseconds.
constexpr int StillPeriod = 50;

QString NameOf(Instrument instrument) {
    return instrument == Instrument::Mirror       ? QStringLiteral("Mirror")
           : instrument == Instrument::Magnescale ? QStringLiteral("Magnescale")
                                                  : QStringLiteral("Motor");
}

}  // namespace

FormMainListeners::FormMainListeners(const platform::Machine& machine, FormMainObjects& objects,
                                     FormMainPanels& panels, FormMainWindows& windows)
    : CtlExperiment1(panels.CtlExperiment1),
      CtlCalibration1(panels.CtlCalibration1),
      CtlCellPosition1(panels.CtlCellPosition1),
      CtlEscape1(panels.CtlEscape1),
      CtlConnection1(panels.CtlConnection1),
      CtlUser1(panels.CtlUser1),
      BirdView(windows.BirdView),
      ManiInfo(windows.ManiInfo),
      MirrorCtl(windows.MirrorCtl),
      MirrorCtl2(windows.MirrorCtl2),
      Live(objects.Live.Place()),
      cEscape(objects.cEscape.Place()),
      Still(machine.timers, windows.BirdView),
      Details(objects.Details) {}

void FormMainListeners::CameraMagnification::ChangeMagnification(std::int16_t Magnification) {
    live_.AnnounceMagnification(Magnification);
}

void FormMainListeners::EscapeHeight::ChangeViewXYZ(const PositionXYZ& CurrentXYZ) {
    escape_.NowCurrentZPos = CurrentXYZ[2];
}

FormMainListeners::StillLoader::StillLoader(platform::Timers& timers, FormBirdView& view)
    : load_(timers, StillPeriod, [&view] { view.NewPicLoad(); }) {}

void FormMainListeners::StillLoader::NewStill() { load_.Tell(); }

void FormMainListeners::DroppedLines::LineDropped(Instrument instrument) {
    details_.Note(QStringLiteral("%1 : more than %2 bytes without an end have been dropped")
                      .arg(NameOf(instrument))
                      .arg(MostLineBytes));
}

}  // namespace travo
