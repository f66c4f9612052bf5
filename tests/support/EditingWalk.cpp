#include "tests/support/EditingWalk.h"

#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/MoveCommand.h"
#include "app/commands/NewPageCommand.h"
#include "document/ElementFields.h"
#include "document/ElementGeometry.h"
#include "document/OverlayReader.h"
#include "document/XmlTree.h"
#include "tests/support/FolderTools.h"
#include "tests/support/InStep.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RandomOverlay.h"

#include <array>
#include <sstream>

namespace {

/// A name as a user or a device file may give it.
QString text(ByteSource& source)
{
    return XmlTree::decoded(source.xmlText());
}

/// The overlay XML with plain numbers in all rectangles: a move that is undone after a save leaves
/// "12" where the file had "12.7".
QByteArray plainRectangles(const DashboardDocument& document)
{
    pugi::xml_document copy;
    for (const pugi::xml_node child : document.confNode().root().children())
        copy.append_copy(child);
    for (const pugi::xml_node page : XmlTree::objects(OverlayReader::confNode(copy))) {
        for (const pugi::xml_node element : XmlTree::objects(page)) {
            const DashElement asRead = OverlayReader::readElement(element);
            DashElement other = asRead;
            setGeometry(other, {~asRead.x, ~asRead.y, ~asRead.w, ~asRead.h});
            ElementFields::writeChanges(element, ElementFields::rectangle(), other, asRead);
        }
    }
    std::ostringstream text;
    copy.print(text, "  ", pugi::format_indent);
    return QByteArray::fromStdString(text.str());
}

} // namespace

EditingWalk::EditingWalk(ByteSource& source)
    : m_source(source),
      m_folder(FolderTools::memoryTemplate())
{
    const QString path = m_folder.filePath(QStringLiteral("walk.zconf2"));
    const QByteArray overlay = RandomOverlay::xml(m_source);
    if (!TestPackage::writePackage(path, overlay, RandomOverlay::deviceXml(m_source)))
        fail("cannot write the package");
    reopen();
}

EditingWalk::~EditingWalk()
{
    FolderTools::remove(m_document.tempDir());
}

QByteArray EditingWalk::run()
{
    check();
    while (m_failure.isEmpty() && !m_source.isEmpty()) {
        step();
        check();
    }
    return m_failure;
}

void EditingWalk::step()
{
    using Step = void (EditingWalk::*)();
    constexpr std::array<Step, 16> kSteps{
        &EditingWalk::travel,        &EditingWalk::travel,        &EditingWalk::travel,
        &EditingWalk::travel,        &EditingWalk::insertElement, &EditingWalk::insertElement,
        &EditingWalk::insertElement, &EditingWalk::deleteElement, &EditingWalk::deleteElement,
        &EditingWalk::deleteElement, &EditingWalk::moveElement,   &EditingWalk::moveElement,
        &EditingWalk::clearPage,     &EditingWalk::addPage,       &EditingWalk::save,
        &EditingWalk::saveAndReopen};
    const int choice = m_source.below(static_cast<int>(kSteps.size()) + 1);
    if (choice == static_cast<int>(kSteps.size()))
        editRecord();
    else
        (this->*kSteps.at(static_cast<std::size_t>(choice)))();
}

void EditingWalk::push(QUndoCommand* command)
{
    m_states.erase(m_states.upper_bound(m_stack.index()), m_states.end());
    m_stack.push(command);
}

void EditingWalk::clearPage()
{
    push(new ClearPageCommand(&m_document, anyPage()));
}

void EditingWalk::deleteElement()
{
    const int page = anyPage();
    push(new DeleteCommand(&m_document, page, anyElement(page)));
}

void EditingWalk::insertElement()
{
    const DashElement* const donor = existingElement();
    const ChannelDef channel{m_source.number(), text(m_source), text(m_source), {}, text(m_source)};
    const std::array rectangle{m_source.number(), m_source.number(), m_source.number(),
                               m_source.number()};
    push(new InsertElementCommand(&m_document, anyPage(), channel, rectangle[0], rectangle[1],
                                  rectangle[2], rectangle[3],
                                  donor ? donor->node : pugi::xml_node()));
}

void EditingWalk::moveElement()
{
    const int page = anyPage();
    const int index = anyElement(page);
    const PageRef ref(&m_document, page);
    const DashElement* const element = ref.element(index);
    const ElementGeometry before = element ? geometryOf(*element) : ElementGeometry();
    const std::array after{m_source.number(), m_source.number(), m_source.number(),
                           m_source.number()};
    push(new MoveCommand(ref, index, before, {after[0], after[1], after[2], after[3]}));
}

void EditingWalk::addPage()
{
    push(new NewPageCommand(&m_document, text(m_source)));
}

void EditingWalk::travel()
{
    switch (m_source.below(4)) {
    case 0:
        m_stack.undo();
        break;
    case 1:
        m_stack.redo();
        break;
    case 2:
        m_stack.setIndex(0);
        break;
    default:
        m_stack.setIndex(m_source.below(m_stack.count() % 255 + 1));
    }
}

void EditingWalk::editRecord()
{
    DashElement* const element = existingElement();
    if (!element)
        return;
    m_edited = true;
    element->x = m_source.number();
    element->valueFont = text(m_source);
    element->valueFontSize = m_source.number();
    element->labelColor = QColor::fromRgba(0x01020304U * m_source.byte());
}

void EditingWalk::save()
{
    if (!m_document.save(m_folder.filePath(QStringLiteral("walk.zconf2"))))
        fail("cannot save");
    if (!m_saved)
        m_states.clear();
    m_saved = true;
}

void EditingWalk::saveAndReopen()
{
    save();
    reopen();
}

void EditingWalk::reopen()
{
    FolderTools::remove(m_document.tempDir());
    if (!m_document.open(m_folder.filePath(QStringLiteral("walk.zconf2"))))
        fail("cannot open");
    m_stack.clear();
    m_states.clear();
    m_saved = false;
    m_edited = false;
}

void EditingWalk::check()
{
    const QByteArray disagreement = InStep::firstDisagreement(m_document);
    if (!disagreement.isEmpty())
        fail("out of step: " + disagreement);
    const State now = currentState();
    const auto [known, isNew] = m_states.try_emplace(m_stack.index(), now);
    if (isNew)
        return;
    if (known->second.records != now.records && !m_edited)
        fail("records differ from\n" + known->second.records + "now\n" + now.records);
    if (known->second.xml != now.xml && !(m_edited && m_saved))
        fail("XML differs from\n" + known->second.xml + "now\n" + now.xml);
}

EditingWalk::State EditingWalk::currentState()
{
    if (m_saved && !m_document.writeBack(m_folder.filePath(QStringLiteral("saved.xml"))))
        fail("cannot write back");
    return {m_saved ? plainRectangles(m_document) : InStep::overlayText(m_document),
            InStep::recordsText(m_document)};
}

int EditingWalk::anyPage()
{
    return m_source.below(m_document.pageCount() + 2) - 1;
}

int EditingWalk::anyElement(int pageIndex)
{
    const DashPage* const page = m_document.pageAt(pageIndex);
    const std::size_t count = page ? page->elements.size() : 0;
    return m_source.below(static_cast<int>(count % 250) + 2) - 1;
}

DashElement* EditingWalk::existingElement()
{
    const int page = anyPage();
    return PageRef(&m_document, page).element(anyElement(page));
}

void EditingWalk::fail(const QByteArray& what)
{
    if (m_failure.isEmpty())
        m_failure = "at undo index " + QByteArray::number(m_stack.index()) + ": " + what;
}
