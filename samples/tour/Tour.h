#pragma once

#include "driver/WindowDriver.h"

#include <QPixmap>
#include <QStringList>

/// The steps of the guided tour through a window of the editor. Each builds on those before it.
class Tour : public WindowDriver
{
public:
    /// Opens samples from samplesDir, read only. Files of the tour go to scratchDir.
    Tour(const QString& samplesDir, const QString& scratchDir);

    /// The checks that failed.
    [[nodiscard]] const QStringList& failures() const { return m_failures; }
    void check(bool holds, const char* expectation) const;
    /// The picture of the step that has just ended.
    [[nodiscard]] QPixmap takePicture();

    void start();
    void open();
    void walkPages();
    void select();
    void move();
    void resizeOnGrid();
    void restyle();
    void addPage();
    void insertGauge();
    void fillPage();
    void removeElement();
    void clearPage();
    void undoAll();
    void redoAll();
    void saveAs();
    void reopen();
    void loadRecording();
    void play1x() { play(0); }
    void play2x() { play(1); }
    void play4x() { play(2); }
    void changeUnit();
    void about();

private:
    [[nodiscard]] const DashElement& element(const QString& name) const;
    [[nodiscard]] const DashboardDocument& document() const { return window().document(); }

    /// Triggers an action that must be enabled and use up the answers to dialogs.
    /// @param path the answer to its file dialog, empty for none
    void command(const char* action, const QString& path = {});
    /// The filter must leave one channel or have it first.
    void insert(const QString& type, const QString& filter);
    /// Drags an element to a place on the page, in display pixels.
    void dragTo(const QString& name, const QPoint& place);
    /// Plays at 1x, 2x or 4x for ten ticks, photographs the last one while it is shown, and stops.
    void play(int rateIndex);
    /// Takes the picture of this step now, not at its end.
    void photograph() { m_picture = m_window->grab(); }
    /// The same with a dialog in front. Offscreen, no window manager draws a frame.
    void photograph(QDialog& dialog);

    DialogDriver m_dialogs{m_report};
    QStringList m_failures;
    QPixmap m_picture;       // null until the step takes one
    const QString m_samples; // their folder, with a slash
    const QString m_copy;    // the package that the tour saves
    QStringList m_layoutBefore, m_layoutAfter, m_saved;
};
