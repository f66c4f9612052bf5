#pragma once

#include "document/DashboardDocument.h"

#include <QByteArray>

/// What tests ask of an open document as a whole.
namespace InStep {

/// Says where records and XML of the document disagree; empty when they are in step. Geometry and
/// styles are left out, because they stand in the records alone until a save.
[[nodiscard]] QByteArray firstDisagreement(const DashboardDocument& document);

/// The overlay XML as text, without carrying the records into it first.
[[nodiscard]] QByteArray overlayText(const DashboardDocument& document);

/// Every field of every record, one line a page or element. Equal texts mean equal records.
[[nodiscard]] QByteArray recordsText(const DashboardDocument& document);

} // namespace InStep
