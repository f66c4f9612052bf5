#include "app/PageListPanel.h"

#include "widgets/LiteralToolTip.h"
#include "widgets/ScaledPixmap.h"

#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int kMinimumWidth = 120;
constexpr int kMaximumWidth = 180;
constexpr QSize kThumbnailSize{120, 72};
constexpr int kRowSpacing = 4;
constexpr int kImageRole = Qt::UserRole; // QPixmap::cacheKey of the page's image

/// Shows the name below the thumbnail: next to it, the narrow list has no room for it.
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
        const QString& name = page.name;
        auto* const item = new QListWidgetItem(name);
        item->setToolTip(literalToolTip(name));
        item->setData(kImageRole, page.image.cacheKey());
        if (!page.image.isNull())
            item->setIcon(thumbnail(page.image, former));
        addItem(item);
    }
    describe(pages);
    if (!pages.empty())
        setCurrentRow(0);
}

void PageListPanel::refresh(const std::vector<DashPage>& pages, int current)
{
    const QSignalBlocker quiet(this);
    if (shows(pages))
        describe(pages);
    else
        setPages(pages);
    setCurrentRow(std::clamp(current, 0, std::max(count() - 1, 0)));
}

bool PageListPanel::shows(const std::vector<DashPage>& pages) const
{
    int row = 0;
    return std::ssize(pages) == count() &&
           std::all_of(pages.begin(), pages.end(), [&](const DashPage& page) {
               const QListWidgetItem* const shown = item(row++);
               return shown->text() == page.name &&
                      shown->data(kImageRole).toLongLong() == page.image.cacheKey();
           });
}

/// For assistive technology, which reads the name from the row's text.
void PageListPanel::describe(const std::vector<DashPage>& pages)
{
    int row = 0;
    for (const DashPage& page : pages) {
        item(row++)->setData(Qt::AccessibleDescriptionRole,
                             tr("%1 x %2 pixels, %3 elements")
                                 .arg(QString::number(page.width), QString::number(page.height),
                                      QString::number(page.elements.size())));
    }
}

QIcon PageListPanel::thumbnail(const QPixmap& image, const Thumbnails& former)
{
    QIcon& icon = m_thumbnails[image.cacheKey()];
    if (icon.isNull())
        icon = former.value(image.cacheKey());
    if (icon.isNull())
        icon = scaledToFit(image, kThumbnailSize, *this);
    return icon;
}

void PageListPanel::onCurrentRowChanged(int row)
{
    if (row >= 0)
        Q_EMIT pageSelected(row);
}

/// A row that was clicked is selected, whatever keys are held: with Ctrl a plain list would
/// deselect the page that is shown.
QItemSelectionModel::SelectionFlags PageListPanel::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* /*event*/) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}
