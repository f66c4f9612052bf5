#include "canvas/SpeedUnit.h"

#include <QCoreApplication>

#include <array>

namespace {

struct Row
{
    SpeedUnit unit;
    const char* text;
    double perMetrePerSecond;
};

constexpr std::array kRows{
    Row{SpeedUnit::KilometresPerHour, QT_TRANSLATE_NOOP("SpeedUnit", "km/h"), 3.6},
    Row{SpeedUnit::MilesPerHour, QT_TRANSLATE_NOOP("SpeedUnit", "mph"), 2.23694},
    Row{SpeedUnit::Knots, QT_TRANSLATE_NOOP("SpeedUnit", "knots"), 1.94384},
};

} // namespace

QStringList SpeedUnits::texts()
{
    QStringList texts;
    for (const Row& row : kRows)
        texts.append(QCoreApplication::translate("SpeedUnit", row.text));
    return texts;
}

double SpeedUnits::fromMetresPerSecond(double speed, SpeedUnit unit)
{
    for (const Row& row : kRows) {
        if (row.unit == unit)
            return speed * row.perMetrePerSecond;
    }
    return speed;
}
