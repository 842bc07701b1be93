// What the connection panel is made of, where it stands, and what calls its rules. In design pixels of the
// panel.
#include <QLatin1String>

#include "controls/PanelPlacing.h"
#include "devices/view/CtlConnection.h"

namespace travo {

namespace {

constexpr double RowHeight = 52;
// Top of each row: mirror, Magnescale, motor, manipulator, camera.
constexpr double RowTop[] = {132, 200, 268, 358, 444};

constexpr QRectF DownAt(double y) { return {164, y, 42, RowHeight}; }
constexpr QRectF BoxAt(double y) { return {209, y, 48, RowHeight}; }
constexpr QRectF UpAt(double y) { return {260, y, 42, RowHeight}; }
constexpr QRectF SetAt(double y) { return {314, y, 70, RowHeight}; }
constexpr QRectF TestAt(double y) { return {392, y, 70, RowHeight}; }

struct RowWords {
    QLatin1String icon;
    QLatin1String name;
};

constexpr RowWords RowWordsOf[] = {
    {QLatin1String("icon-mirror"), QLatin1String("Mirror")},
    {QLatin1String("icon-gauge"), QLatin1String("Magnescale")},
    {QLatin1String("icon-motor"), QLatin1String("Motor")},
    {QLatin1String("icon-needle"), QLatin1String("Manipulator")},
    {QLatin1String("icon-camera"), QLatin1String("Live camera")},
};

constexpr double IconMiddle = 36;
constexpr double IconSide = 22;
constexpr double NamesLeft = 56;
constexpr double NamesRight = 160;
// Within a row: a name and its state stand under each other about the row's middle.
constexpr double NameTop = 6;
constexpr double LineHeight = 20;
constexpr double StateTop = 26;

}  // namespace

// The order of placing is the order of the Tab key.
void CtlConnection::Place() {
    PlacePaint();
    Put(*this, usrKVButton1_[OpenList],
        {"usrKVButton1(3)", "Show serial ports", QRectF(314, 24, 148, RowHeight), "OPEN",
         "Show the serial ports of this computer"});
    PlacePort(Mirror, "mirror", TestMirror, "Step the magnification");
    PlacePort(Magnescale, "Magnescale", TestMagnescale, "Show the gauge's value");
    PlacePort(Motor, "motor", TestMotor, "Move the focus by 1000 steps");
    PlaceNumber(Manipulator, "Manipulator number",
                {"Lower number", "Number of the manipulator to test", "Higher number"});
    Put(*this, usrKVButton1_[TestManipulator],
        {"usrKVButton1(6)", "Test manipulator", TestAt(RowTop[Manipulator]), "TEST", "Jog this manipulator"});
    Put(*this, usrKVButton1_[ConnectCamera],
        {"usrKVButton1(8)", "Connect camera", SetAt(RowTop[Camera]), "SET", "Start the live camera program"});
    PlaceStates();
}

void CtlConnection::PlacePaint() {
    for (const QRectF& plate : {QRectF(12, 12, 462, 76), QRectF(12, 98, 462, 238), QRectF(12, 346, 462, 76),
                                QRectF(12, 432, 462, 76)}) {
        Paint(Plate{plate});
    }
    Paint(PaintedIcon{QStringLiteral("icon-plug"), IconMiddle, 50, IconSide});
    Paint(
        NameText(NamesLeft, 24, RowHeight, QStringLiteral("Serial ports of this computer"), type::NameSmall));
    Paint(CaptionText(233, 106, QStringLiteral("Port"), Qt::AlignHCenter));
    Paint(CaptionText(349, 106, QStringLiteral("Connect"), Qt::AlignHCenter));
    Paint(CaptionText(427, 106, QStringLiteral("Test"), Qt::AlignHCenter));
    for (std::size_t row = 0; row < RowCount; ++row) {
        Paint(PaintedIcon{RowWordsOf[row].icon, IconMiddle, RowTop[row] + RowHeight / 2, IconSide});
        Paint(NameText(NamesLeft, RowTop[row] + NameTop, LineHeight, RowWordsOf[row].name, type::NameSmall));
    }
}

void CtlConnection::PlacePort(Row row, const QString& instrument, Button test, const QString& testToolTip) {
    PlaceNumber(row, RowWordsOf[row].name + QStringLiteral(" port"),
                {"Lower port number", "Serial port number", "Higher port number"});
    Put(*this, usrKVButton1_.at(row),
        {Indexed("usrKVButton1", row), "Connect " + instrument, SetAt(RowTop[row]), "SET",
         "Open this port and wait for the instrument's answer"});
    Put(*this, usrKVButton1_.at(test),
        {Indexed("usrKVButton1", test), "Test " + instrument, TestAt(RowTop[row]), "TEST", testToolTip});
}

void CtlConnection::PlaceNumber(Row row, const QString& human, const NumberHelp& help) {
    Put(*this, usrKVButton2_.at(row),
        {Indexed("usrKVButton2", row), human + " down", DownAt(RowTop[row]), "Down", help.down});
    Put(*this, txtNo_.at(row), {Indexed("txtNo", row), human, BoxAt(RowTop[row]), NoSkin, help.box});
    Put(*this, usrKVButton3_.at(row),
        {Indexed("usrKVButton3", row), human + " up", UpAt(RowTop[row]), "Up", help.up});
}

void CtlConnection::PlaceStates() {
    Put(*this, lblState_, [](int row) {
        return Placed{Indexed("lblState", row), RowWordsOf[row].name + QStringLiteral(" state"),
                      QRectF(NamesLeft, RowTop[row] + StateTop, NamesRight - NamesLeft, LineHeight)};
    });
    for (NumberLabel& label : lblState_) {
        label.Face(type::Caption, QFont::Normal, NumberLabel::Ground::Bare);
        label.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
    for (const Row row : {Mirror, Magnescale, Motor, Manipulator, Camera}) {
        ShowState(row, RowState::AtRest);
    }
}

void CtlConnection::Connect() {
    for (std::size_t index = 0; index < ButtonCount; ++index) {
        connect(&usrKVButton1_[index], &usrKVButton::clicked, this,
                [this, index] { PressButton(static_cast<int>(index)); });
    }
    for (const Row row : {Mirror, Magnescale, Motor, Manipulator}) {
        NumberBox& box = txtNo_[row];
        box.setText(QStringLiteral("1"));
        box.setMaxLength(TypedFigures);
        connect(&box, &NumberBox::textChanged, this, [this, row] { txtNo_Change(row); });
        connect(&usrKVButton2_[row], &usrKVButton::clicked, this, [this, row] { PressDown(row); });
        connect(&usrKVButton3_[row], &usrKVButton::clicked, this, [this, row] { PressUp(row); });
    }
}

void CtlConnection::ShowState(Row row, RowState state) {
    static const std::array<QString, 6> words{
        QStringLiteral("Not connected"),   QStringLiteral("Waiting for an answer"),
        QStringLiteral("Connected"),       QStringLiteral("No answer"),
        QStringLiteral("Connection lost"), QStringLiteral("Port cannot be opened")};
    const bool isBad = state == RowState::Refused || state == RowState::Lost || state == RowState::NotOpened;
    const auto index = static_cast<std::size_t>(row);
    shownState_[index] = state;
    lblState_[index].setText(words[static_cast<std::size_t>(state)]);
    lblState_[index].Colour(isBad ? palette::CoralDeepText : palette::Ink2);
}

}  // namespace travo
