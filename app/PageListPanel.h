#pragma once

#include "document/DashPage.h"

#include <QHash>
#include <QIcon>
#include <QListWidget>

#include <vector>

/// The list of pages: one row a page, in document order, with name and thumbnail. Keeps nothing of
/// the document but what the rows show; whoever changes the set of pages refills it.
class PageListPanel : public QListWidget
{
    Q_OBJECT

public:
    explicit PageListPanel(QWidget* parent = nullptr);

    /// Replaces all rows and makes the first one current. Block the signals to keep that quiet.
    void setPages(const std::vector<DashPage>& pages);

Q_SIGNALS:
    /// A row became current.
    void pageSelected(int index);

public Q_SLOTS:
    void onCurrentRowChanged(int row);

private:
    using Thumbnails = QHash<qint64, QIcon>; // by QPixmap::cacheKey

    /// Takes the thumbnail of an unchanged image from the former ones instead of scaling again.
    QIcon thumbnail(const QPixmap& image, const Thumbnails& former);

    Thumbnails m_thumbnails; // of the images shown at present
};
