#pragma once

#include "document/DashElement.h"

#include <QWidget>

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSpinBox;

/// Inspector of the selected element. Edits go straight into the element's record, past the undo
/// stack, and are announced by signals. Does not own the element: whoever frees or moves the record
/// must call setElement, rebindElement or clear before the panel handles its next event.
class PropertyPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    /// Shows an element; null is the same as clear(). A rectangle outside the ranges is shown
    /// clamped and left as it is until a geometry box is touched.
    void setElement(DashElement* element);
    /// Shows the same element at its present place in memory: no widget but the geometry is
    /// refilled.
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
    /// The three widgets that edit one text style.
    struct StyleEditor
    {
        QComboBox* font = nullptr;
        QSpinBox* size = nullptr;
        QPushButton* color = nullptr;

        void show(const QString& family, int pixels, const QColor& shown) const;
        void showColor(const QColor& shown) const;
        void setEnabled(bool enabled) const;
    };

    [[nodiscard]] QGroupBox* createElementGroup();
    [[nodiscard]] QGroupBox* createPositionGroup();
    [[nodiscard]] QGroupBox* createSizeGroup();
    [[nodiscard]] QGroupBox* createStyleGroup(const QString& title, const QString& namePrefix,
                                              StyleEditor& editor);
    void connectEditors();
    void setGeometryEnabled(bool enabled);
    [[nodiscard]] QColor pickColor(const QColor& initial, const QString& title);

    DashElement* m_element = nullptr;
    bool m_updating = false; ///< the panel is filling its own widgets

    QLabel* m_idLabel = nullptr;
    QLabel* m_channelLabel = nullptr;
    QLabel* m_typeLabel = nullptr;
    QSpinBox* m_xSpin = nullptr;
    QSpinBox* m_ySpin = nullptr;
    QSpinBox* m_widthSpin = nullptr;
    QSpinBox* m_heightSpin = nullptr;
    StyleEditor m_value;
    StyleEditor m_label;
    QGroupBox* m_labelGroup = nullptr;
};
