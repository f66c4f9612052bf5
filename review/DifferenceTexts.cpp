// How differences are called and described.

#include "review/Differences.h"
#include "review/FactText.h"
#include "review/ReviewText.h"

#include <array>

namespace {

using Change = Difference::Change;
using Subject = Difference::Subject;

/// The facts that a text mentions, in their order.
enum class Facts
{
    None,
    Former,
    Present,
    Both,
    BothNames // to be quoted
};

struct Texts
{
    Change change;
    Subject subject;
    const char* id;
    const char* text;
    Facts facts;
};

constexpr std::array kTexts{
    Texts{Change::Device, Subject::Layout, "device-changed",
          QT_TRANSLATE_NOOP("ReviewText", "device changed from %1 to %2"), Facts::Both},
    Texts{Change::Display, Subject::Layout, "display-changed",
          QT_TRANSLATE_NOOP("ReviewText", "display changed from %1 to %2"), Facts::Both},
    Texts{Change::LayoutSettings, Subject::Layout, "layout-settings-changed",
          QT_TRANSLATE_NOOP("ReviewText", "other settings of the layout changed"), Facts::None},
    Texts{Change::ChannelAdded, Subject::Channel, "channel-added",
          QT_TRANSLATE_NOOP("ReviewText", "added: %1"), Facts::Present},
    Texts{Change::ChannelRemoved, Subject::Channel, "channel-removed",
          QT_TRANSLATE_NOOP("ReviewText", "removed: %1"), Facts::Former},
    Texts{Change::ChannelChanged, Subject::Channel, "channel-changed",
          QT_TRANSLATE_NOOP("ReviewText", "changed from %1 to %2"), Facts::Both},
    Texts{Change::PageAdded, Subject::Page, "page-added", QT_TRANSLATE_NOOP("ReviewText", "added"),
          Facts::None},
    Texts{Change::PageRemoved, Subject::Page, "page-removed",
          QT_TRANSLATE_NOOP("ReviewText", "removed"), Facts::None},
    Texts{Change::PageRenamed, Subject::Page, "page-renamed",
          QT_TRANSLATE_NOOP("ReviewText", "renamed from %1 to %2"), Facts::BothNames},
    Texts{Change::PageOrder, Subject::Page, "page-reordered",
          QT_TRANSLATE_NOOP("ReviewText", "order changed from place %1 to %2"), Facts::Both},
    Texts{Change::PageSize, Subject::Page, "page-resized",
          QT_TRANSLATE_NOOP("ReviewText", "resized from %1 to %2"), Facts::Both},
    Texts{Change::PageImage, Subject::Page, "page-image-changed",
          QT_TRANSLATE_NOOP("ReviewText", "background image changed from %1 to %2"),
          Facts::BothNames},
    Texts{Change::PageSettings, Subject::Page, "page-settings-changed",
          QT_TRANSLATE_NOOP("ReviewText", "other settings changed"), Facts::None},
    Texts{Change::ElementAdded, Subject::Element, "element-added",
          QT_TRANSLATE_NOOP("ReviewText", "added: %1"), Facts::Present},
    Texts{Change::ElementRemoved, Subject::Element, "element-removed",
          QT_TRANSLATE_NOOP("ReviewText", "removed: %1"), Facts::Former},
    Texts{Change::ElementRenamed, Subject::Element, "element-renamed",
          QT_TRANSLATE_NOOP("ReviewText", "renamed from %1 to %2"), Facts::BothNames},
    Texts{Change::ElementOrder, Subject::Element, "element-reordered",
          QT_TRANSLATE_NOOP("ReviewText", "order changed from place %1 to %2"), Facts::Both},
    Texts{Change::ElementKind, Subject::Element, "element-kind-changed",
          QT_TRANSLATE_NOOP("ReviewText", "kind changed from %1 to %2"), Facts::Both},
    Texts{Change::ElementMoved, Subject::Element, "element-moved",
          QT_TRANSLATE_NOOP("ReviewText", "moved from %1 to %2"), Facts::Both},
    Texts{Change::ElementResized, Subject::Element, "element-resized",
          QT_TRANSLATE_NOOP("ReviewText", "resized from %1 to %2"), Facts::Both},
    Texts{Change::ElementChannel, Subject::Element, "element-rebound",
          QT_TRANSLATE_NOOP("ReviewText", "bound to another channel, from %1 to %2"), Facts::Both},
    Texts{Change::ElementValueStyle, Subject::Element, "element-value-restyled",
          QT_TRANSLATE_NOOP("ReviewText", "value restyled from %1 to %2"), Facts::Both},
    Texts{Change::ElementLabelStyle, Subject::Element, "element-label-restyled",
          QT_TRANSLATE_NOOP("ReviewText", "label restyled from %1 to %2"), Facts::Both},
    Texts{Change::ElementTexts, Subject::Element, "element-text-changed",
          QT_TRANSLATE_NOOP("ReviewText", "text changed from %1 to %2"), Facts::Both},
    Texts{Change::ElementSettings, Subject::Element, "element-settings-changed",
          QT_TRANSLATE_NOOP("ReviewText", "other settings changed"), Facts::None},
    Texts{Change::FileAdded, Subject::File, "file-added",
          QT_TRANSLATE_NOOP("ReviewText", "added: %1"), Facts::Present},
    Texts{Change::FileRemoved, Subject::File, "file-removed",
          QT_TRANSLATE_NOOP("ReviewText", "removed: %1"), Facts::Former},
    Texts{Change::FileChanged, Subject::File, "file-changed",
          QT_TRANSLATE_NOOP("ReviewText", "changed from %1 to %2"), Facts::Both},
};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        if (static_cast<std::size_t>(kTexts[i].change) != i)
            return false;
    }
    return kTexts.back().change == Change::FileChanged;
}
static_assert(isInOrder(), "a text for every change, in their order");

const Texts& textsOf(Change change)
{
    return kTexts.at(static_cast<std::size_t>(change));
}

/// What the difference is about; empty for the layout as a whole.
QString about(const Difference& difference)
{
    const QString subject = FactText::quoted(difference.subject);
    const QString number = QString::number(difference.page);
    const QString page = FactText::quoted(difference.pageName);
    switch (subjectOf(difference.change)) {
    case Subject::Layout:
        break;
    case Subject::Channel:
        return ReviewText::tr("channel %1").arg(subject);
    case Subject::Page:
        return ReviewText::tr("page %1 %2").arg(number, page);
    case Subject::Element:
        return ReviewText::tr("page %1 %2, element %3").arg(number, page, subject);
    case Subject::File:
        return ReviewText::tr("file %1").arg(subject);
    }
    return {};
}

} // namespace

Difference::Subject subjectOf(Difference::Change change)
{
    return textsOf(change).subject;
}

QString identifier(Difference::Change change)
{
    return QString::fromLatin1(textsOf(change).id);
}

QString sentence(const Difference& difference)
{
    const Texts& texts = textsOf(difference.change);
    const QString& before = difference.before;
    const QString& after = difference.after;
    QString text = ReviewText::tr(texts.text);
    if (texts.facts == Facts::Former)
        text = text.arg(before);
    else if (texts.facts == Facts::Present)
        text = text.arg(after);
    else if (texts.facts == Facts::Both)
        text = text.arg(before, after);
    else if (texts.facts == Facts::BothNames)
        text = text.arg(FactText::quoted(before), FactText::quoted(after));
    const QString subject = about(difference);
    return subject.isEmpty() ? text : subject + QStringLiteral(": ") + text;
}
