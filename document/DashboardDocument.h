#pragma once

#include "document/DashPage.h"
#include "document/PageImages.h"
#include "document/TargetDevice.h"
#include "document/archive/OpenedPackage.h"
#include "document/archive/Outcome.h"

#include <QString>

#include <pugixml.hpp>

#include <cstdint>
#include <vector>

/// One opened dashboard package: the overlay XML, kept whole so that everything the editor does not
/// understand survives a save, and flat records of what it shows and edits.
///
/// Records and XML are two views of one document, kept in step by position: the i-th page object is
/// pages()[i], the j-th element node of that page is its elements[j]. Every operation here keeps
/// that so. Element records hold non-owning handles into the XML, which the document owns.
///
/// No operation shows a message or throws; failure is false, -1 or an empty node, and a failed
/// operation changes nothing unless it says so. The document is neither copied, moved nor shared: a
/// further package is opened into the same object, which ends every pointer to a page or element
/// and every handle into the XML.
class DashboardDocument
{
public:
    DashboardDocument() = default;
    DashboardDocument(const DashboardDocument&) = delete;
    DashboardDocument& operator=(const DashboardDocument&) = delete;
    ~DashboardDocument() = default;

    // --- Files -----------------------------------------------------------------------------------

    /// Unpacks and reads a package. On failure the document that was open stays as it was,
    /// editable. On success pages, XML and paths are replaced; the channels of the new package's
    /// device file are appended to those already known, and device type, type code and display size
    /// keep their values when the new package has no usable device file. The unpack directory is
    /// kept for good.
    [[nodiscard]] bool open(const QString& packagePath);

    /// Writes the records back and saves the package to destPath: members that have not changed are
    /// copied as they are in the package that was opened or last saved. False when no package is
    /// open. On failure the file at destPath is unchanged; XML and overlay file may already have
    /// the values of the records, so that saving again writes the same.
    [[nodiscard]] bool save(const QString& destPath);

    /// Writes all edits into the overlay file of the unpack directory, from which they can be
    /// recovered after a crash. False when no package is open or the file cannot be written.
    [[nodiscard]] bool keepEdits();

    /// Parses an overlay file and rebuilds the pages. A file that cannot be read changes nothing;
    /// one without a configuration object or without a page gives false and leaves no pages.
    [[nodiscard]] bool loadOverlay(const QString& path);

    /// Reads device type, type code and channels from a device definition file, then the display
    /// size from the overlay that is open. Channels are appended, never cleared.
    [[nodiscard]] bool loadDeviceFile(const QString& path);

    /// Writes the rectangles and text styles that were edited into the XML, and the XML to xmlPath.
    /// All other values keep their text. xmlPath is replaced only on success; the XML changes in
    /// any case. False without a configuration object.
    [[nodiscard]] bool writeBack(const QString& xmlPath);

    /// Why the last of the functions above failed, one sentence for the user in plain text; empty
    /// when it succeeded.
    [[nodiscard]] const QString& errorString() const { return m_errorString; }

    // --- Access ----------------------------------------------------------------------------------

    [[nodiscard]] int pageCount() const;
    /// The page, or null when index is out of range. The pointer is valid until a page is added,
    /// removed or read or a file is opened or loaded, those to its elements also until one is
    /// inserted into or removed from the page. Callers may edit element fields through it.
    [[nodiscard]] DashPage* pageAt(int index);
    [[nodiscard]] const DashPage* pageAt(int index) const;
    /// The configuration object that holds the pages, or an empty node. Handles into the XML are
    /// valid until their node is removed or a file is opened or loaded.
    [[nodiscard]] pugi::xml_node confNode() const;
    /// The index-th page object, or an empty node.
    [[nodiscard]] pugi::xml_node pageNode(int index) const;

    [[nodiscard]] const std::vector<DashPage>& pages() const { return m_pages; }
    [[nodiscard]] const std::vector<ChannelDef>& channels() const { return m_device.channels; }
    /// Empty until a device file named one.
    [[nodiscard]] const QString& deviceType() const { return m_device.type; }
    /// -1 until a device file gave one.
    [[nodiscard]] int deviceTypeCode() const { return m_device.typeCode; }
    /// Display size in pixels; the default until a package with a device file gave another.
    [[nodiscard]] int displayWidth() const { return m_device.displayWidth; }
    [[nodiscard]] int displayHeight() const { return m_device.displayHeight; }
    [[nodiscard]] const QString& tempDir() const { return m_tempDir; }
    [[nodiscard]] const QString& overlayPath() const { return m_overlayPath; }
    [[nodiscard]] const QString& devicePath() const { return m_devicePath; }

    // --- Structural edits ------------------------------------------------------------------------

    /// Appends a page of the display's size without elements. @return its index, or -1.
    int addBlankPage(const QString& name);

    /// Puts a copy of source, a saved page object, back at index with the fields of page; the
    /// elements are read from the copy. newNode receives the copy.
    bool insertPageCopy(int index, const DashPage& page, pugi::xml_node source,
                        pugi::xml_node& newNode);

    bool removePage(int index);

    /// Appends a copy of donor to the page with a new rectangle (display pixels), a new name
    /// ("new.1", "new.2" ... counted for the whole run of the program) and a new channel.
    /// Properties that the donor lacks are not created.
    /// @param created receives the new record. @return the element's index in its page, or -1.
    int addElementFromDonor(int pageIndex, pugi::xml_node donor, const ChannelDef& channel, int x,
                            int y, int w, int h, DashElement& created);

    /// Inserts a copy of source, a saved element node, right after the node `after` (before the
    /// first element node when it is empty) and element at position among the records, bound to the
    /// copy.
    bool insertElementCopy(int pageIndex, int position, const DashElement& element,
                           pugi::xml_node source, pugi::xml_node after, pugi::xml_node& newNode);

    bool removeElement(int pageIndex, int elementIndex);

    /// Writes the channel into every axis object of the element; missing keys are not created.
    void writeChannelBinding(pugi::xml_node elementNode, const ChannelDef& channel);

    // --- Record readers --------------------------------------------------------------------------

    /// Appends the record of a page object. The background image is loaded only while a
    /// QGuiApplication exists, because a pixmap needs one; it is null when it cannot be read.
    /// Images beyond 100 million pixels for all pages are smaller than their file.
    void readPage(pugi::xml_node node, int ordinal);
    [[nodiscard]] static DashElement readElement(pugi::xml_node node);

private:
    DashboardDocument& operator=(DashboardDocument&&) = default;

    /// Remembers the reason of a failure. @return whether it was a success.
    [[nodiscard]] bool report(const Outcome& outcome);
    Outcome readPackage(const QString& packagePath);
    Outcome writePackage(const QString& destPath);
    Outcome writeUnpackedOverlay();
    Outcome readOverlay(const QString& path);
    Outcome readDeviceFile(const QString& path);
    Outcome writeOverlay(const QString& xmlPath);

    std::vector<DashPage> m_pages;
    PageImages m_images;
    pugi::xml_document m_overlayXml;
    OpenedPackage m_package; ///< what a save copies unchanged members from
    QString m_tempDir;
    QString m_overlayPath;
    QString m_devicePath;
    TargetDevice m_device;
    QString m_errorString;
};
