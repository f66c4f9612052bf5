#pragma once

#include <QColor>
#include <QString>

class DashboardDocument;
struct ChannelDef;
struct PackageFile;

/// How facts of a layout read in one line of text. Not translated: scripts compare them.
namespace FactText {

/// The text without anything that breaks a line or moves a terminal's cursor: line ends, control
/// and format characters become "\u" and four hexadecimal digits, a backslash is doubled.
[[nodiscard]] QString oneLine(const QString& text);
/// The same in double quotes, with those inside escaped.
[[nodiscard]] QString quoted(const QString& text);

/// "800 x 480"
[[nodiscard]] QString size(int width, int height);
/// "40, 20"
[[nodiscard]] QString position(int x, int y);
/// "\"Basic Sans SF\" 48 px 0xffffff00"; "none" without a font.
[[nodiscard]] QString style(const QString& font, int pixels, const QColor& color);
/// "0x00c0ffee"
[[nodiscard]] QString crc(quint32 value);

/// "\"MXS\" code 1201"
[[nodiscard]] QString device(const DashboardDocument& document);
/// "short \"RPM\" unit \"rpm\" id 101"
[[nodiscard]] QString facts(const ChannelDef& channel);
/// "4711 bytes crc 0x00c0ffee"
[[nodiscard]] QString facts(const PackageFile& file);

} // namespace FactText
