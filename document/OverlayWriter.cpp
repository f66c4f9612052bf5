#include "document/OverlayWriter.h"

#include "document/ElementFields.h"
#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

namespace Class = OverlaySchema::Class;

namespace {

void writeElement(pugi::xml_node node, const DashElement& element)
{
    namespace Fields = ElementFields;
    const DashElement asRead = OverlayReader::readEditable(node);
    const bool valueEdited =
        !element.valueFont.isEmpty() && Fields::differ(Fields::valueStyle(), asRead, element);
    const bool labelEdited =
        !element.labelFont.isEmpty() && Fields::differ(Fields::labelStyle(), asRead, element);
    if (Fields::differ(Fields::rectangle(), asRead, element))
        Fields::writeChanges(node, Fields::rectangle(), asRead, element);
    if (!valueEdited && !labelEdited)
        return; // as nearly all elements of a large layout
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (valueEdited && XmlTree::hasClass(child, Class::kDigit))
            Fields::writeChanges(child, Fields::valueStyle(), asRead, element);
        else if (labelEdited && XmlTree::hasClass(child, Class::kLabel))
            Fields::writeChanges(child, Fields::labelStyle(), asRead, element);
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
