#pragma once

#include "review/Findings.h"

#include <QStringList>

/// What a recording shows on a layout: for every layout channel, at the first element bound to it,
/// either the recorded channel it matches and the rule that found it, or that nothing does.
/// @param recorded names as a session gives them, sorted by their lower-case form
[[nodiscard]] std::vector<Finding> channelCoverage(const DashboardDocument& document,
                                                   const QStringList& recorded);
