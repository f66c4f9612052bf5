#pragma once

#include <QString>

#include <vector>

class DashboardDocument;

/// One thing that changed from one layout to another.
struct Difference
{
    enum class Change
    {
        Device,
        Display,
        LayoutSettings, ///< of the layout as a whole, not modelled by the editor
        ChannelAdded,
        ChannelRemoved,
        ChannelChanged,
        PageAdded,
        PageRemoved,
        PageRenamed,
        PageOrder,
        PageSize,
        PageImage,
        PageSettings, ///< not modelled by the editor
        ElementAdded,
        ElementRemoved,
        ElementRenamed,
        ElementOrder,
        ElementKind,
        ElementMoved,
        ElementResized,
        ElementChannel,
        ElementValueStyle,
        ElementLabelStyle,
        ElementTexts,
        ElementSettings, ///< not modelled by the editor
        FileAdded,
        FileRemoved,
        FileChanged
    };

    /// What a change is about.
    enum class Subject
    {
        Layout,
        Channel,
        Page,
        Element,
        File
    };

    Change change = Change::Device;
    int page = 0;     ///< number of the page, from 1; 0 for none. Of a removed page the former one
    QString pageName; ///< the present one, of a removed page the former one
    QString subject;  ///< name of the element, channel or file; empty for pages and the layout
    QString before;   ///< the former fact; empty where there is none to tell
    QString after;    ///< the present one, likewise

    friend bool operator==(const Difference&, const Difference&) = default;
};

[[nodiscard]] Difference::Subject subjectOf(Difference::Change change);
/// The change's identifier for programs: fixed, never translated.
[[nodiscard]] QString identifier(Difference::Change change);
/// The difference in one line, translated.
[[nodiscard]] QString sentence(const Difference& difference);

/// Everything that differs, in the order of the present layout: the device, pages with their
/// elements, other files. Pages and elements are matched by name, then by likeness. Empty for
/// packages with the same layout, however they are compressed.
[[nodiscard]] std::vector<Difference> differences(const DashboardDocument& former,
                                                  const DashboardDocument& present);
