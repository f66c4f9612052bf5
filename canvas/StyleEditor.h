#pragma once

#include <QGroupBox>

class QColor;
class QComboBox;
class QPushButton;
class QSpinBox;

/// Font, size and colour of one text, in a titled group. Knows no element: it shows what it is
/// given and reports edits.
class StyleEditor : public QGroupBox
{
    Q_OBJECT

public:
    /// @param namePrefix what the object names of the three widgets begin with
    StyleEditor(const QString& title, const QString& namePrefix, QWidget* parent = nullptr);

    /// Shows a style; reports what changes by that as edits too. A family that is not offered
    /// leaves the one before.
    /// @param pixels clamped to the range of the box
    void showStyle(const QString& family, int pixels, const QColor& color);
    void showColor(const QColor& color);
    void setEditable(bool editable);

    [[nodiscard]] QString family() const;
    [[nodiscard]] int pixels() const;

Q_SIGNALS:
    /// Family or size changed.
    void fontEdited();
    /// The colour button was clicked.
    void colorRequested();

private:
    QComboBox* m_family;
    QSpinBox* m_pixels;
    QPushButton* m_color;
};
