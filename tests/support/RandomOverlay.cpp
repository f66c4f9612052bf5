#include "tests/support/RandomOverlay.h"

#include <array>

namespace {

using TestPackage::Object;

QByteArray color(ByteSource& source)
{
    return source.flag() ? "0x" + QByteArray::number(0x10000000u + source.byte() * 65793u, 16)
                         : source.xmlText();
}

/// A property that is mostly there once, but may be missing or doubled.
void addProperty(ByteSource& source, Object& object, const QByteArray& key, const QByteArray& value)
{
    constexpr std::array kTimes{1, 1, 1, 1, 1, 1, 0, 2};
    for (int times = kTimes.at(static_cast<std::size_t>(source.below(8))); times > 0; --times)
        object.properties.push_back({key, value});
}

void addNumber(ByteSource& source, Object& object, const QByteArray& key)
{
    const QByteArray value =
        source.below(8) == 7 ? source.xmlText() : QByteArray::number(source.number());
    addProperty(source, object, key, value);
}

Object unknownObject(ByteSource& source)
{
    Object object{"Mystery", source.flag() ? QByteArray("m") : QByteArray(), {}, {}};
    object.properties.push_back({"SECRET", source.xmlText()});
    // The classes that mean something elsewhere mean nothing inside an unknown object.
    object.objects.push_back({"GMaskParam", "hidden", {{"XPOS", "1"}}, {}});
    return object;
}

Object style(ByteSource& source, const QByteArray& className)
{
    Object object{className, {}, {}, {}};
    addNumber(source, object, "CHARSET_DIM");
    addProperty(source, object, "CHAR_SET_ID_2", source.xmlText());
    addProperty(source, object, "COLORE", color(source));
    addProperty(source, object, "UNKNOWN", source.xmlText());
    return object;
}

Object axis(ByteSource& source)
{
    Object object{"Axis", {}, {}, {}};
    for (const char* const key : {"FID_OK", "FID_PREF", "UDM", "fid", "lnm", "shn"})
        addProperty(source, object, key, source.xmlText());
    return object;
}

Object part(ByteSource& source)
{
    switch (source.below(8)) {
    case 0:
    case 1:
        return style(source, "Digit");
    case 2:
        return style(source, "Label");
    case 3:
    case 4:
        return axis(source);
    case 5:
        return {"Analog", {}, {}, {}};
    case 6:
        return {"Icon", {}, {}, {}};
    default:
        return unknownObject(source);
    }
}

Object page(ByteSource& source)
{
    Object result{"GPageParam", source.flag() ? QByteArray("0") : QByteArray(), {}, {}};
    if (source.below(4) != 3) { // else an element may be the very first child of its page
        addNumber(source, result, "HEIGHT");
        addProperty(source, result, "PAGE_NAME", source.xmlText());
        addNumber(source, result, "WIDTH");
    }
    for (int count = source.below(7); count > 0; --count) {
        result.objects.push_back(source.below(5) == 4 ? unknownObject(source)
                                                      : RandomOverlay::element(source));
    }
    return result;
}

} // namespace

Object RandomOverlay::element(ByteSource& source)
{
    Object result{"GMaskParam", {}, {}, {}};
    if (source.below(8) != 7)
        result.name = "mask." + QByteArray::number(source.byte());
    for (const char* const key : {"HEIGHT", "LOCKED", "WIDTH", "XPOS", "YPOS"})
        addNumber(source, result, key);
    for (int count = source.below(4); count > 0; --count)
        result.objects.push_back(part(source));
    return result;
}

QByteArray RandomOverlay::xml(ByteSource& source)
{
    Object conf{"GConfParam", "conf", {}, {}};
    addNumber(source, conf, "DIMENSIONE_X");
    addNumber(source, conf, "DIMENSIONE_Y");
    for (int count = 1 + source.below(3); count > 0; --count) {
        if (source.below(5) == 4)
            conf.objects.push_back(unknownObject(source));
        conf.objects.push_back(page(source));
    }
    const Object container{
        "Overlay", "root", {{"VERSION", "3"}}, {unknownObject(source), std::move(conf)}};
    return "<overlay_cli>" + TestPackage::toXml(container) + "</overlay_cli>";
}

QByteArray RandomOverlay::deviceXml(ByteSource& source)
{
    std::vector<TestPackage::Channel> channels;
    for (int count = source.below(4); count > 0; --count) {
        channels.push_back({source.number(), source.xmlText(), source.xmlText(), source.xmlText()});
    }
    return TestPackage::deviceXml(source.xmlText(), source.number(), channels);
}
