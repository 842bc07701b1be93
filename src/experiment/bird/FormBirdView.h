// The small window that shows the whole field from above: a still of the live camera, and on it the
// needles, the view and the stored cells.
#pragma once

#include <QFrame>
#include <QString>
#include <array>
#include <cstdint>

#include "controls/NumberLabel.h"
#include "controls/SkinImage.h"
#include "controls/usrKVCheckButton.h"
#include "controls/usrKVXscroll.h"
#include "core/ground/Positions.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/view/FormSkinned.h"
#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/FormBirdViewPicture.h"
#include "experiment/bird/FormBirdViewStill.h"
#include "platform/MessageBoxes.h"

namespace travo {

// Window 1 of the operator's settings. It commands nothing; of the shared state it writes the shift alone.
// Hidden or shown, it composes anew whenever it is told a position and whenever its size changes.
class FormBirdView : public FormSkinned,
                     public HearsMagnification,
                     public HearsView,
                     public HearsNeedle,
                     public HearsCell,
                     public HearsMirror {
    Q_OBJECT

public:
    // What only the owner knows.
    class Owner {
    public:
        virtual ~Owner() = default;
        // `intCellNo` of the experiment panel: the cell, 0 to 7, whose marker blinks; any other number for
        // none, as before there is a panel. Asked at every composition, the first one in the constructor.
        virtual std::int16_t ExperimentCellNo() const = 0;
    };

    struct System {
        FormSkinned::System window;
        SharedState& state;
        platform::MessageBoxes& boxes;
        Owner& owner;
    };

    // Design size with the lower panel closed, in pixels, and what the panel adds to the height.
    static constexpr QSize ClosedSize{410, 483};
    static constexpr int LowerPanelHeight = 95;

    // programFolder holds the folder skin and, once there is one, the still "BirdView.bmp", which is not
    // read here. Nothing is known yet: bare ground, no markers, a readout of "N/A".
    FormBirdView(const System& system, const QString& programFolder);

    // The mirror controller is connected: the view mark is drawn. No redraw.
    void chkMirror(bool isConnected) override { scene_.chkMirror = isConnected; }
    bool chkMirror() const { return scene_.chkMirror; }
    // 1 is 0.35x, 2 is 2x, 3 is 4x. No redraw: the next composition draws the mark for it, the next
    // ChangeViewXYZ puts that one in its place.
    void ChangeMagnification(std::int16_t Magnification) override {
        scene_.intBirdMagnification = Magnification;
    }
    // True hides the shafts of the needles. No redraw.
    void ChangeVNeedleONOFF(bool ONOFF) { scene_.bLineOFF = ONOFF; }

    // The live camera has written "BirdView.bmp": shows it, as it is until a bar is moved. Raises
    // BirdStillFailure where the file is missing, no picture, or not complete, and whatever else fails; the
    // former still stays then.
    void NewPicLoad();

    // The lower panel is open. Writing leaves the window's height as it is, which came back with its place,
    // but for a height below the least one that the panel needs.
    bool BirdOPEN() const { return usrKVCheckButton1_.Value(); }
    void BirdOPEN(bool isOpen);

    // Needle ManipulatorNumber (0 to 3, else BoundsFailure) has been read: `NeedleXYZ` holds all needles
    // and `OriNeedle` the far end of its shaft, both in the common frame; `CurrentXYZ` is the view in the
    // mirror frame, its Z the focus. Redraws.
    void ChangeNeedleXYZ(std::int16_t ManipulatorNumber,
                         const std::array<PositionXYZ, NeedleCount>& NeedleXYZ, const PositionXYZ& CurrentXYZ,
                         const PositionXYZ& OriNeedle) override;
    // The view, in the mirror frame, has moved: readout and mark follow. Redraws. OverflowFailure, with
    // nothing changed, where the place does not fit the common frame.
    void ChangeViewXYZ(const PositionXYZ& CurrentXYZ) override;
    // Cell Index (0 to 7, else BoundsFailure) has been stored at `CellXYZ`, in the mirror frame. Redraws.
    // OverflowFailure as above.
    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) override;

    // The button that hides the shafts is pressed in. Writing sets the button and the shafts. No redraw.
    bool LineONOff() const { return lines_.Value(); }
    void LineONOff(bool isOFF);

protected:
    void Arrange() override;
    void BackToDesignSize() override;

private:
    void PlacePicture();
    void PlaceBars();
    void PlaceSwitches();
    void PlaceReadout();
    void Connect();

    int OpenHeight() const { return BirdOPEN() ? LowerPanelHeight : 0; }
    QSize LeastSize() const;

    void AdjustPressed();
    void ShiftPressed();
    void PicturePressed(const QPointF& at);
    void ContrastAndBrightness();
    // Where the still lies under the markers, as fractions of its size; then redraws.
    void Shift(double x, double y);

    void Redraw();
    // With the canvas at z percent.
    void Compose(std::int32_t z);

    System system_;
    QString stillFile_;
    FormBirdViewStill still_;
    BirdCanvas canvas_;
    // Flags, places and blink phase; what the shared state and the owner know is filled in when it is drawn.
    BirdScene scene_;
    bool bShiftSetting_ = false;

    QFrame shpPicSet_;
    FormBirdViewPicture picBird_;
    usrKVCheckButton usrKVCheckButton1_;
    SkinImage imgPramXYZ_;
    SkinImage imgParmName_;
    std::array<NumberLabel, AxisCount> lblXYZPos_;
    usrKVXscroll usrKVXscroll1_;
    usrKVXscroll usrKVXscroll2_;
    // usrKVCheckButton2(0) and (1).
    usrKVCheckButton lines_;
    usrKVCheckButton shift_;
    // What the closed window hides: all below the picture but the button that opens the lower panel.
    const std::array<QWidget*, 9> lower_{&imgPramXYZ_,    &imgParmName_,  &lblXYZPos_[0],
                                         &lblXYZPos_[1],  &lblXYZPos_[2], &usrKVXscroll1_,
                                         &usrKVXscroll2_, &lines_,        &shift_};
};

}  // namespace travo
