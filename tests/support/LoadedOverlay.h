#pragma once

#include "document/DashboardDocument.h"

#include <QByteArray>
#include <QTemporaryDir>

/// A document read from overlay text, without a package around it.
class LoadedOverlay
{
public:
    /// Loads the text as a whole overlay file.
    explicit LoadedOverlay(const QByteArray& xml);

    /// The text of an overlay whose configuration object holds what is given, on one line.
    [[nodiscard]] static QByteArray around(const QByteArray& conf)
    {
        return R"(<overlay_cli><e c="Overlay"><e c="GConfParam">)" + conf +
               "</e></e></overlay_cli>";
    }

    /// Loads further text into the same document.
    bool load(const QByteArray& xml);
    [[nodiscard]] bool loadDevice(const QByteArray& xml);
    [[nodiscard]] bool isLoaded() const { return m_loaded; }

    /// The file that was loaded last.
    [[nodiscard]] QString path() const
    {
        return m_folder.filePath(QStringLiteral("overlay.ov3.xml"));
    }

    /// The bytes that a write-back puts into the file.
    [[nodiscard]] QByteArray written();

    [[nodiscard]] DashElement& element(int page, int index)
    {
        return document.pageAt(page)->elements.at(static_cast<std::size_t>(index));
    }

    DashboardDocument document;

private:
    QTemporaryDir m_folder;
    bool m_loaded = false;
};
