// What the program, its man page, its completion, its guide and its JSON schema say must agree.

#include "review/Differences.h"
#include "review/Findings.h"
#include "tests/cli/RanCommand.h"
#include "tests/support/PackageBuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kSubcommands{u"show"_s,   u"diff"_s,     u"check"_s,
                               u"render"_s, u"channels"_s, u"recover"_s};

QString fileText(const QString& path)
{
    const QByteArray content = TestPackage::readFile(QStringLiteral(SOURCE_DIR "/") + path);
    EXPECT_FALSE(content.isEmpty()) << path.toStdString();
    return QString::fromUtf8(content);
}

/// What the first group matches anywhere in the text, sorted.
QStringList matches(const QString& text, const QString& pattern)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch& match : expression.globalMatch(text))
        found.append(match.captured(1));
    found.sort();
    return found;
}

/// From the heading to the next heading of that kind; empty when there is no such heading.
QString section(const QString& text, const QString& heading, const QString& next)
{
    const qsizetype begin = text.indexOf(heading);
    return begin < 0 ? QString() : text.sliced(begin, text.indexOf(next, begin + 1) - begin);
}

/// What the last word is completed to, sorted.
QStringList completed(const QString& typed)
{
    const QString script =
        u"compopt() { :; }; source '%1'; COMP_WORDS=(gaugewright-cli %2); "
        "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _gaugewright_cli; "
        "printf '%s\\n' \"${COMPREPLY[@]}\" | sort"_s.arg(
            QStringLiteral(SOURCE_DIR "/packaging/linux/gaugewright-cli.bash"), typed);
    QProcess bash;
    bash.start(u"bash"_s, {u"-c"_s, script});
    EXPECT_TRUE(bash.waitForFinished());
    QStringList words =
        QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    words.sort();
    return words;
}

QStringList helpOptions(const QString& subcommand)
{
    return matches(QString::fromUtf8(runCommand({subcommand, u"--help"_s}).answer),
                   u"^  (--[a-z-]+)"_s);
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/// The identifiers that the schema allows in a list of an answer, sorted.
QStringList schemaIds(const QString& answer, const QString& list)
{
    const QJsonDocument schema =
        QJsonDocument::fromJson(fileText(u"cli/gaugewright-cli.schema.json"_s).toUtf8());
    QStringList ids;
    for (const QJsonValue id : schema[u"definitions"_s][answer][u"properties"_s][list][u"items"_s]
                                     [u"properties"_s][u"id"_s][u"enum"_s]
                                         .toArray())
        ids.append(id.toString());
    return sorted(ids);
}

} // namespace

TEST(Documentation, EveryOptionIsInManPageCompletionAndGuide)
{
    const QString man =
        fileText(u"packaging/linux/gaugewright-cli.1.in"_s).replace(u"\\-"_s, u"-"_s);
    const QString guide = fileText(u"docs/command-line.md"_s);
    const auto manOptions = [&man](const QString& heading) {
        return matches(section(man, heading, u"\n.PP\n"_s), u"^\\.BI? (--[a-z-]+)"_s);
    };
    const auto guideOptions = [&guide](const QString& heading) {
        return matches(section(guide, heading, u"\n## "_s), u"^\\| `(--[a-z-]+)"_s);
    };
    for (const QString& name : kSubcommands) {
        const QStringList options = helpOptions(name);
        EXPECT_GE(options.size(), 3);
        EXPECT_EQ(
            sorted(manOptions(u"All subcommands:"_s) + manOptions(u".BR "_s + name + u" :"_s)),
            options)
            << name.toStdString();
        EXPECT_EQ(sorted(guideOptions(u"## What all"_s) + guideOptions(u"\n## "_s + name + u'\n')),
                  options)
            << name.toStdString();
        EXPECT_EQ(completed(name + u" --"_s), options) << name.toStdString();
    }
}

TEST(Documentation, EverySubcommandIsInManPageCompletionGuideAndReadme)
{
    EXPECT_EQ(matches(QString::fromUtf8(runCommand({u"--help"_s}).answer), u"^  ([a-z]+) "_s),
              sorted(kSubcommands));
    EXPECT_EQ(completed(u"''"_s), sorted(kSubcommands + QStringList{u"--help"_s, u"--version"_s}));
    for (const QString& file : {u"docs/command-line.md"_s, u"README.md"_s}) {
        EXPECT_EQ(matches(section(fileText(file), u"\ngaugewright-cli "_s, u"```"_s),
                          u"^gaugewright-cli ([a-z]+)"_s),
                  sorted(kSubcommands))
            << file.toStdString();
    }
    EXPECT_EQ(matches(fileText(u"packaging/linux/gaugewright-cli.1.in"_s),
                      u"^\\.B gaugewright-cli ([a-z]+)$"_s),
              sorted(kSubcommands));
}

TEST(Documentation, EveryFindingIsInGuideCompletionAndSchema)
{
    QStringList ids;
    QStringList rows;
    for (const Finding::Rule rule : allRules()) {
        ids.append(identifier(rule));
        rows.append(u'`' + identifier(rule) + u"` | "_s + identifier(severityOf(rule)));
    }
    EXPECT_EQ(matches(fileText(u"docs/command-line.md"_s),
                      u"^\\| (`[a-z-]+` \\| (?:error|warning|information)) \\|"_s),
              sorted(rows));
    EXPECT_EQ(completed(u"check --ignore ''"_s), sorted(ids));
    EXPECT_EQ(schemaIds(u"check"_s, u"findings"_s), sorted(ids));
}

TEST(Documentation, EveryDifferenceIsInTheSchema)
{
    QStringList ids;
    for (int i = 0; i <= static_cast<int>(Difference::Change::FileChanged); ++i)
        ids.append(identifier(static_cast<Difference::Change>(i)));
    EXPECT_EQ(schemaIds(u"diff"_s, u"differences"_s), sorted(ids));
}
