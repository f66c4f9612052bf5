#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class DashboardDocument;

/// Something in a layout that a user should look at.
struct Finding
{
    enum class Rule
    {
        OutsidePage,
        NoArea,
        Covered,
        DuplicateName,
        UnknownChannel,
        NoDevice, ///< so channels and display cannot be checked
        UnknownFont,
        MissingImage,
        PageSize,
        NoMatch, ///< the recording has no channel for one of the layout
        Match    ///< the channel that a layout channel shows
    };

    Rule rule = Rule::OutsidePage;
    int page = 0; ///< number of the page, from 1; 0 for the layout as a whole
    QString pageName;
    QString element; ///< name of the element; empty for pages and the layout
    QString message; ///< one line, translated

    friend bool operator==(const Finding&, const Finding&) = default;
};

enum class Severity
{
    Information,
    Warning,
    Error
};

[[nodiscard]] Severity severityOf(Finding::Rule rule);
/// Whether its findings name an element.
[[nodiscard]] bool isAboutElement(Finding::Rule rule);
/// Identifiers for programs: fixed, never translated.
[[nodiscard]] QString identifier(Finding::Rule rule);
[[nodiscard]] QString identifier(Severity severity);
/// Every rule, in their order.
[[nodiscard]] std::vector<Finding::Rule> allRules();

/// The findings that need no recording, page by page. On a page with more than 1,000 elements that
/// nothing covers, some covered ones go unreported: finding all would take minutes.
[[nodiscard]] std::vector<Finding> findings(const DashboardDocument& document);

/// What a recording shows on a layout: for every layout channel, at the first element bound to it,
/// either the recorded channel it matches and the rule that found it, or that nothing does.
/// @param recorded names as a session gives them, sorted by their lower-case form
[[nodiscard]] std::vector<Finding> channelCoverage(const DashboardDocument& document,
                                                   const QStringList& recorded);
