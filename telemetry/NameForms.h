#pragma once

#include <QString>
#include <QStringList>

/// The forms of a channel name that are compared. Pure functions.
namespace NameForms {

/// Names are compared word by word only up to here, in characters. Real names are far shorter. Each
/// word of one name is searched for in all of the other, so megabytes of words in a damaged layout
/// or recording would block the program.
inline constexpr qsizetype kLongestComparedByWords = 200;

[[nodiscard]] QString lowered(const QString& name);
/// Lower case, without '_' and blanks.
[[nodiscard]] QString compacted(const QString& name);
/// The words within the first kLongestComparedByWords characters, in lower case. '_' and blanks
/// separate them.
[[nodiscard]] QStringList words(const QString& name);

} // namespace NameForms
