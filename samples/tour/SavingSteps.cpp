// Saving under a new name and reading back what was saved.

#include "samples/tour/Stage.h"
#include "samples/tour/Steps.h"

#include <QFile>

namespace {

const QString kCopy = QStringLiteral("club-racing-edited.zconf2");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void saveAs(Stage& stage)
{
    const QString original = stage.samplePath(QStringLiteral("club-racing.zconf2"));
    const QByteArray before = contentOf(original);
    stage.note("saved", stage.describeDocument());
    stage.chooseFile(stage.scratchPath(kCopy));
    stage.trigger("saveAsAction");
    stage.check(QFile::exists(stage.scratchPath(kCopy)), QStringLiteral("the copy exists"));
    stage.check(contentOf(original) == before, QStringLiteral("the original is untouched"));
    stage.check(stage.window().windowTitle() ==
                    QStringLiteral("Gaugewright Studio - %1 [MXS]").arg(kCopy),
                QStringLiteral("the title names the copy"));
}

void reopen(Stage& stage)
{
    stage.chooseFile(stage.samplePath(QStringLiteral("compact.zconf2")));
    stage.trigger("openAction");
    stage.check(stage.describeDocument() != stage.noted("saved"),
                QStringLiteral("another package is open"));
    stage.chooseFile(stage.scratchPath(kCopy));
    stage.trigger("openAction");
    stage.check(stage.describeDocument() == stage.noted("saved"),
                QStringLiteral("the copy holds what was saved"));
}

} // namespace

std::vector<Step> savingSteps()
{
    return {
        {"saved-as", saveAs},
        {"reopened", reopen},
    };
}
