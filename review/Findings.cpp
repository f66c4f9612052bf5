#include "review/Findings.h"

#include "document/DashboardDocument.h"
#include "document/DisplayFonts.h"
#include "document/OverlayReader.h"
#include "paths/FixedPaths.h"
#include "review/ElementFacts.h"
#include "review/FactText.h"
#include "review/PageNodes.h"
#include "review/ReviewText.h"

#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QRectF>
#include <QSet>

#include <algorithm>
#include <array>

namespace {

using Rule = Finding::Rule;

struct RuleEntry
{
    Rule rule;
    const char* id;
    Severity severity;
    bool aboutElement;
};

constexpr std::array kRules{
    RuleEntry{Rule::OutsidePage, "outside-page", Severity::Warning, true},
    RuleEntry{Rule::NoArea, "no-area", Severity::Error, true},
    RuleEntry{Rule::Covered, "covered", Severity::Warning, true},
    RuleEntry{Rule::DuplicateName, "duplicate-name", Severity::Warning, true},
    RuleEntry{Rule::UnknownChannel, "unknown-channel", Severity::Error, true},
    RuleEntry{Rule::NoDevice, "no-device", Severity::Information, false},
    RuleEntry{Rule::UnknownFont, "unknown-font", Severity::Warning, true},
    RuleEntry{Rule::MissingImage, "missing-image", Severity::Warning, false},
    RuleEntry{Rule::PageSize, "page-size", Severity::Warning, false},
    RuleEntry{Rule::NoMatch, "no-match", Severity::Warning, true},
    RuleEntry{Rule::Match, "match", Severity::Information, true},
};

const RuleEntry& entryOf(Rule rule)
{
    return *std::find_if(kRules.begin(), kRules.end(),
                         [rule](const RuleEntry& entry) { return entry.rule == rule; });
}

/// In coordinates that cannot overflow.
QRectF boxOf(const DashElement& element)
{
    return QRectF(element.x, element.y, element.w, element.h);
}

/// Looks at one page.
class PageCheck
{
public:
    PageCheck(const DashPage& page, int number, std::vector<Finding>& found)
        : m_page(page),
          m_number(number),
          m_found(found)
    {
    }

    void checkSize(int width, int height)
    {
        if (m_page.width == width && m_page.height == height)
            return;
        add(Rule::PageSize, {},
            ReviewText::tr("is %1, the display %2")
                .arg(FactText::size(m_page.width, m_page.height), FactText::size(width, height)));
    }

    void checkImage(const QString& rawPath, const QString& overlayFolder)
    {
        if (rawPath.isEmpty())
            return;
        const QString fallback =
            overlayFolder + u'/' + QString::number(m_page.index) + QStringLiteral(".png");
        for (const QString& path : {QString(FixedPaths::imageRoot() + rawPath), fallback}) {
            if (QFileInfo(path).isFile() && QImageReader(path).canRead())
                return;
        }
        add(Rule::MissingImage, {},
            ReviewText::tr("has no background image, although it names %1")
                .arg(FactText::quoted(rawPath)));
    }

    void checkRectangles()
    {
        const QRectF page(0, 0, std::max(m_page.width, 0), std::max(m_page.height, 0));
        for (const DashElement& element : m_page.elements) {
            const QRectF box = boxOf(element);
            if (box.isEmpty()) {
                add(Rule::NoArea, element.name,
                    ReviewText::tr("has no area: %1").arg(FactText::size(element.w, element.h)));
            } else if (!page.contains(box)) {
                add(Rule::OutsidePage, element.name,
                    page.intersects(box) ? ReviewText::tr("reaches beyond its page")
                                         : ReviewText::tr("is outside its page"));
            }
        }
    }

