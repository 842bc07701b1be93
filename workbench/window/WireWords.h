// What single lines of the three wires mean; see docs/wire-formats.md for the lines themselves.
#pragma once

#include <QString>
#include <optional>

namespace workbench {

// Each takes a line without its end and gives nothing for one that it does not know.
std::optional<QString> MirrorCommandText(const QString& line);
std::optional<QString> MirrorAnswerText(const QString& line);
std::optional<QString> MotorCommandText(const QString& line);  // the Ergo unit's short forms as well
std::optional<QString> MotorAnswerText(const QString& line);
std::optional<QString> GaugeCommandText(const QString& line);
std::optional<QString> GaugeAnswerText(const QString& line);

// "2×", "0.35×", "4×", for 0 "between two objectives"; empty for any other index.
QString ObjectiveText(int magnification);

}  // namespace workbench
