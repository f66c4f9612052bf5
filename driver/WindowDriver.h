#pragma once

#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"
#include "driver/DialogDriver.h"

#include <QUndoStack>

#include <memory>

/// A main window, operated through its widgets with the events of a mouse and a keyboard.
class WindowDriver
{
public:
    using Report = DialogDriver::Report;

    /// Shows a new main window, not yet active. report may be called by any other function.
    explicit WindowDriver(Report report);

    [[nodiscard]] MainWindow& window() const { return *m_window; }
    /// The descendant with that object name. Ends the program when there is none.
    template <typename T>
    [[nodiscard]] T* child(const char* name) const
    {
        T* const found = m_window->findChild<T*>(QLatin1String(name));
        if (!found)
            qFatal("the window has no %s", name);
        return found;
    }
    [[nodiscard]] DashCanvas& canvas() const { return *child<DashCanvas>("canvas"); }
    [[nodiscard]] PropertyPanel& panel() const { return *child<PropertyPanel>("propertyPanel"); }
    [[nodiscard]] PageListPanel& pageList() const { return *child<PageListPanel>("pageList"); }
    [[nodiscard]] QUndoStack& stack() const { return *m_window->findChild<QUndoStack*>(); }
    /// The text in the status bar.
    [[nodiscard]] QString status() const;

    /// Makes the window active. Needed after a dialog: offscreen, no window manager does it.
    void activate() const;
    /// Activates the window and sends a key stroke to one of its widgets.
    void press(QWidget& pane, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void trigger(const char* action) const;
    void clickPage(int row) const;
    void clickGridSnap() const;
    /// Chooses an item of a combo box with the arrow keys. Reports when it cannot be chosen.
    void choose(const char* comboBox, int index) const;
    /// Moves the replay to a number of whole seconds, with the keys of its slider.
    void seek(int seconds) const;

    // Elements are those of the page shown, by index. Points are pixels of the canvas.

    /// Ends the program when the page has no element with that name.
    [[nodiscard]] int indexOf(const QString& element) const;
    [[nodiscard]] QPoint centerOf(int element) const;
    void clickElement(int element) const;
    void drag(const QPoint& from, const QPoint& to) const;
    void drag(int element, const QPoint& by) const;

protected:
    Report m_report;
    std::unique_ptr<MainWindow> m_window;
};
