#include "document/XmlTree.h"

#include "document/DocumentLimits.h"

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <string>

namespace XmlTree {

namespace {

bool isBlank(const char* bytes)
{
    while (*bytes == ' ' || *bytes == '\t' || *bytes == '\r' || *bytes == '\n')
        ++bytes;
    return *bytes == '\0';
}

void replaceContent(pugi::xml_node property, const char* bytes)
{
    property.remove_children();
    property.append_child(pugi::node_pcdata).set_value(bytes);
}

} // namespace

pugi::xml_node nthObject(pugi::xml_node parent, const char* className, int index)
{
    for (const pugi::xml_node child : objects(parent)) {
        if (hasClass(child, className) && index-- == 0)
            return child;
    }
    return {};
}

pugi::xml_node firstProperty(pugi::xml_node object, const char* key)
{
    return object.find_child([key](pugi::xml_node child) {
        return same(child.name(), kProperty) && same(keyOf(child), key);
    });
}

pugi::xml_node lastProperty(pugi::xml_node object, const char* key)
{
    pugi::xml_node last;
    for (const pugi::xml_node property : properties(object)) {
        if (same(keyOf(property), key))
            last = property;
    }
    return last;
}

QString decoded(const char* bytes)
{
    if (isBlank(bytes))
        return {};
    constexpr qsizetype kMostBytes = 4 * DocumentLimits::kTextLength; // UTF-8 takes up to four
    QString text = QString::fromUtf8(bytes, static_cast<qsizetype>(qstrnlen(bytes, kMostBytes)));
    if (text.size() <= DocumentLimits::kTextLength)
        return text;
    text.truncate(DocumentLimits::kTextLength);
    if (text.back().isHighSurrogate())
        text.chop(1); // half of a character
    return text;
}

QString text(pugi::xml_node property)
{
    return decoded(property.child_value());
}

std::int32_t number(pugi::xml_node property)
{
    return std::atoi(property.child_value());
}

void setText(pugi::xml_node property, const QString& value)
{
    const QByteArray bytes =
        text(property) == value ? QByteArray(property.child_value()) : value.toUtf8();
    replaceContent(property, bytes.constData());
}

void setNumber(pugi::xml_node property, int value)
{
    replaceContent(property, std::to_string(value).c_str());
}

void appendProperty(pugi::xml_node object, const char* key, const QString& value)
{
    pugi::xml_node property = object.append_child(kProperty);
    property.append_attribute(kKey).set_value(key);
    if (!value.isEmpty())
        setText(property, value);
}

} // namespace XmlTree
