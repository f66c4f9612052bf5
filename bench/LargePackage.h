#pragma once

#include <QByteArray>
#include <QString>

#include <map>

/// The large package that opening and saving are measured on: 20 pages of 60 elements with a
/// background image each, and a device file of 150 channels.
namespace LargePackage {

/// Name and content of every member. Needs a QGuiApplication to paint the images.
[[nodiscard]] std::map<QString, QByteArray> members();

} // namespace LargePackage
