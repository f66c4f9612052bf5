#pragma once

#include "driver/WindowDriver.h"

#include <QPixmap>
#include <QStringList>

class QDialog;

/// What the steps of the tour share: the window, answers to its dialogs, checks and pictures.
class Stage : public WindowDriver
{
public:
    /// Opens samples from samplesDir, read only. Files of the tour go to scratchDir.
    Stage(const QString& samplesDir, const QString& scratchDir);

    void check(bool holds, const QString& expectation);
    void check(bool holds, const char* expectation) { check(holds, QLatin1String(expectation)); }
    /// The checks that failed.
    [[nodiscard]] const QStringList& failures() const { return m_failures; }

    /// An element of the page shown.
    [[nodiscard]] const DashElement& element(const QString& name) const;
    /// Every page and element as text, to compare; styles, which are not undoable, on request.
    [[nodiscard]] QString describe(bool withStyles) const;

    [[nodiscard]] DialogDriver& dialogs() { return m_dialogs; }
    /// Triggers an action that must be enabled and use up the answers to dialogs.
    void command(const char* action);
    /// The same with an action that asks for a file.
    void command(const char* action, const QString& path);
    /// Drags an element of the page shown to a place on the page, in display pixels.
    void dragTo(const QString& element, const QPoint& place);

    /// Takes the picture of this step now, not at its end.
    void photograph() { m_picture = m_window->grab(); }
    /// The same with a dialog in front of the window.
    void photograph(QDialog& dialog);
    /// The picture of the step that has just ended.
    [[nodiscard]] QPixmap takePicture();

    const QString m_samples;                        ///< their folder, with a slash
    const QString m_copy;                           ///< path of the package that the tour saves
    QString m_layoutBefore, m_layoutAfter, m_saved; ///< descriptions to compare in later steps

private:
    QStringList m_failures;
    QPixmap m_picture; // null until the step takes one
    DialogDriver m_dialogs;
};

/// A step of the tour. Each builds on those before it.
struct Step
{
    const char* picture; ///< name of the picture of its result
    void (*act)(Stage& stage);
};

[[nodiscard]] std::vector<Step> tourSteps();
