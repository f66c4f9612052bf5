#pragma once

#include <QString>

#include <pugixml.hpp>

/// What the insert dialog was accepted with: the element to copy and the channel to bind it to.
/// The node is a handle into the document's XML, valid as long as that element exists.
struct InsertElementSpec
{
    QString templateLabel; ///< name of the chosen kind of element
    QString hint;
    pugi::xml_node donorNode;
    int donorWidth = 0;  ///< display pixels
    int donorHeight = 0; ///< display pixels
    int channelFid = 0;
    QString channelLongName;
    QString channelShortName;
    QString channelLabelLongName;
    QString channelUiv; ///< unit text
};
