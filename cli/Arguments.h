#pragma once

#include "cli/Console.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

/// The arguments of one subcommand. Every subcommand knows --help, --quiet and --format.
class Arguments
{
public:
    Arguments(const QString& command, const QString& description);

    void addFile(const QString& name, const QString& description);
    /// After all other files.
    void addOptionalFile(const QString& name, const QString& description);
    void addFlag(const QString& name, const QString& description);
    /// @param valueName as the help shows it
    void addOption(const QString& name, const QString& valueName, const QString& description);

    /// Parses what follows the subcommand's name. Nothing when the subcommand is to go on; the
    /// status to end with after help was printed or a wrong usage reported.
    [[nodiscard]] std::optional<ExitStatus> parse(const QStringList& arguments, Console& console);

    /// Reports a wrong usage. @return the status to end with.
    [[nodiscard]] ExitStatus refuse(Console& console, const QString& reason) const;

    /// The index-th file; empty for an optional one that was not given.
    [[nodiscard]] QString file(int index) const { return m_files.value(index); }
    [[nodiscard]] bool isSet(const QString& option) const { return m_parser.isSet(option); }
    [[nodiscard]] QString value(const QString& option) const { return m_parser.value(option); }
    [[nodiscard]] QStringList values(const QString& option) const
    {
        return m_parser.values(option);
    }
    /// The finite number that an option was given, or fallback when it was not; nothing when the
    /// value is no such number.
    [[nodiscard]] std::optional<double> number(const QString& option, double fallback) const;

    [[nodiscard]] bool wantsJson() const;
    /// The whole answer: the facts, the format's version and the subcommand.
    [[nodiscard]] QJsonObject framed(QJsonObject facts) const;
    /// Prints what was found: a line for each item or, as JSON, the facts with all items under
    /// `name`.
    template <typename Items, typename Line, typename Object>
    void print(const Items& items, const Line& lineOf, const Object& objectOf, const QString& name,
               QJsonObject facts, Console& console) const
    {
        if (!wantsJson()) {
            for (const auto& item : items)
                console.print(lineOf(item));
            return;
        }
        QJsonArray list;
        for (const auto& item : items)
            list.append(objectOf(item));
        facts.insert(name, list);
        console.print(framed(facts));
    }

private:
    [[nodiscard]] QString help() const;
    /// Why the arguments cannot be used; empty when they can.
    [[nodiscard]] QString fault() const;

    QString m_command;
    QString m_synopsis;
    QCommandLineParser m_parser;
    QStringList m_fileNames; ///< as the help shows them
    qsizetype m_required = 0;
    QStringList m_files;
};
