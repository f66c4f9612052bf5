#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <vector>

/// Builds overlay and device XML and packages for tests, object by object.
namespace TestPackage {

/// A value of a property as it stands in the XML, already escaped where needed.
struct Property
{
    QByteArray key;
    QByteArray value;
};

struct Object
{
    QByteArray className;
    QByteArray name; ///< attribute "i"; none when null
    std::vector<Property> properties;
    std::vector<Object> objects;
};

/// An element of the usual shape: rectangle, axis bound to channel (no axis when empty), digit
/// style.
[[nodiscard]] Object digitElement(const QByteArray& name, int x, int y, int w, int h,
                                  const QByteArray& channel = "Engine RPM");
[[nodiscard]] Object labelElement(const QByteArray& name, int x, int y, int w, int h,
                                  const QByteArray& text);
/// A style object ("Digit" or "Label") with font, size and colour.
[[nodiscard]] Object styleObject(const QByteArray& className, const QByteArray& font, int size,
                                 const QByteArray& color);
[[nodiscard]] Object page(const QByteArray& name, int width, int height,
                          std::vector<Object> elements = {});
[[nodiscard]] Property number(const QByteArray& key, int value);

[[nodiscard]] QByteArray toXml(const Object& object);
/// The whole overlay document with these pages; the display size goes into the configuration
/// object.
[[nodiscard]] QByteArray overlayXml(const std::vector<Object>& pages, int displayWidth = 800,
                                    int displayHeight = 480);

struct Channel
{
    int fid;
    QByteArray longName;
    QByteArray shortName;
    QByteArray unit;
};
[[nodiscard]] QByteArray deviceXml(const QByteArray& type, int typeCode,
                                   const std::vector<Channel>& channels);

/// Files of a package or folder: path with "/" as the separator, and content.
using Members = std::map<QString, QByteArray>;

/// Writes the members into a folder, making sub-folders as needed.
void writeFolder(const QString& folder, const Members& members);
bool writeFile(const QString& path, const QByteArray& content);
[[nodiscard]] QByteArray readFile(const QString& path);

/// Writes a package holding the members, through the archive library's own calls.
bool writePackage(const QString& path, const Members& members);
/// A package with "overlay.ov3.xml" and, unless empty, "device.aimcfg".
bool writePackage(const QString& path, const QByteArray& overlay, const QByteArray& device = {});
/// Every member of a package with its content.
[[nodiscard]] Members readPackage(const QString& path);

} // namespace TestPackage