    void checkCovered()
    {
        /// A page shows some dozens of elements; a damaged one may hold a hundred thousand.
        constexpr std::size_t kMostCompared = 1000;
        const std::vector<DashElement>& elements = m_page.elements;
        std::vector<std::size_t> uncovered; // what a covered one covers, its cover covers too
        std::vector<Finding> reversed;
        for (std::size_t i = elements.size(); i-- > 0;) {
            const QRectF box = boxOf(elements[i]);
            if (box.isEmpty())
                continue;
            const auto cover =
                std::find_if(uncovered.begin(), uncovered.end(), [&](std::size_t later) {
                    return boxOf(elements[later]).contains(box);
                });
            if (cover != uncovered.end()) {
                reversed.push_back(finding(Rule::Covered, elements[i].name,
                                           ReviewText::tr("is covered by element %1")
                                               .arg(FactText::quoted(elements[*cover].name))));
            } else if (uncovered.size() < kMostCompared) {
                uncovered.push_back(i);
            }
        }
        m_found.insert(m_found.end(), reversed.rbegin(), reversed.rend());
    }

    void checkNames()
    {
        QHash<QString, int> uses;
        for (const DashElement& element : m_page.elements) {
            if (!element.name.isEmpty() && ++uses[element.name] == 2) {
                add(Rule::DuplicateName, element.name,
                    ReviewText::tr("shares its name with another"));
            }
        }
    }

    void checkChannels(const QSet<QString>& known)
    {
        for (const DashElement& element : m_page.elements) {
            const QString& channel = element.channelLongName;
            if (!channel.isEmpty() && !known.contains(channel)) {
                add(Rule::UnknownChannel, element.name,
                    ReviewText::tr("is bound to %1, which the device does not have")
                        .arg(FactText::quoted(channel)));
            }
        }
    }

    void checkFonts()
    {
        for (const DashElement& element : m_page.elements) {
            for (const QString& font : ElementFacts::fonts(element)) {
                if (!kFontFamilies.contains(font)) {
                    add(Rule::UnknownFont, element.name,
                        ReviewText::tr("uses font %1, which the display does not have")
                            .arg(FactText::quoted(font)));
                }
            }
        }
    }

private:
    [[nodiscard]] Finding finding(Rule rule, const QString& element, const QString& message) const
    {
        return {rule, m_number, m_page.name, element, message};
    }
    void add(Rule rule, const QString& element, const QString& message)
    {
        m_found.push_back(finding(rule, element, message));
    }

    const DashPage& m_page;
    int m_number;
    std::vector<Finding>& m_found;
};

QSet<QString> channelNames(const DashboardDocument& document)
{
    QSet<QString> names;
    for (const ChannelDef& channel : document.channels())
        names.insert(channel.longName);
    return names;
}

} // namespace

Severity severityOf(Finding::Rule rule)
{
    return entryOf(rule).severity;
}

bool isAboutElement(Finding::Rule rule)
{
    return entryOf(rule).aboutElement;
}

QString identifier(Finding::Rule rule)
{
    return QString::fromLatin1(entryOf(rule).id);
}

QString identifier(Severity severity)
{
    static constexpr std::array kNames{"information", "warning", "error"};
    return QString::fromLatin1(kNames.at(static_cast<std::size_t>(severity)));
}

std::vector<Finding::Rule> allRules()
{
    std::vector<Rule> rules;
    rules.reserve(kRules.size());
    for (const RuleEntry& entry : kRules)
        rules.push_back(entry.rule);
    return rules;
}

std::vector<Finding> findings(const DashboardDocument& document)
{
    std::vector<Finding> found;
    const bool hasDevice = !document.deviceType().isEmpty() || !document.channels().empty();
    if (!hasDevice) {
        found.push_back(
            {Rule::NoDevice,
             0,
             {},
             {},
             ReviewText::tr("no usable device file: channels and page sizes are not checked")});
    }
    const QSet<QString> known = channelNames(document);
    const std::vector<pugi::xml_node> nodes = pageNodes(document);
    const QString overlayFolder = QFileInfo(document.overlayPath()).path();
    for (int i = 0; i < document.pageCount(); ++i) {
        PageCheck check(*document.pageAt(i), i + 1, found);
        if (hasDevice)
            check.checkSize(document.displayWidth(), document.displayHeight());
        check.checkImage(OverlayReader::readImagePath(nodes[static_cast<std::size_t>(i)]),
                         overlayFolder);
        check.checkRectangles();
        check.checkCovered();
        check.checkNames();
        if (hasDevice)
            check.checkChannels(known);
        check.checkFonts();
    }
    return found;
}
