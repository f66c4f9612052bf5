#pragma once

#include <QStringList>

/// The font families that the displays know, in the order in which the editor offers them. They
/// need not be installed here.
inline const QStringList kFontFamilies{QStringLiteral("MicrogrammaDBolExt"),
                                       QStringLiteral("Basic Sans SF"),
                                       QStringLiteral("Huge Basic Sans Heavy SF")};
