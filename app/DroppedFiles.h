#pragma once

#include <QString>

class QMimeData;

/// What the window takes from files that are dropped on it: the first package and the first
/// recording, by their endings in any case. Paths on this computer; empty where there is none.
/// Folders do not count.
struct DroppedFiles
{
    QString package;
    QString recording;

    [[nodiscard]] bool isEmpty() const { return package.isEmpty() && recording.isEmpty(); }
};

[[nodiscard]] DroppedFiles droppedFiles(const QMimeData& data);
