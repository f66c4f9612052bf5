#include "review/FactText.h"

#include "document/ColorText.h"
#include "document/DashboardDocument.h"
#include "review/OtherFiles.h"

namespace {

bool breaksLines(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format: // can reverse the direction of what follows
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString hex(quint32 value, int digits)
{
    return QString::number(value, 16).rightJustified(digits, u'0');
}

} // namespace

QString FactText::oneLine(const QString& text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        if (breaksLines(c))
            line += QStringLiteral("\\u") + hex(c.unicode(), 4);
        else if (c == u'\\')
            line += QStringLiteral("\\\\");
        else
            line += c;
    }
    return line;
}

QString FactText::quoted(const QString& text)
{
    return u'"' + oneLine(text).replace(u'"', QStringLiteral("\\\"")) + u'"';
}

QString FactText::size(int width, int height)
{
    return QStringLiteral("%1 x %2").arg(width).arg(height);
}

QString FactText::position(int x, int y)
{
    return QStringLiteral("%1, %2").arg(x).arg(y);
}

QString FactText::style(const QString& font, int pixels, const QColor& color)
{
    if (font.isEmpty())
        return QStringLiteral("none");
    QString text = quoted(font) + u' ' + QString::number(pixels) + QStringLiteral(" px");
    if (color.isValid())
        text += u' ' + ColorText::format(color);
    return text;
}

QString FactText::crc(quint32 value)
{
    return QStringLiteral("0x") + hex(value, 8);
}

QString FactText::device(const DashboardDocument& document)
{
    return quoted(document.deviceType()) + QStringLiteral(" code ") +
           QString::number(document.deviceTypeCode());
}

QString FactText::facts(const ChannelDef& channel)
{
    return QStringLiteral("short ") + quoted(channel.shortName) + QStringLiteral(" unit ") +
           quoted(channel.uiv) + QStringLiteral(" id ") + QString::number(channel.fid);
}

QString FactText::facts(const PackageFile& file)
{
    return QString::number(file.size) + QStringLiteral(" bytes crc ") + crc(file.crc);
}
