#include "app/PageListPanel.h"

#include "dialogs/LiteralToolTip.h"

#include <QStyledItemDelegate>

#include <utility>

namespace {

constexpr int kMinimumWidth = 120;
constexpr int kMaximumWidth = 180;
constexpr QSize kThumbnailSize{120, 72};
constexpr int kRowSpacing = 4;

QIcon thumbnailOf(const QPixmap& image)
{
    return QIcon(image.scaled(kThumbnailSize, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

/// Shows the name below the thumbnail: beside it, the narrow list would have no room for it.
class PageRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->displayAlignment = Qt::AlignCenter;
    }
};

} // namespace

PageListPanel::PageListPanel(QWidget* parent) : QListWidget(parent)
{
    setObjectName(QStringLiteral("pageList"));
    setAccessibleName(tr("Pages"));
    setMaximumWidth(kMaximumWidth);
    setMinimumWidth(kMinimumWidth);
    setIconSize(kThumbnailSize);
    setItemDelegate(new PageRowDelegate(this));
    setSpacing(kRowSpacing);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long names are cut, and in the tooltip
    connect(this, &QListWidget::currentRowChanged, this, &PageListPanel::onCurrentRowChanged);
}

void PageListPanel::setPages(const std::vector<DashPage>& pages)
{
    clear();
    QHash<qint64, QIcon> thumbnails;
    for (const DashPage& page : pages) {
        auto* const item = new QListWidgetItem(page.name, this);
        item->setToolTip(literalToolTip(page.name));
        if (page.image.isNull())
            continue;
        const qint64 key = page.image.cacheKey();
        QIcon thumbnail = m_thumbnails.value(key);
        if (thumbnail.isNull())
            thumbnail = thumbnailOf(page.image);
        item->setIcon(thumbnail);
        thumbnails.insert(key, thumbnail);
    }
    m_thumbnails = std::move(thumbnails); // those of images that are gone go with them
    if (!pages.empty())
        setCurrentRow(0);
}

void PageListPanel::onCurrentRowChanged(int row)
{
    if (row >= 0)
        Q_EMIT pageSelected(row);
}
