// The labels of the score: a caption and below it what was counted or measured.
#pragma once

#include <QString>
#include <QWidget>

#include "workbench/window/BenchAccess.h"
#include "workbench/window/Scene.h"

namespace workbench {

// A number under its caption; while it alarms, white on fault red.
class ScoreNumber : public QWidget, public Told {
public:
    ScoreNumber(const QString& objectName, const QString& name, QWidget* parent);

    void Show(int number, bool alarms);

    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }
    QString AccessibleValue() const override { return QString::number(number_); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int number_ = 0;
    bool alarms_ = false;
};

// The last landing: its distance, and behind it as much else as there is room for.
class ScoreLanding : public QWidget, public Told {
public:
    explicit ScoreLanding(QWidget* parent);

    void Show(const SceneLanding& landing);

    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }
    // Whole, also where there is no room for all of it.
    QString AccessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SceneLanding landing_;
};

}  // namespace workbench
