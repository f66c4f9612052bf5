#pragma once

#include "document/DashPage.h"

#include <QHash>
#include <QIcon>
#include <QListWidget>

#include <vector>

/// The list of pages: one row a page, in document order, with name and thumbnail. Keeps nothing of
/// the document but what the rows show; the main window refreshes it.
class PageListPanel : public QListWidget
{
    Q_OBJECT

public:
    explicit PageListPanel(QWidget* parent = nullptr);

    /// Replaces all rows and makes the first one current. Block the signals to keep that quiet.
    void setPages(const std::vector<DashPage>& pages);
    /// Brings the rows in step with the pages and makes `current` the current row (clamped to the
    /// rows); emits nothing. Rows are replaced only when a name or an image differs.
    void refresh(const std::vector<DashPage>& pages, int current);

Q_SIGNALS:
    /// A row became current.
    void pageSelected(int index);

public Q_SLOTS:
    void onCurrentRowChanged(int row);

protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    using Thumbnails = QHash<qint64, QIcon>; // by QPixmap::cacheKey

    /// Reuses the former thumbnail of an unchanged image instead of scaling again.
    QIcon thumbnail(const QPixmap& image, const Thumbnails& former);

    Thumbnails m_thumbnails; // of the images shown at present
};
