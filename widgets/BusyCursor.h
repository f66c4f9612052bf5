#pragma once

#include <QGuiApplication>

/// Shows the busy cursor while it lives. Must be gone before a message box appears.
class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

/// Runs action under the busy cursor and hands back its result.
template <typename Action>
[[nodiscard]] auto runBusy(const Action& action)
{
    const BusyCursor busy;
    return action();
}
