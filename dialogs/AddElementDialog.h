#pragma once

#include "dialogs/ChannelFilter.h"
#include "dialogs/DonorDiscovery.h"
#include "dialogs/InsertElementSpec.h"

#include <QDialog>

#include <vector>

class DashboardDocument;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
struct ChannelDef;

/// Asks for a kind of element and a channel. Changes nothing. Reads donors and channels once, at
/// construction; the document is not owned, may be null and must not change while the dialog is
/// open.
///
/// In the filter, Down goes to the channels, Return selects the only hit and, once a channel is
/// selected, inserts. A double click on a channel with the left button inserts too. Escape clears a
/// filter that holds text before it closes the dialog.
class AddElementDialog : public QDialog
{
    Q_OBJECT

public:
    AddElementDialog(DashboardDocument* document, QWidget* parent);

    /// Valid only after the dialog was accepted.
    [[nodiscard]] InsertElementSpec spec() const { return m_spec; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void onTypeChanged(int row);
    void onChannelFilterChanged(const QString& filter);
    void onAccept();

private:
    void createWidgets();
    void createLayout();
    void connectWidgets();
    void fillTypes();
    void fillChannels(const QString& filter);
    void updateSummary();
    /// What is selected (highlighted), as opposed to merely current; null for none.
    [[nodiscard]] const Donor* chosenDonor() const;
    [[nodiscard]] const ChannelDef* chosenChannel() const;

    DashboardDocument* m_document;
    std::vector<Donor> m_donors; // in the order of the type list
    ChannelFilter m_filter;
    QListWidget* m_typeList = nullptr;
    QLineEdit* m_filterEdit = nullptr;
    QListWidget* m_channelList = nullptr;
    QLabel* m_summaryLabel = nullptr;
    QDialogButtonBox* m_buttonBox = nullptr;
    QPushButton* m_insertButton = nullptr;
    InsertElementSpec m_spec;
};
