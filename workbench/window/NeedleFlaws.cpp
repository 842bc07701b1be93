#include "workbench/window/NeedleFlaws.h"

#include <QMenu>
#include <algorithm>
#include <array>

namespace workbench {

namespace {

struct Flaw {
    const char* key;
    const char* title;
    const char* unit;
    std::array<int, 3> sizes;
    // The numbers behind the needle: the size in the place of each #.
    const char* numbers;
};
constexpr std::array<Flaw, 4> Flaws{{{"noise", "Noise of readings", " counts", {2, 10, 50}, "#"},
                                     {"backlash", "Backlash", " counts an axis", {5, 20, 100}, "# # #"},
                                     {"drift", "Drift", " counts a minute", {10, 100, 1000}, "# # #"},
                                     {"bend", "Bent tip", " units in X", {5, 20, 100}, "# 0 0"}}};

std::string LineOf(const Flaw& flaw, int needle, int size) {
    std::string line = std::string("needle ") + flaw.key + ' ' + std::to_string(needle) + ' ';
    for (const char* at = flaw.numbers; *at != '\0'; ++at) {
        line += *at == '#' ? std::to_string(size) : std::string(1, *at);
    }
    return line;
}

}  // namespace

void AddNeedleFlaws(QMenu& menu, const Scene& scene, const std::function<void(const std::string&)>& say) {
    const int needle = scene.picked;
    const std::string prefix = "needle" + std::to_string(needle) + ':';
    for (const Flaw& flaw : Flaws) {
        const bool isOn =
            std::find(scene.faults.begin(), scene.faults.end(), prefix + flaw.key) != scene.faults.end();
        QMenu* const sizes = menu.addMenu(QStringLiteral("Needle %1: %2%3")
                                              .arg(QString::number(needle), QString::fromLatin1(flaw.title),
                                                   isOn ? QStringLiteral(" (on)") : QString()));
        for (const int size : flaw.sizes) {
            const std::string line = LineOf(flaw, needle, size);
            QObject::connect(sizes->addAction(QString::number(size) + QString::fromLatin1(flaw.unit)),
                             &QAction::triggered, sizes, [say, line] { say(line); });
        }
        QAction* const off = sizes->addAction(QStringLiteral("Off"));
        off->setEnabled(isOn);
        const std::string line = LineOf(flaw, needle, 0);
        QObject::connect(off, &QAction::triggered, sizes, [say, line] { say(line); });
    }
}

}  // namespace workbench
