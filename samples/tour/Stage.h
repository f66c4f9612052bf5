#pragma once

#include "app/MainWindow.h"
#include "samples/tour/DialogAnswers.h"

#include <QKeySequence>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <map>
#include <string>

class DashCanvas;
class QDialog;

/// The real main window with hands and eyes: what the tour's steps do to it goes through the events
/// that a user's mouse and keyboard make, and what they expect is checked.
class Stage
{
public:
    /// Samples are opened from samplesDir and never written to; scratchDir is for files of the
    /// tour.
    Stage(QString samplesDir, QString scratchDir);

    [[nodiscard]] QString samplePath(const QString& fileName) const;
    [[nodiscard]] QString scratchPath(const QString& fileName) const;

    /// Notes a failure when the condition does not hold.
    void check(bool holds, const QString& expectation);
    [[nodiscard]] const QStringList& failures() const { return m_failures; }

    // --- What is there ---------------------------------------------------------------------------

    [[nodiscard]] MainWindow& window() { return m_window; }
    /// The descendant of that object name, which must exist.
    template <typename Child>
    [[nodiscard]] Child& child(const char* name) const
    {
        auto* const found = m_window.findChild<Child*>(QLatin1String(name));
        if (!found)
            qFatal("the window has no %s", name);
        return *found;
    }
    [[nodiscard]] DashCanvas& canvas() const;
    /// Keeps a description under a name for a later step.
    void note(const char* name, const QString& text) { m_notes[name] = text; }
    [[nodiscard]] QString noted(const char* name) const { return m_notes.at(name); }

    /// The element of that name on the page shown; a default one, with a failure noted, if absent.
    [[nodiscard]] DashElement element(const QString& name);
    [[nodiscard]] QString statusText() const;
    /// The edited state in words: every page and element with its geometry, binding and styles.
    [[nodiscard]] QString describeDocument() const;
    /// The same without the styles, which the inspector changes past the undo stack.
    [[nodiscard]] QString describeLayout() const;

    // --- What a user does ------------------------------------------------------------------------

    /// Triggers a menu entry.
    void trigger(const char* action);
    /// Presses the keys of a shortcut of the window.
    void press(QKeySequence::StandardKey shortcut);
    void clickPage(int row);
    void clickElement(const QString& name);
    /// Presses at one point of the canvas, moves to another and releases; widget pixels.
    void drag(const QPoint& from, const QPoint& to);
    /// Drags an element so that its top left corner comes to a place on the page; display pixels.
    void dragElement(const QString& name, const QPoint& destination);
    /// Switches the grid on or off.
    void clickGridSnap();
    /// Chooses an item of a combo box.
    void select(const char* comboBox, int index);

    // --- Dialogs; each is said before it opens ---------------------------------------------------

    [[nodiscard]] DialogAnswers& dialogs() { return m_dialogs; }
    void chooseFile(const QString& path);

    // --- Pictures --------------------------------------------------------------------------------

    /// Makes the picture of this step one of the window as it is now.
    void photographWindow();
    /// Makes the picture of this step one of the window with the dialog in front.
    void photograph(QDialog& dialog);
    /// The picture of a step that is over: of the window at its end, unless one was made before.
    [[nodiscard]] QPixmap takePicture();

private:
    [[nodiscard]] QString describe(bool withStyles) const;

    QString m_samplesDir;
    QString m_scratchDir;
    QStringList m_failures;
    std::map<std::string, QString> m_notes;
    QPixmap m_picture; // null until the step makes one
    DialogAnswers m_dialogs;
    MainWindow m_window;
};
