#include "document/ElementKinds.h"

#include "tests/support/ElementParts.h"

#include <QSet>

#include <gtest/gtest.h>

using ElementKinds::Kind;
using ElementParts::label;
using ElementParts::part;
using TestPackage::Object;

namespace {

std::optional<Kind> kindOf(std::vector<Object> parts)
{
    pugi::xml_document xml;
    const QByteArray text = TestPackage::toXml({"GMaskParam", "mask.1", {}, std::move(parts)});
    EXPECT_TRUE(xml.load_buffer(text.constData(), static_cast<std::size_t>(text.size())));
    return ElementKinds::classify(xml.first_child());
}

} // namespace

TEST(ElementKinds, GaugeWinsOverEverything)
{
    EXPECT_EQ(kindOf({part("Digit"), part("BargraphTrapezio"), part("AiM_Icona"), label("x"),
                      part("Axis"), part("Analog")}),
              Kind::AnalogGauge);
    EXPECT_EQ(kindOf({part("Analog"), part("Digit")}), Kind::AnalogGauge);
}

TEST(ElementKinds, BarComesBeforeDigitAndIcon)
{
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("Digit"), part("BargraphTrapezio")}),
              Kind::BarWithValue);
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("BargraphTrapezio"), part("Axis")}),
              Kind::HorizontalBar);
}

TEST(ElementKinds, DigitComesBeforeIcon)
{
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("Digit")}), Kind::ValueWithIcon);
    EXPECT_EQ(kindOf({part("Digit"), label("x")}), Kind::NumericValue);
    EXPECT_EQ(kindOf({part("AiM_Icona"), label("x"), part("Axis")}), Kind::Icon);
}

TEST(ElementKinds, TheIconClassThatDecidesDrawingDoesNotMakeAnIconDonor)
{
    EXPECT_EQ(kindOf({part("Icon")}), std::nullopt);
}

TEST(ElementKinds, LabelsAloneAreACaptionOrAnInfoStrip)
{
    EXPECT_EQ(kindOf({label("a")}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({label("a"), label("b")}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({label("a"), label("b"), label("c")}), Kind::InfoStrip);
}

TEST(ElementKinds, LabelsWithoutTextCountButDoNotQualify)
{
    EXPECT_EQ(kindOf({label("")}), std::nullopt);
    EXPECT_EQ(kindOf({part("Label"), part("Label"), part("Label")}), std::nullopt);
    EXPECT_EQ(kindOf({label(""), label("b"), part("Label")}), Kind::InfoStrip);
}

TEST(ElementKinds, AnyTextPropertyOfALabelQualifies)
{
    EXPECT_EQ(kindOf({{"Label", {}, {{"TEXT", ""}, {"TEXT", "second"}}, {}}}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({{"Label", {}, {{"OTHER", "text"}}, {}}}), std::nullopt);
    EXPECT_EQ(kindOf({label(" ")}), std::nullopt) << "blanks are no text";
}

TEST(ElementKinds, LabelsBoundToAChannelAreNoDonor)
{
    EXPECT_EQ(kindOf({label("a"), part("Axis")}), std::nullopt);
    EXPECT_EQ(kindOf({label("a"), label("b"), label("c"), part("Axis")}), std::nullopt);
}

TEST(ElementKinds, NothingKnownIsNoDonor)
{
    EXPECT_EQ(kindOf({}), std::nullopt);
    EXPECT_EQ(kindOf({part("Axis")}), std::nullopt);
    EXPECT_EQ(kindOf({part("digit"), part("Something")}), std::nullopt);
    EXPECT_EQ(ElementKinds::classify({}), std::nullopt);
}

TEST(ElementKinds, OnlyDirectChildObjectsCount)
{
    EXPECT_EQ(kindOf({{"Group", {}, {}, {part("Analog")}}}), std::nullopt);
    EXPECT_EQ(kindOf({{"Label", {}, {}, {label("inner")}}}), std::nullopt);
}

TEST(ElementKinds, EveryKindHasAnIdentifierOfItsOwn)
{
    QSet<QString> ids;
    for (int kind = 0; kind <= static_cast<int>(Kind::InfoStrip); ++kind)
        ids.insert(ElementKinds::id(static_cast<Kind>(kind)));
    EXPECT_EQ(ids,
              (QSet<QString>{QStringLiteral("analog-gauge"), QStringLiteral("bar-with-value"),
                             QStringLiteral("horizontal-bar"), QStringLiteral("value-with-icon"),
                             QStringLiteral("numeric-value"), QStringLiteral("icon"),
                             QStringLiteral("static-label"), QStringLiteral("info-strip")}));
    EXPECT_EQ(ElementKinds::id(Kind::NumericValue), QStringLiteral("numeric-value"));
}

TEST(ElementKinds, EveryKindHasAName)
{
    EXPECT_EQ(ElementKinds::name(Kind::AnalogGauge), QStringLiteral("Analog gauge"));
    EXPECT_EQ(ElementKinds::name(Kind::BarWithValue), QStringLiteral("Bar + value"));
    EXPECT_EQ(ElementKinds::name(Kind::HorizontalBar), QStringLiteral("Horizontal bar"));
    EXPECT_EQ(ElementKinds::name(Kind::ValueWithIcon), QStringLiteral("Numeric value + icon"));
    EXPECT_EQ(ElementKinds::name(Kind::NumericValue), QStringLiteral("Numeric value"));
    EXPECT_EQ(ElementKinds::name(Kind::Icon), QStringLiteral("Icon"));
    EXPECT_EQ(ElementKinds::name(Kind::StaticLabel), QStringLiteral("Static label"));
    EXPECT_EQ(ElementKinds::name(Kind::InfoStrip), QStringLiteral("Info strip (multi-label)"));
}
