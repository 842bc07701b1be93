#include "platform/qt/QtMessageBoxes.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProxyStyle>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <functional>

namespace travo::platform::qt {

namespace {

class QtMessageBoxesTest : public testing::Test {
protected:
    // The operator's hand: called with the box once it is on show.
    void WhenShown(std::function<void(QMessageBox&)> hand) {
        QTimer::singleShot(0, [hand = std::move(hand)] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            hand(*box);
        });
    }
    static void Click(QMessageBox& box, QMessageBox::StandardButton button) {
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    }

    QtEventLoop loop_;
    QtMessageBoxes boxes_{loop_};
};

TEST_F(QtMessageBoxesTest, ShowsPlainTextSoThatALineFromAWireIsNeverTakenForMarkup) {
    const QString line = QStringLiteral("<b>nD2A2</b><img src=x> : Mirror : Parametar Error");
    WhenShown([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), line);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        for (const QLabel* const label : box.findChildren<QLabel*>()) {
            if (label->text() == line) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
            }
        }
        Click(box, QMessageBox::Ok);
    });
    EXPECT_EQ(boxes_.Show(line, BoxButtons::OK, BoxIcon::None), BoxAnswer::OK);
}

TEST_F(QtMessageBoxesTest, ALineOfAMillionCharactersIsShownCut) {
    const QString line(1000000, QLatin1Char('x'));
    WhenShown([&](QMessageBox& box) {
        EXPECT_EQ(box.text().size(), 2001);
        EXPECT_TRUE(line.startsWith(box.text().left(2000)));
        Click(box, QMessageBox::Ok);
    });
    EXPECT_EQ(boxes_.Show(line, BoxButtons::OK, BoxIcon::None), BoxAnswer::OK);
}

TEST_F(QtMessageBoxesTest, EachButtonGivesItsAnswer) {
    WhenShown([](QMessageBox& box) { Click(box, QMessageBox::Ok); });
    EXPECT_EQ(boxes_.Show(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None), BoxAnswer::OK);
    WhenShown([](QMessageBox& box) { Click(box, QMessageBox::Cancel); });
    EXPECT_EQ(boxes_.Show(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None), BoxAnswer::Cancel);
    WhenShown([](QMessageBox& box) { Click(box, QMessageBox::Yes); });
    EXPECT_EQ(boxes_.Show(QStringLiteral("?"), BoxButtons::YesNo, BoxIcon::None), BoxAnswer::Yes);
    WhenShown([](QMessageBox& box) { Click(box, QMessageBox::No); });
    EXPECT_EQ(boxes_.Show(QStringLiteral("?"), BoxButtons::YesNo, BoxIcon::None), BoxAnswer::No);
}

TEST_F(QtMessageBoxesTest, ClosingABoxWithoutAButtonIsOkOrCancelOrNo) {
    for (const auto& [buttons, answer] :
         {std::pair{BoxButtons::OK, BoxAnswer::OK}, std::pair{BoxButtons::OKCancel, BoxAnswer::Cancel},
          std::pair{BoxButtons::YesNo, BoxAnswer::No}}) {
        WhenShown([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(boxes_.Show(QStringLiteral("?"), buttons, BoxIcon::None), answer);
    }
}

TEST_F(QtMessageBoxesTest, OnlyTheWarningBearsTheStopIcon) {
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        Click(box, QMessageBox::Ok);
    });
    boxes_.Show(QStringLiteral("WARNING!"), BoxButtons::OK, BoxIcon::Stop);
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        Click(box, QMessageBox::Ok);
    });
    boxes_.Show(QStringLiteral("Z"), BoxButtons::OK, BoxIcon::None);
}

TEST_F(QtMessageBoxesTest, ButtonsAreAsLargeAsAGlovedFinger) {
    WhenShown([](QMessageBox& box) {
        for (const QAbstractButton* const button : box.buttons()) {
            EXPECT_GE(button->width(), 88);
            EXPECT_GE(button->height(), 44);
        }
        Click(box, QMessageBox::Ok);
    });
    boxes_.Show(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None);
}

// As on a desktop whose buttons bear pictures.
class StyleWithPictures : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST_F(QtMessageBoxesTest, NoButtonBearsAPictureOfTheToolkits) {
    const QString before = QApplication::style()->objectName();
    QApplication::setStyle(new StyleWithPictures);
    const QMessageBox plain(QMessageBox::NoIcon, {}, {}, QMessageBox::Ok);
    ASSERT_FALSE(plain.button(QMessageBox::Ok)->icon().isNull());
    for (const BoxButtons buttons : {BoxButtons::OK, BoxButtons::OKCancel, BoxButtons::YesNo}) {
        WhenShown([](QMessageBox& box) {
            for (const QAbstractButton* const button : box.buttons()) {
                EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
            }
            box.reject();
        });
        boxes_.Show(QStringLiteral("?"), buttons, BoxIcon::None);
    }
    QApplication::setStyle(before);
}

