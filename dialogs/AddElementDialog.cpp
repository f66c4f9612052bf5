#include "dialogs/AddElementDialog.h"

#include "document/DashboardDocument.h"
#include "widgets/LiteralToolTip.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize kInitialSize{700, 500};
constexpr int kTypeListWidth = 220;
constexpr int kSummaryHeight = 50;
constexpr int kTypeStretch = 1;
constexpr int kChannelStretch = 2;

/// The selected row, as opposed to the current one; null for none.
const QListWidgetItem* selectedItem(const QListWidget& list)
{
    return list.selectedItems().value(0);
}

/// A row that only informs: it cannot be selected.
void addPlaceholder(QListWidget* list, const QString& text)
{
    auto* const item = new QListWidgetItem(text, list);
    item->setFlags(Qt::NoItemFlags);
}

} // namespace

AddElementDialog::AddElementDialog(DashboardDocument* document, QWidget* parent)
    : QDialog(parent),
      m_document(document)
{
    setWindowTitle(tr("Insert Element"));
    resize(kInitialSize);
    if (document) {
        m_donors = DonorDiscovery::findDonors(*document);
        m_filter = ChannelFilter(document->channels());
    }
    createWidgets();
    createLayout();
    connectWidgets();
    fillTypes();
    fillChannels(QString());
    if (!m_donors.empty())
        m_typeList->setCurrentRow(0);
}

void AddElementDialog::createWidgets()
{
    m_typeList = new QListWidget;
    m_typeList->setObjectName(QStringLiteral("typeList"));
    m_typeList->setAccessibleName(tr("Type"));
    m_typeList->setMinimumWidth(kTypeListWidth);

    m_filterEdit = new QLineEdit;
    m_filterEdit->setObjectName(QStringLiteral("filterEdit"));
    m_filterEdit->setPlaceholderText(tr("Filter channels..."));
    m_filterEdit->setAccessibleName(tr("Filter channels"));
    m_filterEdit->setClearButtonEnabled(true);

    m_channelList = new QListWidget;
    m_channelList->setObjectName(QStringLiteral("channelList"));
    m_channelList->setAccessibleName(tr("Channel"));
    m_channelList->setUniformItemSizes(true); // thousands of rows are refilled at each keystroke

    m_summaryLabel = new QLabel(tr("Pick a type and a channel."));
    m_summaryLabel->setObjectName(QStringLiteral("summaryLabel"));
    m_summaryLabel->setWordWrap(true);
    m_summaryLabel->setStyleSheet(
        QStringLiteral("QLabel { background: #2a2a2a; color: #ddd; padding: 6px; }"));
    m_summaryLabel->setMinimumHeight(kSummaryHeight);

    m_buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_buttonBox->setObjectName(QStringLiteral("buttonBox"));
    m_insertButton = m_buttonBox->button(QDialogButtonBox::Ok);
    m_insertButton->setText(tr("Insert"));
    m_insertButton->setEnabled(false);
}

void AddElementDialog::createLayout()
{
    auto* const types = new QVBoxLayout;
    types->addWidget(new QLabel(tr("<b>Type</b>")), 0);
    types->addWidget(m_typeList, 1);
    auto* const channels = new QVBoxLayout;
    channels->addWidget(new QLabel(tr("<b>Channel</b>")), 0);
    channels->addWidget(m_filterEdit, 0);
    channels->addWidget(m_channelList, 1);
    auto* const columns = new QHBoxLayout;
    columns->addLayout(types, kTypeStretch);
    columns->addLayout(channels, kChannelStretch);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(m_summaryLabel);
    layout->addWidget(m_buttonBox);
}

