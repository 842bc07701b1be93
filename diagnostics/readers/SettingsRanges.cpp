#include "diagnostics/readers/SettingsRanges.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "core/ground/Positions.h"
#include "core/state/SettingsKeys.h"

namespace travo::diagnostics {

namespace {

constexpr std::int32_t Windows = 5;  // the camera and the four small ones
constexpr double Least16 = std::numeric_limits<std::int16_t>::min();
constexpr double Most16 = std::numeric_limits<std::int16_t>::max();
constexpr double Least32 = std::numeric_limits<std::int32_t>::min();
constexpr double Most32 = std::numeric_limits<std::int32_t>::max();
// What a value beyond 16 bits does where 16 are asked for: the load fails.
const QString NoStart = QStringLiteral("TRAVO does not start");

class Collector {
public:
    explicit Collector(const clsIniEdit& settings) : settings_(settings) {}

    // What lies beyond the bounds is taken as the texts say; where a text is empty, and where no number
    // stands there, as the store reads it.
    struct Bounds {
        double least;
        double most;
        QString below;
        QString above;
    };

    void Whole(const QString& section, const QString& key, const Bounds& bounds) {
        const QString stood = settings_.GetString(section, key, QString());
        if (stood.isEmpty()) {
            return;
        }
        const QString read = QString::number(settings_.GetInt(section, key, 0));
        bool isNumber = false;
        const double value = stood.toDouble(&isNumber);
        if (!isNumber) {
            Add(section, key, stood, read);
        } else if (value < bounds.least) {
            Add(section, key, stood, bounds.below.isEmpty() ? read : bounds.below);
        } else if (value > bounds.most) {
            Add(section, key, stood, bounds.above.isEmpty() ? read : bounds.above);
        }
    }

    std::vector<OutOfRange> Found() && { return std::move(found_); }

private:
    void Add(const QString& section, const QString& key, const QString& stood, const QString& taken) {
        found_.push_back({section + QStringLiteral(", ") + key, stood, taken});
    }

    const clsIniEdit& settings_;
    std::vector<OutOfRange> found_;
};

void LookAtPorts(Collector& collector) {
    for (const QLatin1String key : {settings::MirrorKey, settings::MagnescaleKey, settings::MotorKey}) {
        collector.Whole(settings::PortSection, key, {Least16, Most16, NoStart, NoStart});
    }
}

void LookAtUserValues(Collector& collector) {
    const QString usual = QString::number(settings::DefaultOffset);
    for (const QLatin1String key : {settings::XYOffsetKey, settings::ZOffsetKey}) {
        collector.Whole(settings::UserSection, key, {settings::NotStored, Most32, usual, {}});
    }
    for (const QLatin1String key :
         {settings::OffsetOFFKey, settings::ContactOFFKey, settings::LineOFFKey, settings::BirdOPENKey}) {
        collector.Whole(settings::UserSection, key,
                        {settings::NotStored, 1.0, QStringLiteral("0"), QStringLiteral("1")});
    }
}

void LookAtWindows(Collector& collector) {
    const QString closed = QStringLiteral("closed");
    for (std::int32_t window = 0; window < Windows; ++window) {
        collector.Whole(settings::WindowSection, settings::WindowKey(window),
                        {settings::WindowOpen, settings::WindowClosed, closed, closed});
    }
    for (const QLatin1String section :
         {settings::MainWindowSection, settings::BirdViewSection, settings::NeedleWindowSection,
          settings::MirrorWindowSection, settings::MagnificationWindowSection}) {
        for (const QLatin1String key :
             {settings::TopKey, settings::LeftKey, settings::HeightKey, settings::WidthKey}) {
            collector.Whole(section, key, {Least16, Most16, NoStart, NoStart});
        }
    }
}

void LookAtCalibration(Collector& collector, std::int32_t needle) {
    const QString section = settings::CalibrationSection(needle);
    const auto look = [&](const QString& key) { collector.Whole(section, key, {Least32, Most32, {}, {}}); };
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
            look(settings::CalibrationPointKey(point, axis));
        }
        look(settings::ZeroKey(axis));
        look(settings::CenterKey(axis));
    }
}

}  // namespace

std::vector<OutOfRange> ValuesOutOfRange(const clsIniEdit& settings) {
    Collector collector(settings);
    LookAtPorts(collector);
    LookAtUserValues(collector);
    LookAtWindows(collector);
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        LookAtCalibration(collector, needle);
    }
    return std::move(collector).Found();
}

}  // namespace travo::diagnostics
