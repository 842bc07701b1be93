// What the connection panel is made of, where it stands, and what calls its rules. In design pixels of the
// panel.
#include <QLatin1String>

#include "controls/ControlNames.h"
#include "devices/view/CtlConnection.h"

namespace travo {

namespace {

enum class Kind { Button, Down, Box, Up };

struct Place {
    Kind kind;
    int index;
    QLatin1String skin;
    QRectF rectangle;
    QLatin1String humanName;
    QLatin1String toolTip;
};

constexpr double RowHeight = 52;
// Top of each row: mirror, Magnescale, motor, manipulator, camera.
constexpr double RowTop[] = {132, 200, 268, 358, 444};

constexpr QRectF DownAt(double y) { return {164, y, 42, RowHeight}; }
constexpr QRectF BoxAt(double y) { return {209, y, 48, RowHeight}; }
constexpr QRectF UpAt(double y) { return {260, y, 42, RowHeight}; }
constexpr QRectF SetAt(double y) { return {314, y, 70, RowHeight}; }
constexpr QRectF TestAt(double y) { return {392, y, 70, RowHeight}; }

constexpr QLatin1String SetSkin("SET");
constexpr QLatin1String TestSkin("TEST");
constexpr QLatin1String DownSkin("Down");
constexpr QLatin1String UpSkin("Up");
constexpr QLatin1String PortTip("Serial port number");
constexpr QLatin1String LowerPortTip("Lower port number");
constexpr QLatin1String HigherPortTip("Higher port number");
constexpr QLatin1String SetTip("Open this port and wait for the instrument's answer");

// In the order in which the Tab key goes through them.
constexpr Place Places[] = {
    {Kind::Button, 3, QLatin1String("OPEN"), QRectF(314, 24, 148, RowHeight),
     QLatin1String("Show serial ports"), QLatin1String("Show the serial ports of this computer")},

    {Kind::Down, 0, DownSkin, DownAt(RowTop[0]), QLatin1String("Mirror port down"), LowerPortTip},
    {Kind::Box, 0, {}, BoxAt(RowTop[0]), QLatin1String("Mirror port"), PortTip},
    {Kind::Up, 0, UpSkin, UpAt(RowTop[0]), QLatin1String("Mirror port up"), HigherPortTip},
    {Kind::Button, 0, SetSkin, SetAt(RowTop[0]), QLatin1String("Connect mirror"), SetTip},
    {Kind::Button, 4, TestSkin, TestAt(RowTop[0]), QLatin1String("Test mirror"),
     QLatin1String("Step the magnification")},

    {Kind::Down, 1, DownSkin, DownAt(RowTop[1]), QLatin1String("Magnescale port down"), LowerPortTip},
    {Kind::Box, 1, {}, BoxAt(RowTop[1]), QLatin1String("Magnescale port"), PortTip},
    {Kind::Up, 1, UpSkin, UpAt(RowTop[1]), QLatin1String("Magnescale port up"), HigherPortTip},
    {Kind::Button, 1, SetSkin, SetAt(RowTop[1]), QLatin1String("Connect Magnescale"), SetTip},
    {Kind::Button, 7, TestSkin, TestAt(RowTop[1]), QLatin1String("Test Magnescale"),
     QLatin1String("Show the gauge's value")},

    {Kind::Down, 2, DownSkin, DownAt(RowTop[2]), QLatin1String("Motor port down"), LowerPortTip},
    {Kind::Box, 2, {}, BoxAt(RowTop[2]), QLatin1String("Motor port"), PortTip},
    {Kind::Up, 2, UpSkin, UpAt(RowTop[2]), QLatin1String("Motor port up"), HigherPortTip},
    {Kind::Button, 2, SetSkin, SetAt(RowTop[2]), QLatin1String("Connect motor"), SetTip},
    {Kind::Button, 5, TestSkin, TestAt(RowTop[2]), QLatin1String("Test motor"),
     QLatin1String("Move the focus by 1000 steps")},

    {Kind::Down, 3, DownSkin, DownAt(RowTop[3]), QLatin1String("Manipulator number down"),
     QLatin1String("Lower number")},
    {Kind::Box,
     3,
     {},
     BoxAt(RowTop[3]),
     QLatin1String("Manipulator number"),
     QLatin1String("Number of the manipulator to test")},
    {Kind::Up, 3, UpSkin, UpAt(RowTop[3]), QLatin1String("Manipulator number up"),
     QLatin1String("Higher number")},
    {Kind::Button, 6, TestSkin, TestAt(RowTop[3]), QLatin1String("Test manipulator"),
     QLatin1String("Jog this manipulator")},

    {Kind::Button, 8, SetSkin, SetAt(RowTop[4]), QLatin1String("Connect camera"),
     QLatin1String("Start the live camera program")},
};

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

void CtlConnection::Build(const QString& programFolder) {
    PaintGround();
    BuildControls(programFolder);
    BuildStateLines();
    Wire();
}

void CtlConnection::PaintGround() {
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

void CtlConnection::BuildControls(const QString& programFolder) {
    const auto button = [&](const Place& place, const QString& name) {
        auto* const made = new usrKVButton(this);
        made->inipath(programFolder);
        made->path(place.skin);
        Identify(*made, Indexed(name, place.index), place.humanName, place.toolTip);
        Add(*made, place.rectangle);
        return made;
    };
    for (const Place& place : Places) {
        const auto index = static_cast<std::size_t>(place.index);
        switch (place.kind) {
            case Kind::Button:
                usrKVButton1_[index] = button(place, QStringLiteral("usrKVButton1"));
                break;
            case Kind::Down:
                usrKVButton2_[index] = button(place, QStringLiteral("usrKVButton2"));
                break;
            case Kind::Up:
                usrKVButton3_[index] = button(place, QStringLiteral("usrKVButton3"));
                break;
            case Kind::Box:
                txtNo_[index] = new NumberBox(this);
                Identify(*txtNo_[index], Indexed(QStringLiteral("txtNo"), place.index), place.humanName,
                         place.toolTip);
                Add(*txtNo_[index], place.rectangle);
        }
    }
}

void CtlConnection::BuildStateLines() {
    for (std::size_t row = 0; row < RowCount; ++row) {
        auto* const label = new NumberLabel(this);
        label->Face(type::Caption, QFont::Normal, NumberLabel::Ground::Bare);
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        Identify(*label, Indexed(QStringLiteral("lblState"), static_cast<int>(row)),
                 RowWordsOf[row].name + QStringLiteral(" state"));
        Add(*label, QRectF(NamesLeft, RowTop[row] + StateTop, NamesRight - NamesLeft, LineHeight));
        lblState_[row] = label;
        ShowState(static_cast<Row>(row), RowState::AtRest);
    }
}

void CtlConnection::Wire() {
    for (std::size_t index = 0; index < ButtonCount; ++index) {
        connect(usrKVButton1_[index], &usrKVButton::clicked, this,
                [this, index] { PressButton(static_cast<int>(index)); });
    }
    for (const Row row : {Mirror, Magnescale, Motor, Manipulator}) {
        NumberBox* const box = txtNo_[static_cast<std::size_t>(row)];
        box->setText(QStringLiteral("1"));
        box->setMaxLength(TypedFigures);
        connect(box, &NumberBox::textChanged, this, [this, row] { txtNo_Change(row); });
        connect(usrKVButton2_[static_cast<std::size_t>(row)], &usrKVButton::clicked, this,
                [this, row] { PressDown(row); });
        connect(usrKVButton3_[static_cast<std::size_t>(row)], &usrKVButton::clicked, this,
                [this, row] { PressUp(row); });
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
    lblState_[index]->setText(words[static_cast<std::size_t>(state)]);
    lblState_[index]->Colour(isBad ? palette::CoralDeepText : palette::Ink2);
}

}  // namespace travo
