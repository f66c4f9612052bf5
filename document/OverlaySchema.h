#pragma once

#include "document/XmlTree.h"

/// Class names and property keys of the overlay and device files, as the logger maker's tools write
/// them. In the program they stand here and nowhere else.
namespace OverlaySchema {

inline constexpr char kOverlayRoot[] = "overlay_cli";
inline constexpr char kDeviceRoot[] = "CfgFileFormat";

namespace Class {
inline constexpr char kConf[] = "GConfParam";
inline constexpr char kPage[] = "GPageParam";
inline constexpr char kElement[] = "GMaskParam";
inline constexpr char kAxis[] = "Axis";
inline constexpr char kAnalog[] = "Analog";
inline constexpr char kDigit[] = "Digit";
inline constexpr char kIcon[] = "Icon";
inline constexpr char kLabel[] = "Label";
inline constexpr char kBar[] = "BargraphTrapezio";
inline constexpr char kPictogram[] = "AiM_Icona";
inline constexpr char kDevice[] = "Device";
inline constexpr char kChannelsList[] = "ChannelsList";
inline constexpr char kChannel[] = "Canale";
} // namespace Class

namespace Key {
inline constexpr char kDisplayWidth[] = "DIMENSIONE_X";
inline constexpr char kDisplayHeight[] = "DIMENSIONE_Y";

inline constexpr char kPageName[] = "PAGE_NAME";
inline constexpr char kWidth[] = "WIDTH";   // of a page and of an element
inline constexpr char kHeight[] = "HEIGHT"; // of a page and of an element
inline constexpr char kPathImage[] = "PATH_IMAGE";
// Of a page as well, but only written, into new ones.
inline constexpr char kBackgroundColor[] = "BKGCOL";
inline constexpr char kButtonsPerPage[] = "BTNXPG";
inline constexpr char kResourceFile[] = "NOMEEXT_FILE_RESOURCE";
inline constexpr char kPageOrder[] = "ORDINE";
inline constexpr char kPageIndex[] = "PAGE_IDX";
inline constexpr char kImageDisabled[] = "SET_IMAGE_xDISABLE";
inline constexpr char kUsesMaskColor[] = "USA_MASK_COL_E_THICKNESS";
inline constexpr char kPageVersion[] = "VERSION";

inline constexpr char kXPos[] = "XPOS";
inline constexpr char kYPos[] = "YPOS";

inline constexpr char kLongName[] = "lnm";
inline constexpr char kShortName[] = "shn";
inline constexpr char kFid[] = "fid";
inline constexpr char kFidPreferred[] = "FID_PREF";
inline constexpr char kFidOk[] = "FID_OK";
inline constexpr char kUnit[] = "UDM";

inline constexpr char kFontSize[] = "CHARSET_DIM";
inline constexpr char kFont[] = "CHAR_SET_ID_2";
inline constexpr char kColor[] = "COLORE";
inline constexpr char kLabelText[] = "TEXT";

inline constexpr char kDeviceType[] = "Type";
inline constexpr char kDeviceTypeCode[] = "TypeCode";
inline constexpr char kChannelFid[] = "FID";
inline constexpr char kChannelLongName[] = "LongName";
inline constexpr char kChannelShortName[] = "ShortName";
inline constexpr char kChannelLabelLongName[] = "LabelLongName";
inline constexpr char kChannelUnit[] = "UIV";
} // namespace Key

/// Whether the node, which may be of any kind, is an object that the editor shows as an element.
[[nodiscard]] inline bool isElement(pugi::xml_node node)
{
    return XmlTree::same(node.name(), XmlTree::kObject) && XmlTree::hasClass(node, Class::kElement);
}

} // namespace OverlaySchema
