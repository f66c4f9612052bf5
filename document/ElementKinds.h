#pragma once

#include <QString>

#include <pugixml.hpp>

#include <optional>

/// What an element looks like to the user: finer than ElementKind, which decides how it is drawn.
namespace ElementKinds {

enum class Kind
{
    AnalogGauge,
    BarWithValue,
    HorizontalBar,
    ValueWithIcon,
    NumericValue,
    Icon,
    StaticLabel,
    InfoStrip
};

/// The kind of an element object, by the classes of its children; nullopt for an element that
/// cannot serve as a donor: it has none of the parts, or only labels and either no text or a
/// channel.
[[nodiscard]] std::optional<Kind> classify(pugi::xml_node element);

/// The kind's identifier for programs: fixed, never translated.
[[nodiscard]] QString id(Kind kind);
/// The kind's name for people, translated.
[[nodiscard]] QString name(Kind kind);

} // namespace ElementKinds
