// The faults, one click each.
#pragma once

#include <vector>

#include "workbench/window/BenchPlate.h"
#include "workbench/window/BenchPush.h"
#include "workbench/window/FaultChip.h"
#include "workbench/window/FaultTable.h"
#include "workbench/window/Hand.h"
#include "workbench/window/Scene.h"

class QMenu;

namespace workbench {

class FaultPlate : public BenchPlate {
public:
    FaultPlate(Hand hand, QWidget* parent);

    void Show(const Scene& scene);
    // Lower chips of another width.
    void ShowSmall(bool small, int chipWidth);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void PaintMore(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Chip {
        const Fault* fault;
        FaultChip* button;
        FaultChoice chosen;  // what it does and says
    };

    void AddChip(const Fault& fault);
    void Press(Chip& chip);
    void Say(const std::string& line);
    void Choose(Chip& chip, const FaultChoice& choice);
    void OpenMenu(Chip& chip, const QPoint& place);
    void FillMenu(QMenu& menu, Chip& chip);
    void ShowChip(const Chip& chip) const;
    void SayAllClear();
    void Place();
    int ColumnX(int column) const { return 12 + column * (chipWidth_ + 5); }

    Hand hand_;
    std::vector<Chip> chips_;
    BenchPush* clear_ = nullptr;
    bool small_ = false;
    int chipWidth_ = 97;
    Scene scene_;
};

}  // namespace workbench
