#include "review/Differences.h"

#include "document/DashboardDocument.h"
#include "document/ElementGeometry.h"
#include "document/OverlayReader.h"
#include "review/ElementFacts.h"
#include "review/FactText.h"
#include "review/OtherFiles.h"
#include "review/OtherSettings.h"
#include "review/PageNodes.h"
#include "review/Pairing.h"

#include <algorithm>
#include <iterator>

namespace {

using Change = Difference::Change;
using FactText::facts;

/// Collects the differences of one page, or of the layout as a whole.
class Report
{
public:
    explicit Report(std::vector<Difference>& differences, int page = 0, QString pageName = {})
        : m_differences(differences),
          m_page(page),
          m_pageName(std::move(pageName))
    {
    }

    void add(Change change, const QString& subject, const QString& before = {},
             const QString& after = {})
    {
        m_differences.push_back({change, m_page, m_pageName, subject, before, after});
    }

    /// Adds the difference unless both facts are the same.
    bool compare(Change change, const QString& subject, const QString& before, const QString& after)
    {
        if (before == after)
            return false;
        add(change, subject, before, after);
        return true;
    }

private:
    std::vector<Difference>& m_differences;
    int m_page;
    QString m_pageName;
};

/// The names of all items, by the member that holds one's name.
template <typename Items, typename Member>
QStringList namesOf(const Items& items, Member name)
{
    QStringList names;
    for (const auto& item : items)
        names.append(item.*name);
    return names;
}

QString place(std::size_t index)
{
    return QString::number(index + 1);
}

// --- Channels and files --------------------------------------------------------------------------

/// How the differences of a list of named things are called.
struct ListChanges
{
    Change added;
    Change removed;
    Change changed;
};

template <typename Items, typename Member>
void compareLists(const Items& former, const Items& present, Member name,
                  const ListChanges& changes, Report& report)
{
    const Pairing pairing =
        pairUp(namesOf(former, name), namesOf(present, name), [&](std::size_t f, std::size_t p) {
            return former[f].*name == present[p].*name && facts(former[f]) == facts(present[p])
                       ? kAlike
                       : 0;
        });
    for (const std::size_t i : pairing.removed)
        report.add(changes.removed, former[i].*name, facts(former[i]));
    for (const std::size_t i : pairing.added)
        report.add(changes.added, present[i].*name, {}, facts(present[i]));
    for (const auto& [f, p] : pairing.pairs)
        report.compare(changes.changed, present[p].*name, facts(former[f]), facts(present[p]));
}

// --- Elements ------------------------------------------------------------------------------------

int likenessOf(const DashElement& former, const DashElement& present)
{
    constexpr int kSameKind = 30;
    constexpr int kSameChannel = 30;
    constexpr int kBothWithoutChannel = 10;
    constexpr int kSamePlace = 20;
    constexpr int kSameSize = 20;
    int likeness = 0;
    if (ElementFacts::kindName(former) == ElementFacts::kindName(present))
        likeness += kSameKind;
    if (former.channelLongName == present.channelLongName)
        likeness += former.channelLongName.isEmpty() ? kBothWithoutChannel : kSameChannel;
    if (former.x == present.x && former.y == present.y)
        likeness += kSamePlace;
    if (former.w == present.w && former.h == present.h)
        likeness += kSameSize;
    return likeness;
}

QString textsOf(const DashElement& element)
{
    QStringList texts;
    for (const QString& text : ElementFacts::texts(element))
        texts.append(FactText::quoted(text));
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral(", "));
}

void compareElement(const DashElement& former, const DashElement& present, Report& report)
{
    const auto compare = [&](Change change, const auto& factOf) {
        return report.compare(change, present.name, factOf(former), factOf(present));
    };
    compare(Change::ElementRenamed, [](const DashElement& e) { return e.name; });
    compare(Change::ElementKind, ElementFacts::kindName);
    compare(Change::ElementMoved,
            [](const DashElement& e) { return FactText::position(e.x, e.y); });
    compare(Change::ElementResized, [](const DashElement& e) { return FactText::size(e.w, e.h); });
    OtherSettings::Reported reported;
    reported.channel = compare(Change::ElementChannel, ElementFacts::channel);
    reported.valueStyle = compare(Change::ElementValueStyle, ElementFacts::valueStyle);
    reported.labelStyle = compare(Change::ElementLabelStyle, ElementFacts::labelStyle);
    reported.texts = compare(Change::ElementTexts, textsOf);
    if (OtherSettings::ofElement(former.node, reported) !=
        OtherSettings::ofElement(present.node, reported))
        report.add(Change::ElementSettings, present.name);
}

QString factsOf(const DashElement& element)
{
    return ElementFacts::kindName(element) + QStringLiteral(", channel ") +
           ElementFacts::channel(element) + QStringLiteral(", ") +
           FactText::size(element.w, element.h) + QStringLiteral(" at ") +
           FactText::position(element.x, element.y);
}

