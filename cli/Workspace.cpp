#include "cli/Workspace.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Interruption.h"
#include "document/DashboardDocument.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

namespace {

/// Names the folder for temporary files, where documents unpack to and leave everything behind.
#ifdef Q_OS_WIN
constexpr char kFolderVariable[] = "TMP";
#else
constexpr char kFolderVariable[] = "TMPDIR";
#endif

} // namespace

Workspace::Workspace()
{
    const Interruption::Pause pause;
    m_folder.emplace(QDir::tempPath() + QStringLiteral("/gaugewright-cli-XXXXXX"));
    Interruption::setFolder(m_folder->path());
}

Workspace::~Workspace()
{
    const Interruption::Pause pause;
    m_folder.reset();
    Interruption::setFolder({});
}

bool Workspace::open(DashboardDocument& document, const QString& packagePath,
                     Console& console) const
{
    console.progress(CliText::tr("Opening %1").arg(packagePath));
    if (!m_folder->isValid()) {
        console.fail(QDir::tempPath(), m_folder->errorString());
        return false;
    }
    const QByteArray former = qgetenv(kFolderVariable);
    const auto restore = qScopeGuard([&former] {
        if (former.isNull())
            qunsetenv(kFolderVariable);
        else
            qputenv(kFolderVariable, former);
    });
    qputenv(kFolderVariable, QFile::encodeName(m_folder->path()));
    const bool opened = document.open(packagePath);
    if (!opened)
        console.fail(packagePath, document.errorString());
    return opened;
}
