#pragma once

#include "app/commands/PageCommand.h"
#include "document/DashboardDocument.h"

#include <QCoreApplication>

/// Appends a blank page. The first redo makes the page; every later one puts the same page back.
/// The document is not owned and may be null, which makes redo and undo do nothing.
class NewPageCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(NewPageCommand)

public:
    NewPageCommand(DashboardDocument* document, const QString& name);
    ~NewPageCommand() override;

    void undo() override;
    void redo() override;

    /// Index of the page that the first redo made, -1 before.
    [[nodiscard]] int pageIndex() const override { return m_pageIndex; }

private:
    void createPage();

    DashboardDocument* m_document;
    QString m_name;
    int m_pageIndex = -1;
    DashPage m_savedPage;
    pugi::xml_document m_savedXml; // empty until the first successful redo
};
