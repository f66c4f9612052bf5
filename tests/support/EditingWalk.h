#pragma once

#include "document/DashboardDocument.h"
#include "tests/support/ByteSource.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <QUndoStack>

#include <map>

/// A user at work, chosen by bytes: opens a random package and inserts, deletes, moves, restyles,
/// clears, adds pages, undoes, redoes, saves and opens again, also with indices that do not exist.
///
/// After every step records and XML must agree, and at every index of the undo stack the document
/// must be what it was when that index was first reached. Two things are not the stack's to bring
/// back and end such comparisons until the next open: edits made straight in the records, and, for
/// the plain XML text, a save in between; what a save would write is compared from then on.
class EditingWalk
{
public:
    explicit EditingWalk(ByteSource& source);
    ~EditingWalk();
    EditingWalk(const EditingWalk&) = delete;
    EditingWalk& operator=(const EditingWalk&) = delete;

    /// Walks until the bytes run out. @return what went wrong, empty when nothing did.
    [[nodiscard]] QByteArray run();

private:
    struct State
    {
        QByteArray xml;
        QByteArray records;
    };

    void reopen();
    void step();
    void push(QUndoCommand* command);
    void clearPage();
    void deleteElement();
    void insertElement();
    void moveElement();
    void addPage();
    void travel();
    void editRecord();
    void save();
    void saveAndReopen();
    void check();
    [[nodiscard]] State currentState();
    [[nodiscard]] int anyPage();
    [[nodiscard]] int anyElement(int pageIndex);
    [[nodiscard]] DashElement* existingElement();
    void fail(const QByteArray& what);

    ByteSource& m_source;
    QTemporaryDir m_folder;
    DashboardDocument m_document;
    QUndoStack m_stack;
    std::map<int, State> m_states; // by index of the undo stack
    bool m_saved = false;
    bool m_edited = false;
    QByteArray m_failure;
};
