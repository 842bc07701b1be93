// Every control of the running program by its name in the code: the human name and the help that the table of
// the accessibility tests gives it. What assistive programs make of them is seen there.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <vector>

#include "core/owner/FormMain.h"
#include "platform/qt/QtPrivateProfile.h"
#include "support/FakeMachine.h"

namespace travo::test {

namespace {

struct Row {
    QString place;
    QString object;
    QString name;
    QString help;
    bool isValue;
};

// The value of a key of a table's row, empty where the row has no such key.
QString ValueOf(const QString& line, const QString& key) {
    static const QString pattern = QStringLiteral("\\b%1 = \"((?:\\\\.|[^\"\\\\])*)\"");
    return QRegularExpression(pattern.arg(key)).match(line).captured(1);
}

// A place is named in a line of its own, and each of its controls stands in one.
std::vector<Row> ReadTable() {
    QFile file(QStringLiteral(CONTROLS_TABLE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<Row> rows;
    QString place;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("name = "))) {
            place = ValueOf(line, QStringLiteral("name"));
        } else if (line.startsWith(QLatin1String("  { "))) {
            rows.push_back({place, ValueOf(line, QStringLiteral("object")),
                            ValueOf(line, QStringLiteral("name")), ValueOf(line, QStringLiteral("help")),
                            ValueOf(line, QStringLiteral("role")) == QLatin1String("value")});
        }
    }
    return rows;
}

class ControlNamesTest : public ::testing::Test {
protected:
    ControlNamesTest() {
        machine_.folders.program = program_.path();
        machine_.folders.applicationData = data_.path();
        window_ = std::make_unique<FormMain>(machine_.Seams(profile_));
        EXPECT_TRUE(window_->Start());
        // The dialog with the serial ports is there from the first time that it is asked for.
        QTest::mouseClick(
            Place(QStringLiteral("Connection"))->findChild<QWidget*>(QStringLiteral("usrKVButton1(3)")),
            Qt::LeftButton);
    }

    // The main window, one of its panels, or a small window.
    QWidget* Place(const QString& name) const {
        if (name == QLatin1String("Main window")) {
            return window_.get();
        }
        for (auto* const panel : window_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (panel->accessibleName() == name && qobject_cast<PanelCanvas*>(panel) != nullptr) {
                return panel;
            }
        }
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == name) {
                return window;
            }
        }
        return nullptr;
    }
    // The controls of a place; the main window's panels, and a panel's dialog, are places of their own.
    static QList<QWidget*> Controls(const QWidget& place) {
        const bool isMain = place.objectName() == QLatin1String("FormMain");
        QList<QWidget*> controls = place.findChildren<QWidget*>(
            QString(), isMain ? Qt::FindDirectChildrenOnly : Qt::FindChildrenRecursively);
        controls.removeIf([&](const QWidget* control) { return control->window() != place.window(); });
        return controls;
    }

    QTemporaryDir program_;
    QTemporaryDir data_;
    FakeMachine machine_;
    platform::QtPrivateProfile profile_;
    std::unique_ptr<FormMain> window_;
};

TEST_F(ControlNamesTest, EveryControlOfTheTableBearsItsHumanNameAndItsHelp) {
    const std::vector<Row> rows = ReadTable();
    EXPECT_GE(rows.size(), 200U);
    for (const Row& row : rows) {
        SCOPED_TRACE((row.place + QLatin1String(": ") + row.object).toStdString());
        const QWidget* const place = Place(row.place);
        ASSERT_NE(place, nullptr);
        const auto* const control = place->findChild<QWidget*>(row.object);
        ASSERT_NE(control, nullptr) << row.name.toStdString();
        const QString human = row.isValue ? control->accessibleDescription() : control->accessibleName();
        EXPECT_EQ(human.toStdString(), row.name.toStdString());
        // A text that is no button has no tooltip, but may have a description.
        const bool isTold = row.isValue || !control->toolTip().isEmpty();
        EXPECT_EQ((isTold ? control->toolTip() : control->accessibleDescription()).toStdString(),
                  row.help.toStdString());
    }
}

TEST_F(ControlNamesTest, EveryControlWithAHumanNameStandsInTheTableOnce) {
    QSet<QString> known;
    QSet<QString> places;
    for (const Row& row : ReadTable()) {
        const QString key = row.place + QLatin1Char('/') + row.object;
        EXPECT_FALSE(known.contains(key)) << key.toStdString();
        known.insert(key);
        places.insert(row.place);
    }
    for (const QString& place : std::as_const(places)) {
        for (const QWidget* const control : Controls(*Place(place))) {
            const bool isNamed = !control->accessibleName().isEmpty() || !control->toolTip().isEmpty();
            const bool isPanel = qobject_cast<const PanelCanvas*>(control) != nullptr;
            if (isNamed && !isPanel) {
                EXPECT_TRUE(known.contains(place + QLatin1Char('/') + control->objectName()))
                    << place.toStdString() << ": " << control->objectName().toStdString();
            }
        }
    }
}

}  // namespace

}  // namespace travo::test
