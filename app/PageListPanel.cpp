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

/// Formats the texts of tool tip and assistive technology when they are queried, which is rare.
class PageRow : public QListWidgetItem
{
public:
    explicit PageRow(const DashPage& page)
        : QListWidgetItem(page.name),
          m_image(page.image.cacheKey())
    {
        describe(page);
    }

    /// Whether the row shows that name and image.
    [[nodiscard]] bool shows(const DashPage& page) const
    {
        return text() == page.name && m_image == page.image.cacheKey();
    }

    void describe(const DashPage& page)
    {
        m_size = {page.width, page.height};
        m_elements = page.elements.size();
    }

    [[nodiscard]] QVariant data(int role) const override
    {
        if (role == Qt::ToolTipRole)
            return literalToolTip(text());
        if (role == Qt::AccessibleDescriptionRole)
            return PageListPanel::tr("%1 x %2 pixels, %3 elements")
                .arg(QString::number(m_size.width()), QString::number(m_size.height()),
                     QString::number(m_elements));
        return QListWidgetItem::data(role);
    }

private:
    qint64 m_image; // QPixmap::cacheKey
    QSize m_size;
    std::size_t m_elements = 0;
};

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
        auto* const row = new PageRow(page);
        if (!page.image.isNull())
            row->setIcon(thumbnail(page.image, former));
        addItem(row);
    }
    if (!pages.empty())
        setCurrentRow(0);
}

void PageListPanel::refresh(const std::vector<DashPage>& pages, int current)
{
    const QSignalBlocker quiet(this);
    const auto update = [this, row = 0](const DashPage& page) mutable {
        auto* const shown = static_cast<PageRow*>(item(row++));
        shown->describe(page);
        return shown->shows(page);
    };
    if (std::ssize(pages) != count() || !std::all_of(pages.begin(), pages.end(), update))
        setPages(pages);
    setCurrentRow(std::clamp(current, 0, std::max(count() - 1, 0)));
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
