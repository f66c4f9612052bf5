#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QScopeGuard>

/// Runs `action` under the busy cursor and returns its result. `action` must show no dialog.
template <typename Action>
[[nodiscard]] auto runBusy(const Action& action)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard(&QGuiApplication::restoreOverrideCursor);
    return action();
}
