// A user at work in the real window, chosen by random bytes: menus, keys, mouse, dialogs.

#include "tests/app/MainWindowFixture.h"
#include "tests/support/ByteSource.h"
#include "tests/support/InStep.h"
#include "tests/support/RandomOverlay.h"

#include <QCheckBox>
#include <QSpinBox>

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <map>

namespace {

class WindowWalk : public MainWindowFixture
{
public:
    explicit WindowWalk(std::span<const std::uint8_t> bytes) : m_source(bytes) {}

    /// Walks until the bytes run out. @return what went wrong, empty when nothing did.
    [[nodiscard]] QByteArray run()
    {
        openRandomPackage();
        QByteArray failure = disagreement();
        while (failure.isEmpty() && !m_source.isEmpty()) {
            step();
            failure = disagreement();
        }
        return failure.isEmpty() ? failure : m_lastStep + ": " + failure;
    }

    void TestBody() override {}

private:
    struct Step
    {
        const char* name;
        void (WindowWalk::*run)();
    };

    void step();
    void forgetBeyond(int index);

    // Steps that may push one command.
    void insert();
    void addPage() { newPage(QStringLiteral("page %1").arg(m_source.byte())); }
    void clear();
    void deleteByKey() { press(*anyPane(), Qt::Key_Delete); }
    void deleteByBackspace() { press(canvas(), Qt::Key_Backspace); }
    void dragSomething();
    // Steps that push none.
    void undoByKey() { press(*anyPane(), Qt::Key_Z, Qt::ControlModifier); }
    void redoByMenu() { trigger("redoAction"); }
    void travel() { stack().setIndex(m_source.below(stack().count() + 1)); }
    void pickPage() { clickPage(m_source.below(pageList().count())); }
    void click() { QTest::mouseClick(&canvas(), Qt::LeftButton, {}, anyPoint()); }
    void toggleSnap() { child<QCheckBox>("gridSnapCheck")->toggle(); }
    void save() { trigger("saveAction"); }
    void openRandomPackage();
    [[nodiscard]] std::vector<TestPackage::Object> ordinaryPages();
    void editPanel();
    void interruptDrag();

    [[nodiscard]] QWidget* anyPane();
    [[nodiscard]] QPoint anyPoint();
    [[nodiscard]] QByteArray structure() const;
    [[nodiscard]] QByteArray disagreement();
    [[nodiscard]] QByteArray paneDisagreement() const;
    [[nodiscard]] QByteArray panelDisagreement(const DashPage& page) const;

