#include "app/PageListPanel.h"

#include "document/ShownText.h"
#include "widgets/LiteralToolTip.h"

#include <QStyledItemDelegate>

#include <utility>

namespace {

constexpr int kMinimumWidth = 120;
constexpr int kMaximumWidth = 180;
constexpr QSize kThumbnailSize{120, 72};
constexpr int kRowSpacing = 4;

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
    const Thumbnails former = std::exchange(m_thumbnails, {});
    for (const DashPage& page : pages) {
        const QString name = shownText(page.name);
        auto* const item = new QListWidgetItem(name);
        item->setToolTip(literalToolTip(name));
        if (!page.image.isNull())
            item->setIcon(thumbnail(page.image, former));
        addItem(item);
    }
    if (!pages.empty())
        setCurrentRow(0);
}

QIcon PageListPanel::thumbnail(const QPixmap& image, const Thumbnails& former)
{
    QIcon& icon = m_thumbnails[image.cacheKey()];
    if (icon.isNull())
        icon = former.value(image.cacheKey());
    if (icon.isNull()) {
        const qreal screenPixels = devicePixelRatioF(); // more than one a pixel on scaled desktops
        QPixmap scaled = image.scaled(kThumbnailSize * screenPixels, Qt::KeepAspectRatio,
                                      Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(screenPixels);
        icon = scaled;
    }
    return icon;
}

void PageListPanel::onCurrentRowChanged(int row)
{
    if (row >= 0)
        Q_EMIT pageSelected(row);
}
