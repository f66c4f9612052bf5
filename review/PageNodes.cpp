#include "review/PageNodes.h"

#include "document/DashboardDocument.h"
#include "document/OverlaySchema.h"

std::vector<pugi::xml_node> pageNodes(const DashboardDocument& document)
{
    std::vector<pugi::xml_node> nodes;
    nodes.reserve(document.pages().size());
    for (const pugi::xml_node child : XmlTree::objects(document.confNode())) {
        if (XmlTree::hasClass(child, OverlaySchema::Class::kPage))
            nodes.push_back(child);
    }
    return nodes;
}
