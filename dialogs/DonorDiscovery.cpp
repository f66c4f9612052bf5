#include "dialogs/DonorDiscovery.h"

#include "document/DashboardDocument.h"
#include "document/ElementKinds.h"

#include <QCoreApplication>

#include <optional>
#include <set>

namespace {

Donor donorFrom(const DashElement& element, ElementKinds::Kind kind)
{
    const QString& channel = element.channelLongName;
    return {ElementKinds::name(kind),
            QCoreApplication::translate("DonorDiscovery", "e.g. %1 (%2x%3)")
                .arg(channel.isEmpty() ? element.name : channel, QString::number(element.w),
                     QString::number(element.h)),
            element.node, element.w, element.h};
}

} // namespace

std::vector<Donor> DonorDiscovery::findDonors(const DashboardDocument& document)
{
    std::vector<Donor> donors;
    std::set<ElementKinds::Kind> found;
    for (const DashPage& page : document.pages()) {
        for (const DashElement& element : page.elements) {
            const std::optional<ElementKinds::Kind> kind = ElementKinds::classify(element.node);
            if (kind && found.insert(*kind).second)
                donors.push_back(donorFrom(element, *kind));
        }
    }
    return donors;
}
