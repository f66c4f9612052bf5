#pragma once

#include "app/commands/PageCommand.h"

#include <QCoreApplication>

/// Appends a blank page. The first redo makes the page; every later one restores the same page.
/// The document is not owned and may be null.
class NewPageCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(NewPageCommand)

public:
    NewPageCommand(DashboardDocument* document, const QString& name);

    void undo() override;
    void redo() override;

    /// Index of the page that the first redo made, -1 before.
    [[nodiscard]] int pageIndex() const { return m_page.index(); }

private:
    void createPage();

    QString m_name;
    DashPage m_savedPage;
    pugi::xml_document m_savedXml; // empty until the first successful redo
};
