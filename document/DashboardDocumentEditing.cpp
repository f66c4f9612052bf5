// Structural edits of DashboardDocument. Every operation changes XML and records together.

#include "document/DashboardDocument.h"
#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

/// Counts the elements made from donors, for the whole run of the program, so that no two of them
/// ever share a name, whichever packages they go into.
std::int32_t nextElementNumber()
{
    static std::int32_t counter = 0;
    return ++counter;
}

void appendBlankPageProperties(pugi::xml_node page, const QString& name, int number, int width,
                               int height)
{
    // The maker's tools write exactly these keys, in the alphabetical order of their texts.
    XmlTree::appendProperty(page, Key::kBackgroundColor, QStringLiteral("0"));
    XmlTree::appendProperty(page, Key::kButtonsPerPage, QStringLiteral("0"));
    XmlTree::appendProperty(page, Key::kHeight, QString::number(height));
    XmlTree::appendProperty(page, Key::kResourceFile, QString());
    XmlTree::appendProperty(page, Key::kPageOrder, QString::number(number + 1));
    XmlTree::appendProperty(page, Key::kPageIndex, QString());
    XmlTree::appendProperty(page, Key::kPageName, name);
    XmlTree::appendProperty(page, Key::kImageDisabled, QStringLiteral("0"));
    XmlTree::appendProperty(page, Key::kUsesMaskColor, QStringLiteral("1"));
    XmlTree::appendProperty(page, Key::kPageVersion, QStringLiteral("1.1"));
    XmlTree::appendProperty(page, Key::kWidth, QString::number(width));
}

/// Inserts a copy of source so that it becomes the index-th page object of conf.
pugi::xml_node copyPageInto(pugi::xml_node conf, int index, pugi::xml_node source)
{
    pugi::xml_node previous;
    int count = 0;
    for (const pugi::xml_node child : XmlTree::objects(conf)) {
        if (!XmlTree::hasClass(child, Class::kPage))
            continue;
        if (count++ == index)
            return conf.insert_copy_before(source, child);
        previous = child;
    }
    return previous ? conf.insert_copy_after(source, previous) : conf.append_copy(source);
}

pugi::xml_node copyElementInto(pugi::xml_node page, pugi::xml_node source, pugi::xml_node after)
{
    if (after)
        return page.insert_copy_after(source, after);
    const pugi::xml_node first = XmlTree::firstObject(page, Class::kElement);
    return first ? page.insert_copy_before(source, first) : page.append_copy(source);
}

/// Does nothing when the donor lacks the key.
void setFirstNumber(pugi::xml_node object, const char* key, int value)
{
    if (const pugi::xml_node property = XmlTree::firstProperty(object, key))
        XmlTree::setNumber(property, value);
}

bool inRange(int index, std::size_t size)
{
    return index >= 0 && static_cast<std::size_t>(index) < size;
}

} // namespace

int DashboardDocument::addBlankPage(const QString& name)
{
    pugi::xml_node conf = confNode();
    if (!conf)
        return -1;
    int number = 0;
    pugi::xml_node last;
    for (const pugi::xml_node child : XmlTree::objects(conf)) {
        if (XmlTree::hasClass(child, Class::kPage)) {
            ++number;
            last = child;
        }
    }
    pugi::xml_node node = last ? conf.insert_child_after(XmlTree::kObject, last)
                               : conf.append_child(XmlTree::kObject);
    if (!node)
        return -1;
    node.append_attribute(XmlTree::kClass).set_value(Class::kPage);
    node.append_attribute(XmlTree::kName).set_value(number);
    appendBlankPageProperties(node, name, number, m_device.displayWidth, m_device.displayHeight);

    DashPage page;
    page.name = name;
    page.index = pageCount();
    page.width = m_device.displayWidth;
    page.height = m_device.displayHeight;
    m_pages.push_back(std::move(page));
    return pageCount() - 1;
}

