#pragma once

#include "document/TargetDevice.h"

#include <pugixml.hpp>

/// Reads device definition files.
namespace DeviceReader {

/// Sets the device's type and type code and appends its channels. False when the file has no
/// device container, which changes nothing.
[[nodiscard]] bool readDevice(const pugi::xml_document& deviceXml, TargetDevice& device);

} // namespace DeviceReader
