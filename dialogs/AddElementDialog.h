#pragma once

#include "dialogs/InsertElementSpec.h"

#include <QDialog>

class DashboardDocument;

/// Asks for a kind of element and a channel. Donors and channels are read once, at construction; the
/// document is not owned and must not change while the dialog is open.
class AddElementDialog : public QDialog {
    Q_OBJECT

public:
    AddElementDialog(DashboardDocument* document, QWidget* parent);

    /// Valid only after the dialog was accepted.
    [[nodiscard]] InsertElementSpec spec() const { return m_spec; }

private:
    InsertElementSpec m_spec;
};
