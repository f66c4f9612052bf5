#pragma once

#include "app/commands/PageCommand.h"
#include "app/commands/SavedElements.h"
#include "document/ElementGeometry.h"

#include <QCoreApplication>

#include <optional>

/// Inserts a copy of a donor element, bound to a channel. The copy has the text styles that the
/// donor has on the screen. The first redo makes the element; every later one restores it, with the
/// same name and properties. The document is not owned and may be null.
class InsertElementCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(InsertElementCommand)

public:
    /// x, y, w, h are the new element's rectangle in display pixels. The donor is copied.
    InsertElementCommand(DashboardDocument* document, int pageIndex, const ChannelDef& channel,
                         int x, int y, int w, int h, pugi::xml_node donor);

    void undo() override;
    void redo() override;

private:
    void insertFromDonor();

    ChannelDef m_channel;
    ElementGeometry m_geometry;
    pugi::xml_document m_donorXml;
    std::optional<DashElement> m_donor; // its styles may have changed since they were in the XML
    int m_insertedIndex = -1;
    SavedElements m_inserted; // empty until the first successful redo
};