void compareElements(const std::vector<DashElement>& former,
                     const std::vector<DashElement>& present, Report& report)
{
    const Pairing pairing =
        pairUp(namesOf(former, &DashElement::name), namesOf(present, &DashElement::name),
               [&](std::size_t f, std::size_t p) { return likenessOf(former[f], present[p]); });
    for (const std::size_t i : pairing.removed)
        report.add(Change::ElementRemoved, former[i].name, factsOf(former[i]));
    for (const std::size_t i : pairing.added)
        report.add(Change::ElementAdded, present[i].name, {}, factsOf(present[i]));
    for (const auto& [f, p] : pairing.pairs)
        compareElement(former[f], present[p], report);
    for (const std::size_t i : pairing.reordered()) {
        const auto& [f, p] = pairing.pairs[i];
        report.add(Change::ElementOrder, present[p].name, place(f), place(p));
    }
}

// --- Pages ---------------------------------------------------------------------------------------

/// Names and channels of the elements, sorted.
std::vector<QString> contentOf(const DashPage& page)
{
    std::vector<QString> content;
    content.reserve(page.elements.size());
    for (const DashElement& element : page.elements)
        content.push_back(element.name + u'\n' + element.channelLongName);
    std::sort(content.begin(), content.end());
    return content;
}

std::vector<std::vector<QString>> contentsOf(const std::vector<DashPage>& pages)
{
    std::vector<std::vector<QString>> contents;
    contents.reserve(pages.size());
    for (const DashPage& page : pages)
        contents.push_back(contentOf(page));
    return contents;
}

/// The share of the elements that occur in both, 0 to 100; pages without elements are alike.
int commonShare(const std::vector<QString>& former, const std::vector<QString>& present)
{
    if (former.empty() && present.empty())
        return 100;
    std::vector<QString> common;
    std::set_intersection(former.begin(), former.end(), present.begin(), present.end(),
                          std::back_inserter(common));
    return static_cast<int>(200 * common.size() / (former.size() + present.size()));
}

/// The page's record and its XML.
struct PageViews
{
    const DashPage& record;
    pugi::xml_node node;
};

void comparePage(const PageViews& former, const PageViews& present, Report& report)
{
    report.compare(Change::PageRenamed, {}, former.record.name, present.record.name);
    report.compare(Change::PageSize, {}, FactText::size(former.record.width, former.record.height),
                   FactText::size(present.record.width, present.record.height));
    report.compare(Change::PageImage, {}, OverlayReader::readImagePath(former.node),
                   OverlayReader::readImagePath(present.node));
    if (OtherSettings::ofPage(former.node) != OtherSettings::ofPage(present.node))
        report.add(Change::PageSettings, {});
    compareElements(former.record.elements, present.record.elements, report);
}

void comparePages(const DashboardDocument& former, const DashboardDocument& present,
                  std::vector<Difference>& found)
{
    const auto formerContents = contentsOf(former.pages());
    const auto presentContents = contentsOf(present.pages());
    const Pairing pairing =
        pairUp(namesOf(former.pages(), &DashPage::name), namesOf(present.pages(), &DashPage::name),
               [&](std::size_t f, std::size_t p) {
                   return commonShare(formerContents[f], presentContents[p]);
               });
    const auto reportOf = [&](const DashboardDocument& document, std::size_t i) {
        return Report(found, static_cast<int>(i) + 1, document.pages()[i].name);
    };
    for (const std::size_t i : pairing.removed)
        reportOf(former, i).add(Change::PageRemoved, {});
    for (const std::size_t i : pairing.added)
        reportOf(present, i).add(Change::PageAdded, {});
    for (const std::size_t i : pairing.reordered()) {
        const auto& [f, p] = pairing.pairs[i];
        reportOf(present, p).add(Change::PageOrder, {}, place(f), place(p));
    }
    const std::vector<pugi::xml_node> formerNodes = pageNodes(former);
    const std::vector<pugi::xml_node> presentNodes = pageNodes(present);
    for (const auto& [f, p] : pairing.pairs) {
        Report report = reportOf(present, p);
        comparePage({former.pages()[f], formerNodes[f]}, {present.pages()[p], presentNodes[p]},
                    report);
    }
}

} // namespace

std::vector<Difference> differences(const DashboardDocument& former,
                                    const DashboardDocument& present)
{
    std::vector<Difference> found;
    Report report(found);
    report.compare(Change::Device, {}, FactText::device(former), FactText::device(present));
    const bool display = report.compare(
        Change::Display, {}, FactText::size(former.displayWidth(), former.displayHeight()),
        FactText::size(present.displayWidth(), present.displayHeight()));
    if (OtherSettings::ofLayout(former.confNode(), display) !=
        OtherSettings::ofLayout(present.confNode(), display))
        report.add(Change::LayoutSettings, {});
    compareLists(former.channels(), present.channels(), &ChannelDef::longName,
                 {Change::ChannelAdded, Change::ChannelRemoved, Change::ChannelChanged}, report);
    comparePages(former, present, found);
    compareLists(otherFiles(former), otherFiles(present), &PackageFile::path,
                 {Change::FileAdded, Change::FileRemoved, Change::FileChanged}, report);
    return found;
}