// Places within a box.
QRect In(const QMessageBox& box, const QWidget& widget) {
    return {widget.mapTo(&box, QPoint(0, 0)), widget.size()};
}
QLabel& TextOf(const QMessageBox& box) { return *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")); }

TEST_F(QtMessageBoxesTest, TextAndButtonsKeepTheSameDistanceToAllFourSides) {
    for (const char* const text :
         {"Z", "Did you set it at this position?",
          "Do you want to end? This will clear all saved cell and escape positions."}) {
        for (const BoxButtons buttons : {BoxButtons::OK, BoxButtons::OKCancel, BoxButtons::YesNo}) {
            WhenShown([](QMessageBox& box) {
                QRect all = In(box, TextOf(box));
                EXPECT_EQ(all.left(), 20);
                EXPECT_EQ(all.top(), 20);
                for (const QAbstractButton* const button : box.buttons()) {
                    all |= In(box, *button);
                }
                EXPECT_EQ(all, box.rect().adjusted(20, 20, -20, -20)) << box.text().toStdString();
                box.reject();
            });
            boxes_.Show(QString::fromLatin1(text), buttons, BoxIcon::None);
        }
    }
}

TEST_F(QtMessageBoxesTest, TheWarningHasItsThreeLinesAndNoFourth) {
    WhenShown([](QMessageBox& box) {
        const QLabel& text = TextOf(box);
        const int line = text.fontMetrics().lineSpacing();
        EXPECT_LT(text.height(), 4 * line);
        EXPECT_EQ(text.heightForWidth(text.width()), text.heightForWidth(10000));
        const auto* const icon = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
        EXPECT_EQ(In(box, *icon).topLeft(), QPoint(20, 20));
        EXPECT_EQ(In(box, text).top(), 20);
        EXPECT_EQ(box.width() - 20, In(box, text).right() + 1);
        box.reject();
    });
    boxes_.Show(QStringLiteral("WARNING!\r\n"
                               "There is a possibility  the needles will come in contact.\r\n"
                               "Movement is discontinued.  Please move the needles manually."),
                BoxButtons::OK, BoxIcon::Stop);
}

TEST_F(QtMessageBoxesTest, InAnOrdinaryQuestionEnterIsOk) {
    WhenShown([](QMessageBox& box) {
        EXPECT_NE(box.focusWidget(), box.button(QMessageBox::Cancel));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(boxes_.Show(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None), BoxAnswer::OK);
}

TEST_F(QtMessageBoxesTest, WhereCancelHasTheFocusEnterAndSpaceAreCancel) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        WhenShown([key](QMessageBox& box) {
            EXPECT_EQ(box.focusWidget(), box.button(QMessageBox::Cancel));
            QTest::keyClick(box.focusWidget() != nullptr ? box.focusWidget() : &box, key);
            EXPECT_FALSE(box.isVisible());
            box.reject();
        });
        EXPECT_EQ(boxes_.ShowSo(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None,
                                {.beside = {}, .isFocusOnCancel = true}),
                  BoxAnswer::Cancel);
    }
    WhenShown([](QMessageBox& box) { Click(box, QMessageBox::Ok); });
    EXPECT_EQ(boxes_.ShowSo(QStringLiteral("?"), BoxButtons::OKCancel, BoxIcon::None,
                            {.beside = {}, .isFocusOnCancel = true}),
              BoxAnswer::OK);
}

TEST_F(QtMessageBoxesTest, ABoxOpensBesideWhatItAsksAbout) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize picture(378, 378);
    for (const QPoint& corner : {screen.topLeft(), screen.bottomRight() - QPoint(377, 377), QPoint(16, 44)}) {
        const QRect asked(corner, picture);
        WhenShown([&](QMessageBox& box) {
            EXPECT_TRUE(box.frameGeometry().intersected(asked).isEmpty()) << corner.x();
            EXPECT_TRUE(screen.contains(box.frameGeometry()));
            box.reject();
        });
        boxes_.ShowSo(QStringLiteral("Did you set it at this position?"), BoxButtons::YesNo, BoxIcon::None,
                      {.beside = asked});
    }
}

TEST_F(QtMessageBoxesTest, AnOperationThatShowsABoxWaits) {
    WhenShown([this](QMessageBox& box) {
        EXPECT_TRUE(loop_.Waiting());
        Click(box, QMessageBox::Ok);
    });
    boxes_.Show(QStringLiteral("?"), BoxButtons::OK, BoxIcon::None);
    EXPECT_FALSE(loop_.Waiting());
}

TEST_F(QtMessageBoxesTest, DismissEndsBoxesThatAreOnShowInEachOther) {
    WhenShown([this](QMessageBox&) {
        WhenShown([this](QMessageBox&) { boxes_.Dismiss(); });
        EXPECT_EQ(boxes_.Show(QStringLiteral("inner"), BoxButtons::YesNo, BoxIcon::None), BoxAnswer::No);
    });
    EXPECT_EQ(boxes_.Show(QStringLiteral("outer"), BoxButtons::OKCancel, BoxIcon::None), BoxAnswer::Cancel);
    EXPECT_EQ(boxes_.Show(QStringLiteral("later"), BoxButtons::OKCancel, BoxIcon::None), BoxAnswer::Cancel);
}

}  // namespace

}  // namespace travo::platform::qt
