#pragma once

#include <QComboBox>

/// A combo box that may be narrower than its texts: the current one is shown with "…" where it does
/// not fit, and whole in the tool tip.
class ElidedComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit ElidedComboBox(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
