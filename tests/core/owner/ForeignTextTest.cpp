// Every place where a text from outside is shown or written: a device's description and path, lines from the
// wires in boxes and log, times from the settings file. What looks like markup, holds controls or is endless
// comes out as the text that it is.
#include <QDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QTableWidget>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"
#include "core/owner/PanelOf.h"
#include "platform/Windows1252.h"
#include "platform/qt/QtMessageBoxes.h"

namespace travo::test {
namespace {

struct Text {
    const char* name;
    QString text;
    QString shown;  // what it begins with where it is shown
};

const Text Texts[] = {
    {"Markup", QStringLiteral("<h1>Port</h1><img src=x>&lt;b&gt;<!-- -->"),
     QStringLiteral("<h1>Port</h1><img src=x>&lt;b&gt;<!-- -->")},
    {"Controls", QStringLiteral("a\tb\nc\vd\x1B[31me\x7F\u0090"),
     QStringLiteral("a\u2409b\u240Ac\u240Bd\u241B[31me\u2421")},
    {"SixtyFourKilobytes", QString(64 * 1024 - 8, u'W'), QString(100, u'W')},
};

class ForeignTextTest : public OwnerRig, public ::testing::WithParamInterface<Text> {
protected:
    const QString& Sent() const { return GetParam().text; }
    QByteArray SentBytes() const { return platform::ToWindows1252(Sent()); }

    void Start() {
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        ASSERT_TRUE(window_->Start());
    }
    // One line that begins as the text does, is no longer than can be read, and has a face for every
    // character.
    static void ExpectShown(const QString& seen) {
        EXPECT_TRUE(seen.contains(GetParam().shown)) << seen.left(200).toStdString();
        EXPECT_LE(seen.size(), 2001);
        EXPECT_TRUE(std::all_of(seen.begin(), seen.end(), [](QChar face) { return face.isPrint(); }))
            << seen.left(200).toStdString();
    }
    // What a label that finds out its text's format by itself shows.
    static QString AsShown(const QString& text) {
        if (!Qt::mightBeRichText(text)) {
            return text;
        }
        QTextDocument document;
        document.setHtml(text);
        return document.toPlainText();
    }

    std::unique_ptr<FormMain> window_;
};
INSTANTIATE_TEST_SUITE_P(All, ForeignTextTest, ::testing::ValuesIn(Texts),
                         [](const auto& text) { return std::string(text.param.name); });

TEST_P(ForeignTextTest, CellsOfThePortListAndTheirToolTips) {
    serialPortList_.entries = {{1, Sent(), Sent(), QStringLiteral("in use")}};
    Start();
    CtlConnection& panel = PanelOf<CtlConnection>(*window_);
    QTest::mouseClick(panel.findChild<QWidget*>(QStringLiteral("usrKVButton1(3)")), Qt::LeftButton);
    auto* const table = panel.findChild<QTableWidget*>(QStringLiteral("tblPort"));
    ASSERT_NE(table, nullptr);
    for (const int column : {1, 2}) {
        const QTableWidgetItem& item = *table->item(0, column);
        ExpectShown(item.text());
        const QPoint place = table->visualItemRect(&item).center();
        QHelpEvent help(QEvent::ToolTip, place, table->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table->viewport(), &help);
        ASSERT_TRUE(QToolTip::isVisible());
        ExpectShown(AsShown(QToolTip::text()));
        EXPECT_EQ(AsShown(QToolTip::text()), item.text());
        QToolTip::hideText();
    }
}

TEST_P(ForeignTextTest, CalibrationTimesOfTheSettingsFile) {
    Start();
    window_->Windows().ManiInfo.SetCalibTime(0, Sent(), 0);
    window_->Windows().ManiInfo.SetCalibTime(0, Sent(), 1);
    for (const char* const name : {"lblCalibration(0)", "lblReCalibration(0)"}) {
        auto& label = *window_->Windows().ManiInfo.findChild<QLabel*>(QString::fromLatin1(name));
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        ExpectShown(label.text());
        ExpectShown(label.accessibleName());
        label.grab();
    }
}

TEST_P(ForeignTextTest, LinesOfTheWiresGoToTheLogAsTheyAre) {
    WriteSettings("[COMPort]\r\nMirror=1\r\nMotor=3\r\n");
    Start();
    const std::string sent = SentBytes().toStdString();
    MirrorPort().Receive("n" + sent.substr(0, 3) + "2\r\n");
    MotorPort().Receive(sent + "\r");
    const QByteArray log = ReadLog();
    EXPECT_TRUE(log.contains("14:05:33 - n" + SentBytes().left(3) + "2 : Mirror : Parametar Error\r\n"));
    EXPECT_TRUE(log.contains("14:05:33 - " + SentBytes() + ": Motor : Unknown Error\r\n"));
    ASSERT_FALSE(boxes_.shown.empty());
}

TEST_P(ForeignTextTest, LinesOfTheWiresInTheirBoxes) {
    platform::qt::QtEventLoop loop;
    platform::qt::QtMessageBoxes boxes(loop);
    QTimer::singleShot(0, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        ExpectShown(box->text());
        EXPECT_LE(box->height(), 1000) << "its button is on the screen";
        box->button(QMessageBox::Ok)->click();
    });
    boxes.Show(Sent() + QStringLiteral(": Motor : Unknown Error"), platform::BoxButtons::OK,
               platform::BoxIcon::None);
}

TEST_F(ForeignTextTest, ALineOfManyLineFeedsLeavesTheBoxItsButton) {
    platform::qt::QtEventLoop loop;
    platform::qt::QtMessageBoxes boxes(loop);
    QTimer::singleShot(0, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_LE(box->height(), 600);
        box->button(QMessageBox::Ok)->click();
    });
    boxes.Show(QString(1000, u'\n'), platform::BoxButtons::OK, platform::BoxIcon::None);
}

}  // namespace
}  // namespace travo::test
