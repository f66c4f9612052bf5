#include "document/OverlayWriter.h"

#include "document/ElementFields.h"
#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

namespace Class = OverlaySchema::Class;

namespace {

void writeElement(pugi::xml_node node, const DashElement& element)
{
    const DashElement asRead = OverlayReader::readElement(node);
    ElementFields::writeChanges(node, ElementFields::rectangle(), asRead, element);
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (XmlTree::hasClass(child, Class::kDigit) && !element.valueFont.isEmpty())
            ElementFields::writeChanges(child, ElementFields::valueStyle(), asRead, element);
        else if (XmlTree::hasClass(child, Class::kLabel) && !element.labelFont.isEmpty())
            ElementFields::writeChanges(child, ElementFields::labelStyle(), asRead, element);
    }
}

void writePage(pugi::xml_node node, const DashPage& page)
{
    auto element = page.elements.begin();
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (!OverlaySchema::isElement(child))
            continue;
        if (element == page.elements.end())
            return;
        writeElement(child, *element++);
    }
}

} // namespace

void OverlayWriter::writeRecords(pugi::xml_node conf, const std::vector<DashPage>& pages)
{
    auto page = pages.begin();
    for (const pugi::xml_node child : XmlTree::objects(conf)) {
        if (!XmlTree::hasClass(child, Class::kPage))
            continue;
        if (page == pages.end())
            return;
        writePage(child, *page++);
    }
}
