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
#include <QImageReader>
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

/// An element's rectangle in coordinates that cannot overflow.
struct Box
{
    explicit Box(const DashElement& element)
        : left(element.x),
          top(element.y),
          right(left + element.w),
          bottom(top + element.h)
    {
    }
    Box(qint64 width, qint64 height) : right(width), bottom(height) {}

    [[nodiscard]] bool hasArea() const { return right > left && bottom > top; }
    [[nodiscard]] bool holds(const Box& other) const
    {
        return left <= other.left && top <= other.top && right >= other.right &&
               bottom >= other.bottom;
    }
    [[nodiscard]] bool meets(const Box& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }

    qint64 left = 0;
    qint64 top = 0;
    qint64 right = 0;
    qint64 bottom = 0;
};

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
        const Box page(m_page.width, m_page.height);
        for (const DashElement& element : m_page.elements) {
            const Box box(element);
            if (!box.hasArea()) {
                add(Rule::NoArea, element.name,
                    ReviewText::tr("has no area: %1").arg(FactText::size(element.w, element.h)));
            } else if (!page.holds(box)) {
                add(Rule::OutsidePage, element.name,
                    page.meets(box) ? ReviewText::tr("reaches beyond its page")
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
            const Box box(elements[i]);
            if (!box.hasArea())
                continue;
            const auto cover =
                std::find_if(uncovered.begin(), uncovered.end(),
                             [&](std::size_t later) { return Box(elements[later]).holds(box); });
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
        QSet<QString> names;
        QSet<QString> reported;
        for (const DashElement& element : m_page.elements) {
            if (element.name.isEmpty() || !names.contains(element.name)) {
                names.insert(element.name);
            } else if (!reported.contains(element.name)) {
                reported.insert(element.name);
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
