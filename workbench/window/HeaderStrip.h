// The strip along the window's upper edge: what this is, how the wires stand, and the switch of the card.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "workbench/window/BenchSwitch.h"
#include "workbench/window/Scene.h"
#include "workbench/window/WirePill.h"

namespace workbench {

class HeaderStrip : public QWidget {
public:
    // A driver that has had no call for so long is quiet; none comes during a long move.
    static constexpr int QuietAfter = 8000;  // ms

    // `switchCard` shows or hides the first ten minutes.
    HeaderStrip(std::function<void()> switchCard, QWidget* parent);

    // At a time in ms that never runs back.
    void Show(const Scene& scene, std::int64_t now);
    void ShowCard(bool shown);
    // Without the sentence, and closer to its edges.
    void ShowSmall(bool small);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Place();
    void ShowWire(WirePill& pill, const Scene& scene, const std::string& wire);
    void ShowDriver(const Scene& scene, std::int64_t now);

    bool small_ = false;
    std::array<WirePill*, 3> wires_{};
    WirePill* driver_ = nullptr;
    WirePill* camera_ = nullptr;
    BenchSwitch* lesson_ = nullptr;
    std::int64_t calls_ = -1;  // of the driver, so far
    std::optional<std::int64_t> called_;
};

}  // namespace workbench