void AddElementDialog::connectWidgets()
{
    connect(m_typeList, &QListWidget::currentRowChanged, this, &AddElementDialog::onTypeChanged);
    connect(m_typeList, &QListWidget::itemSelectionChanged, this, &AddElementDialog::updateSummary);
    connect(m_filterEdit, &QLineEdit::textChanged, this, &AddElementDialog::onChannelFilterChanged);
    connect(m_channelList, &QListWidget::itemSelectionChanged, this,
            &AddElementDialog::updateSummary);
    connect(m_channelList, &QListWidget::itemDoubleClicked, this, &AddElementDialog::onAccept);
    m_channelList->viewport()->installEventFilter(this);
    connect(m_buttonBox, &QDialogButtonBox::accepted, this, &AddElementDialog::onAccept);
    connect(m_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void AddElementDialog::fillTypes()
{
    for (const Donor& donor : m_donors) {
        auto* const item = new QListWidgetItem(donor.type, m_typeList);
        item->setToolTip(literalToolTip(donor.hint));
    }
    if (m_donors.empty())
        addPlaceholder(m_typeList, tr("(no donor elements found)"));
}

void AddElementDialog::fillChannels(const QString& filter)
{
    m_channelList->clear();
    if (!m_document)
        return;
    const QString format = tr("%1  (%2)  %3");
    for (const int index : m_filter.matching(filter)) {
        const ChannelDef& channel = m_document->channels()[static_cast<std::size_t>(index)];
        auto* const item =
            new QListWidgetItem(format.arg(channel.longName, channel.shortName, channel.uiv));
        item->setData(Qt::UserRole, index);
        m_channelList->addItem(item);
    }
    if (m_channelList->count() == 0)
        addPlaceholder(m_channelList, tr("(no matching channels)"));
}

void AddElementDialog::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool accepts = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool inFilter = m_filterEdit->hasFocus();
    if (key == Qt::Key_Escape && !m_filterEdit->text().isEmpty()) {
        m_filterEdit->clear();
    } else if (key == Qt::Key_Down && inFilter) {
        m_channelList->setFocus(Qt::OtherFocusReason);
        if (!chosenChannel())
            m_channelList->setCurrentRow(0);
    } else if (accepts && inFilter && m_channelList->count() == 1 && !chosenChannel()) {
        m_channelList->setCurrentRow(0); // the only hit
    } else {
        QDialog::keyPressEvent(event);
    }
}

bool AddElementDialog::eventFilter(QObject* watched, QEvent* event)
{
    // The list reports a double click with any button alike.
    if (watched == m_channelList->viewport() && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return true;
    return QDialog::eventFilter(watched, event);
}

void AddElementDialog::onTypeChanged(int row)
{
    if (row >= 0 && static_cast<std::size_t>(row) < m_donors.size())
        Q_EMIT m_channelList->itemSelectionChanged();
}

void AddElementDialog::onChannelFilterChanged(const QString& filter)
{
    fillChannels(filter);
    // Clearing the list drops its selection without a signal.
    updateSummary();
}

void AddElementDialog::updateSummary()
{
    const Donor* const donor = chosenDonor();
    const ChannelDef* const channel = chosenChannel();
    m_insertButton->setEnabled(donor && channel);
    if (!donor || !channel)
        return;
    m_summaryLabel->setText(
        tr("<b>%1</b> bound to <b>%2</b> (%3 %4)&nbsp;&mdash; native size %5 &times; %6")
            .arg(donor->type.toHtmlEscaped(), channel->longName.toHtmlEscaped(),
                 channel->shortName.toHtmlEscaped(), channel->uiv.toHtmlEscaped(),
                 QString::number(donor->width), QString::number(donor->height)));
}

void AddElementDialog::onAccept()
{
    const Donor* const donor = chosenDonor();
    const ChannelDef* const channel = chosenChannel();
    if (!donor || !channel)
        return;
    m_spec = {
        donor->type,  donor->hint,       donor->node,        donor->width,           donor->height,
        channel->fid, channel->longName, channel->shortName, channel->labelLongName, channel->uiv};
    accept();
}

const Donor* AddElementDialog::chosenDonor() const
{
    const QListWidgetItem* const item = selectedItem(*m_typeList);
    const auto row = static_cast<std::size_t>(m_typeList->row(item)); // -1 is past any end
    return row < m_donors.size() ? &m_donors[row] : nullptr;
}

const ChannelDef* AddElementDialog::chosenChannel() const
{
    const QListWidgetItem* const item = selectedItem(*m_channelList);
    if (!item || !m_document)
        return nullptr;
    bool carriesIndex = false;
    const auto index = static_cast<std::size_t>(item->data(Qt::UserRole).toInt(&carriesIndex));
    const std::vector<ChannelDef>& channels = m_document->channels();
    return carriesIndex && index < channels.size() ? &channels[index] : nullptr;
}
