// The whole window in another language: every visible text must come from the translator. Names in
// the packages used here have no letters, so that a text with letters is one of the program's own.

#include "app/ReplayText.h"
#include "dialogs/AddElementDialog.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/ScriptedReader.h"

#include <QColorDialog>
#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <algorithm>

namespace {

constexpr QChar kMark = u'\u2039';

/// Puts a mark before every text. Given a file in GAUGEWRIGHT_SEEN_TEXTS, it leaves a list of what
/// it translated there, which scripts/check-translations.sh compares with what translators get to
/// see.
class MarkingTranslator : public QTranslator
{
public:
    ~MarkingTranslator() override
    {
        const QString list = qEnvironmentVariable("GAUGEWRIGHT_SEEN_TEXTS");
        if (list.isEmpty())
            return;
        QFile file(list);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append));
        for (const QByteArray& text : std::as_const(m_seen))
            file.write(text + '\0');
    }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* text, const char* /*comment*/,
                                    int /*count*/) const override
    {
        if (qstrcmp(context, "QShortcut") == 0) // names of keys, which Qt reads back
            return {};
        if (context[0] != 'Q') // not of Qt's own
            m_seen.insert(QByteArray(context) + '\n' + text);
        return kMark + QString::fromUtf8(text);
    }

private:
    mutable QSet<QByteArray> m_seen;
};

/// In force before the fixture makes the window.
struct OtherLanguage
{
    OtherLanguage()
    {
        QCoreApplication::installTranslator(&translator);
        reader.fileIndex = -1;
    }
    MarkingTranslator translator;
    ScriptedReader
        reader; // refuses all files, should another test have left it beside this program
};

class Translation : private OtherLanguage, public MainWindowFixture
{
protected:
    void openLetterlessPackage()
    {
        using namespace TestPackage;
        open(writePackage(QStringLiteral("1.zconf2"),
                          {page("10", 800, 480,
                                {digitElement("20", 50, 50, 120, 60, "30"),
                                 labelElement("21", 200, 50, 120, 60, "31")}),
                           page("11", 800, 480)},
                          deviceXml("40", 12, {{7, "30", "50", "60"}})));
    }
};

/// Whether anything is left besides digits, markup, colours and the names of fonts and files.
bool isOwnText(QString text)
{
    static const QRegularExpression notTexts(
        QStringLiteral("<[^>]*>|#[0-9a-f]{6}|^(MicrogrammaDBolExt|Basic Sans SF|"
                       "Huge Basic Sans Heavy SF|1\\.zconf2)$"));
    text.remove(notTexts);
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.isLetter(); });
}

void expectTranslated(const QString& text, const QObject& owner)
{
    EXPECT_TRUE(text.contains(kMark) || !isOwnText(text))
        << text.toStdString() << " of " << owner.metaObject()->className() << ' '
        << owner.objectName().toStdString();
}

void expectTranslatedWidget(const QWidget& widget)
{
    for (const QString& text : {widget.accessibleName(), widget.toolTip(), widget.whatsThis()})
        expectTranslated(text, widget);
    for (const char* const property : {"text", "title", "placeholderText", "suffix", "prefix"})
        expectTranslated(widget.property(property).toString(), widget);
    if (const auto* const combo = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < combo->count(); ++i)
            expectTranslated(combo->itemText(i), widget);
    }
}

/// Everything that the window and its parts show, also in menus and lists that are closed.
void expectTranslatedWindow(const QWidget& window)
{
    expectTranslated(window.windowTitle(), window);
    expectTranslatedWidget(window);
    for (const QWidget* const widget : window.findChildren<QWidget*>())
        expectTranslatedWidget(*widget);
    for (const QAction* const action : window.findChildren<QAction*>())
        expectTranslated(action->text(), *action);
    for (const QListWidget* const list : window.findChildren<QListWidget*>()) {
        for (int row = 0; row < list->count(); ++row) {
            for (const int role : {Qt::DisplayRole, Qt::AccessibleDescriptionRole})
                expectTranslated(list->item(row)->data(role).toString(), *list);
        }
    }
}

template <typename Dialog>
void expectTranslatedDialog(ModalDriver& dialogs)
{
    dialogs.expect<Dialog>([](Dialog& dialog) {
        expectTranslatedWindow(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

} // namespace

TEST_F(Translation, CoversTheWindowBeforeAnythingIsOpen)
{
    expectTranslatedWindow(*m_window);
    expectTranslated(status(), *m_window);
    for (const char* const action : {"newPageAction", "insertElementAction"}) {
        expectTranslatedDialog<QMessageBox>(m_dialogs);
        trigger(action);
    }
    expectTranslatedDialog<QDialog>(m_dialogs);
    trigger("aboutAction");
}

TEST_F(Translation, CoversFileDialogsAndTheirErrors)
{
    for (const char* const action : {"openAction", "loadTelemetryAction"}) {
        ASSERT_TRUE(TestPackage::writeFile(path(QStringLiteral("2")), "nothing of the kind"));
        m_dialogs.expect<QFileDialog>([this](QFileDialog& dialog) {
            expectTranslated(dialog.windowTitle(), dialog);
            for (const QString& filter : dialog.nameFilters())
                expectTranslated(filter, dialog);
            ModalDriver::typePath(dialog, path(QStringLiteral("2")));
        });
        expectTranslatedDialog<QMessageBox>(m_dialogs);
        trigger(action);
    }
    openLetterlessPackage();
    expectTranslated(status(), *m_window);
    m_dialogs.expect<QFileDialog>([this](QFileDialog& dialog) {
        expectTranslated(dialog.windowTitle(), dialog);
        ModalDriver::typePath(dialog, path(QStringLiteral("3")));
    });
    trigger("saveAsAction");
    expectTranslated(status(), *m_window);
    expectTranslated(ReplayText::loadedText(QStringLiteral("4"), 5, 6), *m_window);
}

TEST_F(Translation, CoversTheInspector)
{
    openLetterlessPackage();
    clickElement(0);
    expectTranslatedWindow(*m_window);
    for (const char* const button : {"valueColorButton", "labelColorButton"}) {
        clickElement(button[0] == 'v' ? 0 : 1);
        m_dialogs.expect<QColorDialog>([](QColorDialog& dialog) {
            expectTranslated(dialog.windowTitle(), dialog);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
        expectTranslatedWindow(*m_window);
    }
}

TEST_F(Translation, CoversEveryEditAndItsUndo)
{
    openLetterlessPackage();
    const auto expectTranslatedEdit = [this] {
        expectTranslatedWindow(*m_window);
        expectTranslated(status(), *m_window);
        expectTranslated(stack().undoText(), stack());
    };
    trigger("deleteElementAction"); // nothing selected
    expectTranslatedEdit();
    drag(0, {40, 40});
    expectTranslatedEdit();
    trigger("deleteElementAction");
    expectTranslatedEdit();
    expectTranslatedDialog<AddElementDialog>(m_dialogs);
    trigger("insertElementAction");
    insertElement();
    expectTranslatedEdit();
    expectTranslatedDialog<QMessageBox>(m_dialogs);
    trigger("clearPageAction");
    clearPage();
    expectTranslatedEdit();
    trigger("clearPageAction"); // empty by now
    expectTranslatedEdit();
    expectTranslatedDialog<QInputDialog>(m_dialogs);
    trigger("newPageAction");
    newPage(QStringLiteral("12"));
    expectTranslatedEdit();
    clickPage(1);
    for (const char* const action : {"undoAction", "undoAction", "redoAction"}) {
        trigger(action); // of a page that is not shown
        expectTranslatedEdit();
    }
}
