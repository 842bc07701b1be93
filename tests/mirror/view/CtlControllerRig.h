// The pad on show in a window, with a button beside it, on open ports.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "controls/usrKVButton.h"
#include "mirror/view/CtlController.h"
#include "mirror/view/MirrorWindowRig.h"

namespace travo::test {

// From (0, 0) on port 1; Y before X.
inline const std::array<std::vector<std::string>, 18> SentByArea{{{},
                                                                  {"1 cD1A10"},
                                                                  {"1 cD1A10", "1 cD2A-10"},
                                                                  {"1 cD2A-10"},
                                                                  {"1 cD1A-10", "1 cD2A-10"},
                                                                  {"1 cD1A-10"},
                                                                  {"1 cD1A-10", "1 cD2A10"},
                                                                  {"1 cD2A10"},
                                                                  {"1 cD1A10", "1 cD2A10"},
                                                                  {"1 cD1A1"},
                                                                  {"1 cD1A1", "1 cD2A-1"},
                                                                  {"1 cD2A-1"},
                                                                  {"1 cD1A-1", "1 cD2A-1"},
                                                                  {"1 cD1A-1"},
                                                                  {"1 cD1A-1", "1 cD2A1"},
                                                                  {"1 cD2A1"},
                                                                  {"1 cD1A1", "1 cD2A1"},
                                                                  {"1 cD2A0", "1 cD1A0"}}};

class CtlControllerRig : public MirrorWindowRig {
protected:
    CtlControllerRig() {
        rig.OpenPorts();
        pad.inipath(SkinHome());
        window.resize(400, 400);
        pad.move(20, 20);
        other.setGeometry(200, 20, 100, 40);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void Press(int area) { QTest::mousePress(&pad, Qt::LeftButton, {}, PadPoint(area)); }
    void ReleaseAt(const QPoint& place) { QTest::mouseRelease(&pad, Qt::LeftButton, {}, place); }
    void Click(int area) {
        Press(area);
        ReleaseAt(PadPoint(area));
    }
    void Key(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, bool repeats = false) {
        QKeyEvent event(type, key, modifiers, QString(), repeats);
        QApplication::sendEvent(&pad, &event);
    }
    void Move(const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, QPointF(place), QPointF(pad.mapToGlobal(place)), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QApplication::sendEvent(&pad, &event);
    }

    QWidget window;
    CtlController pad{{rig.communication, rig.mirrorMove, rig.display}, &window};
    usrKVButton other{&window};
};

}  // namespace travo::test
