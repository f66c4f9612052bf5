#include "document/XmlTree.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>

namespace XmlTree {

namespace {

/// Stops the walk when the levels of the nodes add up to more than a limit.
class LevelBudget : public pugi::xml_tree_walker
{
public:
    explicit LevelBudget(std::int64_t limit) : m_left(limit) {}

    bool for_each(pugi::xml_node&) override
    {
        m_left -= depth();
        return m_left >= 0;
    }

private:
    std::int64_t m_left;
};

bool holdsJust(pugi::xml_node property, const char* bytes)
{
    const pugi::xml_node child = property.first_child();
    return child.type() == pugi::node_pcdata && !child.next_sibling() && same(child.value(), bytes);
}

void replaceContent(pugi::xml_node property, const char* bytes)
{
    while (const pugi::xml_node child = property.first_child())
        removeSubtree(child);
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

pugi::xml_node lastProperty(pugi::xml_node object, const char* key)
{
    pugi::xml_node last;
    for (const pugi::xml_node property : properties(object)) {
        if (same(keyOf(property), key))
            last = property;
    }
    return last;
}

QString text(pugi::xml_node property)
{
    return QString::fromUtf8(property.child_value());
}

std::int32_t number(pugi::xml_node property)
{
    return std::atoi(property.child_value());
}

void setText(pugi::xml_node property, const QString& value)
{
    QByteArray bytes = value.toUtf8();
    if (holdsJust(property, bytes.constData()))
        return;
    if (text(property) == value) // then it keeps its bytes, also where they are not valid UTF-8
        bytes = property.child_value();
    replaceContent(property, bytes.constData());
}

void setNumber(pugi::xml_node property, int value)
{
    std::array<char, std::numeric_limits<int>::digits10 + 3> digits{}; // sign, all digits, end
    std::to_chars(digits.data(), digits.data() + digits.size() - 1, value);
    if (!holdsJust(property, digits.data()))
        replaceContent(property, digits.data());
}

void setFirstNumber(pugi::xml_node object, const char* key, int value)
{
    for (const pugi::xml_node property : properties(object)) {
        if (same(keyOf(property), key)) {
            setNumber(property, value);
            return;
        }
    }
}

void appendProperty(pugi::xml_node object, const char* key, const QString& value)
{
    pugi::xml_node property = object.append_child(kProperty);
    property.append_attribute(kKey).set_value(key);
    if (!value.isEmpty())
        setText(property, value);
}

void removeSubtree(pugi::xml_node node)
{
    pugi::xml_node current = node;
    while (true) {
        while (const pugi::xml_node child = current.first_child())
            current = child;
        pugi::xml_node parent = current.parent();
        const bool done = current == node;
        parent.remove_child(current);
        if (done)
            return;
        current = parent;
    }
}

bool levelsExceed(pugi::xml_node root, std::int64_t limit)
{
    LevelBudget walker(limit);
    return !root.traverse(walker);
}

} // namespace XmlTree
