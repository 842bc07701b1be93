// What every panel and window shows, against looks.txt: pictures by their skin names, painted texts and
// icons.
#include <QApplication>
#include <algorithm>
#include <map>
#include <variant>

#include "controls/SkinNames.h"
#include "controls/SkinTab.h"
#include "controls/usrKVXscroll.h"
#include "core/owner/FormMainRig.h"

namespace travo::test {
namespace {

using Rows = std::vector<std::string>;

// By panel or window, its rows in the order of the alphabet.
std::map<QString, Rows> Table() {
    std::map<QString, Rows> table;
    QFile file(QStringLiteral(LOOKS_TABLE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QString section;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('['))) {
            section = line.mid(1, line.size() - 2);
        } else if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) {
            table[section].push_back(line.toStdString());
        }
    }
    for (auto& [name, rows] : table) {
        std::sort(rows.begin(), rows.end());
    }
    return table;
}

QString KindOf(const PaintedText& text) {
    if (text.pixels == type::Caption && text.colour == palette::Ink2) {
        return text.weight == QFont::DemiBold ? QStringLiteral("caption") : QStringLiteral("hint");
    }
    const bool isName = text.weight != QFont::Normal && text.colour != palette::Ink2;
    return QStringLiteral("%1 %2")
        .arg(isName ? QStringLiteral("name") : QStringLiteral("small"))
        .arg(text.pixels);
}

QString RowOf(const PaintedText& text) {
    const QString end = text.alignment == Qt::AlignRight     ? QStringLiteral("right")
                        : text.alignment == Qt::AlignHCenter ? QStringLiteral("centre")
                                                             : QStringLiteral("left");
    return QStringLiteral("%1 %2 %3: %4").arg(KindOf(text), end).arg(text.x).arg(text.text);
}

QString RowOf(const PaintedIcon& icon) {
    return QStringLiteral("icon %1 at %2: %3").arg(icon.side).arg(icon.middleX).arg(icon.name);
}

// Plates, rules and slots hold neither text nor picture.
template <typename Item>
QString RowOf(const Item&) {
    return {};
}

QString SkinOf(const QWidget& widget) {
    if (const auto* const button = qobject_cast<const SkinButton*>(&widget)) {
        return button->path();
    }
    if (const auto* const image = qobject_cast<const SkinImage*>(&widget)) {
        return image->path();
    }
    const auto* const bar = qobject_cast<const usrKVXscroll*>(&widget);
    return bar == nullptr ? QString() : bar->path();
}

bool SaysTheSameAlways(const QLabel& label) {
    return label.objectName().startsWith(QStringLiteral("lblName")) ||
           label.objectName() == QStringLiteral("lblWaring");
}

void AddRowsOf(const QWidget& widget, Rows& rows) {
    if (const QString skin = SkinOf(widget); !skin.isEmpty()) {
        rows.push_back((widget.objectName() + QStringLiteral(" = ") + skin).toStdString());
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&widget);
        label != nullptr && SaysTheSameAlways(*label)) {
        rows.push_back((label->objectName() + QStringLiteral(": ") + label->text()).toStdString());
    }
    if (const auto* const canvas = qobject_cast<const PanelCanvas*>(&widget)) {
        for (const PanelItem& item : canvas->Items()) {
            const QString row = std::visit([](const auto& each) { return RowOf(each); }, item);
            if (!row.isEmpty()) {
                rows.push_back(row.toStdString());
            }
        }
    }
}

class FormMainLooksTest : public FormMainRig {
protected:
    QWidget* Find(const QString& name) {
        const QWidgetList all = QApplication::allWidgets();
        const auto found = std::find_if(all.begin(), all.end(), [&name](const QWidget* widget) {
            return widget->objectName() == name &&
                   (widget->isWindow() || name.startsWith(QLatin1String("Ctl")));
        });
        return found == all.end() ? nullptr : *found;
    }
    // The rows of a panel or window, without those of what has rows of its own.
    Rows Shown(QWidget& top) {
        Rows rows;
        AddRowsOf(top, rows);
        for (QObject* const child : top.children()) {
            auto* const widget = qobject_cast<QWidget*>(child);
            if (widget != nullptr && !widget->isWindow() && !table.contains(widget->objectName())) {
                const Rows below = Shown(*widget);
                rows.insert(rows.end(), below.begin(), below.end());
            }
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    const std::map<QString, Rows> table = Table();
};

TEST_F(FormMainLooksTest, EveryPanelAndWindowShowsTheTextsAndPicturesOfTheTable) {
    EXPECT_EQ(table.size(), 11U) << "main window, six panels, four windows";
    for (const auto& [name, expected] : table) {
        QWidget* const top = Find(name);
        ASSERT_NE(top, nullptr) << name.toStdString();
        const Rows shown = Shown(*top);
        Rows missing;
        Rows tooMuch;
        std::set_difference(expected.begin(), expected.end(), shown.begin(), shown.end(),
                            std::back_inserter(missing));
        std::set_difference(shown.begin(), shown.end(), expected.begin(), expected.end(),
                            std::back_inserter(tooMuch));
        EXPECT_EQ(missing, Rows()) << "of the table, not in " << name.toStdString();
        EXPECT_EQ(tooMuch, Rows()) << "in " << name.toStdString() << ", not in the table";
    }
}

TEST_F(FormMainLooksTest, EveryPictureOfTheTableIsInTheSkin) {
    const QStringList files = AllSkinNames();
    for (const auto& [name, rows] : table) {
        for (const std::string& row : rows) {
            const QString text = QString::fromStdString(row);
            const QString skin = text.startsWith(QLatin1String("icon "))
                                     ? text.section(QStringLiteral(": "), 1)
                                     : text.section(QStringLiteral(" = "), 1);
            EXPECT_TRUE(skin.isEmpty() || files.contains(skin) ||
                        files.contains(skin + QStringLiteral("-up")) ||
                        files.contains(skin + QStringLiteral("-track-up")))
                << row;
        }
    }
}

}  // namespace
}  // namespace travo::test