    ByteSource m_source;
    QByteArray m_lastStep;
    std::map<int, QByteArray> m_structures; // by index of the undo stack
};

void WindowWalk::step()
{
    constexpr std::array<Step, 10> kEdits{{{"insert", &WindowWalk::insert},
                                           {"insert", &WindowWalk::insert},
                                           {"insert", &WindowWalk::insert},
                                           {"new page", &WindowWalk::addPage},
                                           {"clear", &WindowWalk::clear},
                                           {"Delete", &WindowWalk::deleteByKey},
                                           {"Backspace", &WindowWalk::deleteByBackspace},
                                           {"drag", &WindowWalk::dragSomething},
                                           {"drag", &WindowWalk::dragSomething},
                                           {"drag", &WindowWalk::dragSomething}}};
    constexpr std::array<Step, 16> kOthers{{{"undo", &WindowWalk::undoByKey},
                                            {"undo", &WindowWalk::undoByKey},
                                            {"undo", &WindowWalk::undoByKey},
                                            {"redo", &WindowWalk::redoByMenu},
                                            {"redo", &WindowWalk::redoByMenu},
                                            {"travel", &WindowWalk::travel},
                                            {"pick page", &WindowWalk::pickPage},
                                            {"click", &WindowWalk::click},
                                            {"click", &WindowWalk::click},
                                            {"click", &WindowWalk::click},
                                            {"click", &WindowWalk::click},
                                            {"toggle snap", &WindowWalk::toggleSnap},
                                            {"save", &WindowWalk::save},
                                            {"open", &WindowWalk::openRandomPackage},
                                            {"edit panel", &WindowWalk::editPanel},
                                            {"interrupt drag", &WindowWalk::interruptDrag}}};
    const bool edits = m_source.flag();
    const Step& chosen = edits
                             ? kEdits.at(static_cast<std::size_t>(m_source.below(kEdits.size())))
                             : kOthers.at(static_cast<std::size_t>(m_source.below(kOthers.size())));
    const int before = stack().index();
    m_lastStep = chosen.name;
    (this->*chosen.run)();
    if (edits && stack().index() != before)
        forgetBeyond(before);
}

/// A push at that index has ended what could be redone there.
void WindowWalk::forgetBeyond(int index)
{
    m_structures.erase(m_structures.upper_bound(index), m_structures.end());
}

void WindowWalk::insert()
{
    const int donor = m_source.byte();
    const int channel = m_source.byte();
    m_dialogs.expect<QDialog>([=](QDialog& dialog) {
        const auto choose = [&dialog](const char* list, int row) {
            auto* const widget = dialog.findChild<QListWidget*>(QLatin1String(list));
            widget->setCurrentRow(row % widget->count());
        };
        choose("typeList", donor);
        choose("channelList", channel);
        QTest::keyClick(&dialog, Qt::Key_Return); // does nothing while Insert is disabled
        dialog.reject();                          // does nothing when it was accepted
    });
    press(*anyPane(), Qt::Key_I, Qt::ControlModifier);
}

void WindowWalk::clear()
{
    if (!canvas().page()->elements.empty())
        clearPage();
    else
        trigger("clearPageAction");
}

void WindowWalk::dragSomething()
{
    const QPoint from = anyPoint();
    const QPoint to = anyPoint();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, from); // selects, so that handles are there
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), (from + to) / 2);
    QTest::mouseMove(&canvas(), to);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, to);
}

/// Leaves a drag in its middle, with the mouse button released only after something else happened.
void WindowWalk::interruptDrag()
{
    const QPoint from = anyPoint();
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), anyPoint());
    switch (m_source.below(7)) {
    case 0:
        undoByKey();
        break;
    case 1:
    case 2:
        travel();
        break;
    case 3:
    case 4:
        pickPage();
        break;
    case 5:
        m_dialogs.cancel();
        trigger("openAction");
        break;
    default:
        openRandomPackage();
    }
    QTest::mouseMove(&canvas(), anyPoint());
    const int before = stack().index();
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from);
    if (stack().index() != before) // nothing had ended the drag: there was nothing to undo
        forgetBeyond(before);
}

void WindowWalk::editPanel()
{
    constexpr std::array kBoxes{"xSpin", "ySpin", "widthSpin", "heightSpin", "valueSizeSpin"};
    auto* const box = child<QSpinBox>(kBoxes.at(static_cast<std::size_t>(m_source.below(5))));
    const int value = m_source.number();
    if (box->isEnabled())
        box->setValue(value);
}

/// Mostly one whose elements lie on their pages, where the mouse reaches them.
void WindowWalk::openRandomPackage()
{
    const QString file = path(QStringLiteral("walk.zconf2"));
    const bool wild = m_source.below(6) == 5;
    const QByteArray overlay =
        wild ? RandomOverlay::xml(m_source) : TestPackage::overlayXml(ordinaryPages());
    const QByteArray device = TestPackage::deviceXml("MXS", 1, {{7, "Speed", "S", "km/h"}});
    ASSERT_TRUE(TestPackage::writePackage(file, overlay, device));
    open(file);
    m_structures.clear();
}

std::vector<TestPackage::Object> WindowWalk::ordinaryPages()
{
    std::vector<TestPackage::Object> result;
    for (int page = m_source.below(3); page >= 0; --page) {
        std::vector<TestPackage::Object> masks;
        for (int i = m_source.below(6); i > 0; --i) {
            masks.push_back(TestPackage::digitElement("mask." + QByteArray::number(i),
                                                      3 * m_source.below(200), m_source.byte(),
                                                      20 + m_source.byte(), 100));
        }
        result.push_back(TestPackage::page("Page", 800, 480, masks));
    }
    return result;
}

