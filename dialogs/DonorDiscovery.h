#pragma once

#include <QString>

#include <pugixml.hpp>

#include <vector>

class DashboardDocument;

/// An element that can be copied to make a new one of its kind. The node is a handle into the
/// document's XML, valid as long as that element exists.
struct Donor
{
    QString type; ///< name of the kind, as shown
    QString hint; ///< channel (or element name) and size of the original
    pugi::xml_node node;
    int width = 0;  ///< display pixels
    int height = 0; ///< display pixels
};

/// Finds the elements that new ones are copied from. New elements are always copies, because the
/// editor models only a part of an element.
namespace DonorDiscovery {

/// The first element of each kind, in document order.
[[nodiscard]] std::vector<Donor> findDonors(const DashboardDocument& document);

} // namespace DonorDiscovery
