#pragma once

#include <QString>

#include <cstdint>

/// One channel that the target device can show, as its device definition file lists it.
/// A plain value without invariants.
struct ChannelDef
{
    std::int32_t fid = -1; ///< channel identifier; -1 when the file gives none
    QString longName;      ///< the name elements are bound by
    QString shortName;     ///< abbreviated name
    QString labelLongName; ///< long label text
    QString uiv;           ///< unit text, written into an element's binding
};