bool DashboardDocument::insertPageCopy(int index, const DashPage& page, pugi::xml_node source,
                                       pugi::xml_node& newNode)
{
    const pugi::xml_node conf = confNode();
    if (!conf || index < 0 || index > pageCount())
        return false;
    const pugi::xml_node copy = copyPageInto(conf, index, source);
    if (!copy)
        return false;

    DashPage record = page;
    record.elements = OverlayReader::readElements(copy); // those of page may name XML that is gone
    m_pages.insert(m_pages.begin() + index, std::move(record));
    newNode = copy;
    return true;
}

bool DashboardDocument::removePage(int index)
{
    if (!inRange(index, m_pages.size()))
        return false;
    confNode().remove_child(pageNode(index));
    m_pages.erase(m_pages.begin() + index);
    return true;
}

int DashboardDocument::addElementFromDonor(int pageIndex, pugi::xml_node donor,
                                           const ChannelDef& channel, int x, int y, int w, int h,
                                           DashElement& created)
{
    pugi::xml_node parent = pageNode(pageIndex);
    if (!inRange(pageIndex, m_pages.size()) || !parent)
        return -1;
    const pugi::xml_node copy = parent.append_copy(donor);
    if (!copy)
        return -1;
    setFirstNumber(copy, Key::kXPos, x);
    setFirstNumber(copy, Key::kYPos, y);
    setFirstNumber(copy, Key::kWidth, w);
    setFirstNumber(copy, Key::kHeight, h);
    const QString name = QStringLiteral("new.%1").arg(nextElementNumber());
    copy.attribute(XmlTree::kName).set_value(name.toUtf8().constData());
    writeChannelBinding(copy, channel);

    // The record holds what was asked for, also where the donor lacks the key to write it to.
    created = OverlayReader::readElement(copy);
    created.name = name;
    created.x = x;
    created.y = y;
    created.w = w;
    created.h = h;
    created.channelLongName = channel.longName;
    created.channelShortName = channel.shortName;
    std::vector<DashElement>& elements = pageAt(pageIndex)->elements;
    elements.push_back(created);
    return static_cast<int>(elements.size()) - 1;
}

bool DashboardDocument::insertElementCopy(int pageIndex, int position, const DashElement& element,
                                          pugi::xml_node source, pugi::xml_node after,
                                          pugi::xml_node& newNode)
{
    DashPage* const page = pageAt(pageIndex);
    if (!page || position < 0 || static_cast<std::size_t>(position) > page->elements.size())
        return false;
    const pugi::xml_node parent = pageNode(pageIndex);
    if (!parent)
        return false;
    const pugi::xml_node copy = copyElementInto(parent, source, after);
    if (!copy)
        return false;
    const auto record = page->elements.insert(page->elements.begin() + position, element);
    record->node = copy;
    newNode = copy;
    return true;
}

bool DashboardDocument::removeElement(int pageIndex, int elementIndex)
{
    DashPage* const page = pageAt(pageIndex);
    if (!page || !inRange(elementIndex, page->elements.size()))
        return false;
    const auto record = page->elements.begin() + elementIndex;
    record->node.parent().remove_child(record->node);
    page->elements.erase(record);
    return true;
}

void DashboardDocument::writeChannelBinding(pugi::xml_node elementNode, const ChannelDef& channel)
{
    for (const pugi::xml_node axis : XmlTree::objects(elementNode)) {
        if (!XmlTree::hasClass(axis, Class::kAxis))
            continue;
        for (const pugi::xml_node property : XmlTree::properties(axis)) {
            const char* const key = XmlTree::keyOf(property);
            if (XmlTree::same(key, Key::kFid) || XmlTree::same(key, Key::kFidPreferred))
                XmlTree::setNumber(property, channel.fid);
            else if (XmlTree::same(key, Key::kFidOk) || XmlTree::same(key, Key::kLongName))
                XmlTree::setText(property, channel.longName); // both carry the long name
            else if (XmlTree::same(key, Key::kShortName))
                XmlTree::setText(property, channel.shortName);
            else if (XmlTree::same(key, Key::kUnit))
                XmlTree::setText(property, channel.uiv);
        }
    }
}
