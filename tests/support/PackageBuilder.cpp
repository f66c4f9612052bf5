#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unzip.h>
#include <zip.h>

namespace TestPackage {

Property number(const QByteArray& key, int value)
{
    return {key, QByteArray::number(value)};
}

Object styleObject(const QByteArray& className, const QByteArray& font, int size,
                   const QByteArray& color)
{
    return {className,
            {},
            {number("CHARSET_DIM", size), {"CHAR_SET_ID_2", font}, {"COLORE", color}},
            {}};
}

namespace {

Object element(const QByteArray& name, int x, int y, int w, int h)
{
    return {"GMaskParam",
            name,
            {number("HEIGHT", h), number("WIDTH", w), number("XPOS", x), number("YPOS", y)},
            {}};
}

} // namespace

Object digitElement(const QByteArray& name, int x, int y, int w, int h, const QByteArray& channel)
{
    Object result = element(name, x, y, w, h);
    if (!channel.isEmpty()) {
        result.objects.push_back({"Axis",
                                  {},
                                  {{"FID_OK", channel},
                                   {"FID_PREF", "7"},
                                   {"UDM", "rpm"},
                                   {"fid", "7"},
                                   {"lnm", channel},
                                   {"shn", channel.left(4)}},
                                  {}});
    }
    result.objects.push_back(styleObject("Digit", "Basic Sans SF", 24, "0xffffff00"));
    return result;
}

Object labelElement(const QByteArray& name, int x, int y, int w, int h, const QByteArray& text)
{
    Object result = element(name, x, y, w, h);
    Object label = styleObject("Label", "Basic Sans SF", 12, "0xffffffff");
    label.properties.push_back({"TEXT", text});
    result.objects.push_back(label);
    return result;
}

Object page(const QByteArray& name, int width, int height, std::vector<Object> elements)
{
    return {"GPageParam",
            "0",
            {number("HEIGHT", height), {"PAGE_NAME", name}, number("WIDTH", width)},
            std::move(elements)};
}

QByteArray toXml(const Object& object)
{
    QByteArray xml = "<e c=\"" + object.className + '"';
    if (!object.name.isNull())
        xml += " i=\"" + object.name + '"';
    xml += '>';
    for (const Property& property : object.properties)
        xml += "<p n=\"" + property.key + "\">" + property.value + "</p>";
    for (const Object& child : object.objects)
        xml += toXml(child);
    return xml + "</e>\n";
}

QByteArray overlayXml(const std::vector<Object>& pages, int displayWidth, int displayHeight)
{
    const Object conf{"GConfParam",
                      "conf",
                      {number("DIMENSIONE_X", displayWidth), number("DIMENSIONE_Y", displayHeight)},
                      pages};
    const Object container{"Overlay", "root", {{"VERSION", "3"}}, {conf}};
    return "<?xml version=\"1.0\"?>\n<overlay_cli>" + toXml(container) + "</overlay_cli>\n";
}

QByteArray deviceXml(const QByteArray& type, int typeCode, const std::vector<Channel>& channels)
{
    Object list{"ChannelsList", {}, {}, {}};
    for (const Channel& channel : channels) {
        list.objects.push_back({"Canale",
                                {},
                                {number("FID", channel.fid),
                                 {"LongName", channel.longName},
                                 {"ShortName", channel.shortName},
                                 {"LabelLongName", channel.longName},
                                 {"UIV", channel.unit}},
                                {}});
    }
    const Object device{"Device", {}, {{"Type", type}, number("TypeCode", typeCode)}, {}};
    return "<?xml version=\"1.0\"?>\n<CfgFileFormat>" +
           toXml({"Configuration", {}, {}, {device, list}}) + "</CfgFileFormat>\n";
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFolder(const QString& folder, const Members& members)
{
    for (const auto& [name, content] : members)
        writeFile(folder + u'/' + name, content);
}

bool writePackage(const QString& path, const Members& members)
{
    zipFile archive = zipOpen64(path.toLocal8Bit().constData(), APPEND_STATUS_CREATE);
    if (!archive)
        return false;
    bool ok = true;
    for (const auto& [name, content] : members) {
        const zip_fileinfo info{};
        ok = ok &&
             zipOpenNewFileInZip(archive, name.toUtf8().constData(), &info, nullptr, 0, nullptr, 0,
                                 nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION) == ZIP_OK;
        ok = ok && zipWriteInFileInZip(archive, content.constData(),
                                       static_cast<unsigned>(content.size())) == ZIP_OK;
        ok = zipCloseFileInZip(archive) == ZIP_OK && ok;
    }
    return zipClose(archive, nullptr) == ZIP_OK && ok;
}

bool writePackage(const QString& path, const QByteArray& overlay, const QByteArray& device)
{
    Members members{{QStringLiteral("overlay.ov3.xml"), overlay}};
    if (!device.isEmpty())
        members[QStringLiteral("device.aimcfg")] = device;
    return writePackage(path, members);
}

Members readPackage(const QString& path)
{
    Members members;
    unzFile archive = unzOpen64(path.toLocal8Bit().constData());
    if (!archive)
        return members;
    for (int status = unzGoToFirstFile(archive); status == UNZ_OK;
         status = unzGoToNextFile(archive)) {
        unz_file_info64 info{};
        QByteArray name(1024, '\0');
        unzGetCurrentFileInfo64(archive, &info, name.data(), 1023, nullptr, 0, nullptr, 0);
        QByteArray content(static_cast<qsizetype>(info.uncompressed_size), '\0');
        if (unzOpenCurrentFile(archive) == UNZ_OK) {
            unzReadCurrentFile(archive, content.data(), static_cast<unsigned>(content.size()));
            unzCloseCurrentFile(archive);
        }
        members[QString::fromUtf8(name.constData())] = content;
    }
    unzClose(archive);
    return members;
}

} // namespace TestPackage
