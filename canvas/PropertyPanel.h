#pragma once

#include "document/DashElement.h"

#include <QWidget>

/// Inspector of the selected element. Edits go straight into the element's record, past the undo
/// stack, and are announced by signals. Does not own the element: whoever frees or moves the record
/// must call setElement or clear first.
class PropertyPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    void setElement(DashElement* element);
    /// Shows the same element at its present place in memory: no widget but the geometry is
    /// refilled.
    void rebindElement(DashElement* element);
    void clear();
    void refreshGeometry();
    /// Ranges of the geometry boxes, in display pixels.
    void setPageSize(int width, int height);

    [[nodiscard]] DashElement* element() const { return m_element; }

Q_SIGNALS:
    void positionChanged(int x, int y);
    void sizeChanged(int w, int h);
    void fontChanged();

private:
    DashElement* m_element = nullptr;
};
