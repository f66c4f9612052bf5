#pragma once

#include "document/DashElement.h"

#include <QWidget>

class QLabel;
class QSpinBox;
class StyleEditor;

/// Shows the selected element and edits it: straight in its record, past the undo stack, announced
/// by signals. Does not own the element: when its record moves or goes, call setElement,
/// rebindElement or clear before the panel handles its next event.
class PropertyPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    /// Shows an element; null is the same as clear(). A rectangle outside the ranges is shown
    /// clamped; the record stays unchanged until a geometry box is edited.
    void setElement(DashElement* element);
    /// Shows the same element again after its record moved in memory. Refills only the geometry.
    void rebindElement(DashElement* element);
    /// Shows no element.
    void clear();
    /// Reads position and size from the element again; emits nothing.
    void refreshGeometry();
    /// Ranges of the geometry boxes, in display pixels. Changes no element and emits nothing.
    void setPageSize(int width, int height);

    [[nodiscard]] DashElement* element() const { return m_element; }

public Q_SLOTS:
    void onSpinBoxChanged();
    void onValueFontChanged();
    void onLabelFontChanged();
    void pickValueColor();
    void pickLabelColor();

Q_SIGNALS:
    /// Both are emitted for every change of position or size, whichever box it was made in.
    void positionChanged(int x, int y);
    void sizeChanged(int w, int h);
    /// A font, font size or colour changed.
    void fontChanged();

private:
    void connectEditors();
    void setGeometryEnabled(bool enabled);
    void pickColor(QColor DashElement::*color, StyleEditor& editor, const QString& title);

    DashElement* m_element = nullptr;
    bool m_updating = false; ///< the panel is filling its own widgets

    QLabel* m_idLabel = nullptr;
    QLabel* m_channelLabel = nullptr;
    QLabel* m_typeLabel = nullptr;
    QSpinBox* m_xSpin = nullptr;
    QSpinBox* m_ySpin = nullptr;
    QSpinBox* m_widthSpin = nullptr;
    QSpinBox* m_heightSpin = nullptr;
    StyleEditor* m_value = nullptr;
    StyleEditor* m_label = nullptr;
};