QWidget* WindowWalk::anyPane()
{
    return m_source.flag() ? static_cast<QWidget*>(&canvas()) : &pageList();
}

/// Somewhere on the canvas, mostly in the middle of an element.
QPoint WindowWalk::anyPoint()
{
    const std::vector<DashElement>& shown = canvas().page()->elements;
    if (!shown.empty() && m_source.below(4) != 0) {
        const int index =
            m_source.below(static_cast<int>(std::min<std::size_t>(shown.size(), 256)));
        const QPointF center =
            canvas().elementRect(shown[static_cast<std::size_t>(index)]).center();
        if (QRectF(canvas().rect()).contains(center))
            return center.toPoint();
    }
    return {m_source.byte() * canvas().width() / 256, m_source.byte() * canvas().height() / 256};
}

/// Everything that the undo stack must bring back at each of its indices, whatever edits the panel
/// has made straight in the records: which pages and elements there are, in which order.
QByteArray WindowWalk::structure() const
{
    QByteArray result;
    for (const DashPage& page : pages()) {
        result += page.name.toUtf8() + ':';
        for (const DashElement& element : page.elements)
            result += ' ' + element.name.toUtf8();
        result += '\n';
    }
    return result;
}

QByteArray WindowWalk::disagreement()
{
    QByteArray outOfStep = InStep::firstDisagreement(m_window->document());
    if (!outOfStep.isEmpty())
        return outOfStep;
    const auto [known, isNew] = m_structures.try_emplace(stack().index(), structure());
    if (known->second != structure())
        return "was\n" + known->second + "now\n" + structure();
    canvas().grab(); // reads every record that the canvas believes in
    return paneDisagreement();
}

QByteArray WindowWalk::paneDisagreement() const
{
    const int row = pageList().currentRow();
    if (pageList().count() != static_cast<int>(pages().size()))
        return "page list: number of rows";
    for (int i = 0; i < pageList().count(); ++i) {
        if (pageList().item(i)->text() != pages()[static_cast<std::size_t>(i)].name)
            return "page list: text";
    }
    if (row < 0 || row >= pageList().count())
        return "page list: no current row";
    const DashPage& page = pages()[static_cast<std::size_t>(row)];
    if (canvas().page() != &page)
        return "canvas: page";
    if (child<QAction>("undoAction")->isEnabled() != stack().canUndo())
        return "undo entry";
    return panelDisagreement(page);
}

QByteArray WindowWalk::panelDisagreement(const DashPage& page) const
{
    const auto count = static_cast<int>(page.elements.size());
    const int selected = canvas().selectedIndex();
    if (selected < -1 || selected >= count)
        return "canvas: selection";
    const DashElement* const shown = panel().element();
    if (selected >= 0 && shown != &page.elements[static_cast<std::size_t>(selected)])
        return "panel: not the selected element";
    if (!shown)
        return shownId() == QStringLiteral("--") ? "" : "panel: not cleared";
    if (shown < page.elements.data() || shown >= page.elements.data() + count)
        return "panel: stale element";
    if (shownId() != shown->name)
        return "panel: name";
    const auto* const box = child<QSpinBox>("xSpin");
    if (box->value() != std::clamp(shown->x, box->minimum(), box->maximum()))
        return "panel: position";
    return {};
}

/// Byte strings long enough for dozens of steps.
rc::Gen<std::vector<std::uint8_t>> longBytes()
{
    constexpr int kLongest = 300;
    return rc::gen::resize(kLongest, rc::gen::arbitrary<std::vector<std::uint8_t>>());
}

} // namespace

RC_GTEST_PROP(MainWindowWalk, PanesAndDocumentAgreeAfterEveryStep, ())
{
    const auto bytes = *longBytes();
    const QByteArray failure = WindowWalk(bytes).run();
    if (!failure.isEmpty())
        RC_FAIL(failure.toStdString());
}
