// What programs outside this repository are compiled against: names, signatures, fields and their
// order, defaults and object names. A change here breaks them.

#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/MoveCommand.h"
#include "app/commands/NewPageCommand.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"
#include "dialogs/AddElementDialog.h"
#include "dialogs/InsertElementSpec.h"
#include "document/DashboardDocument.h"
#include "document/DashboardPackage.h"
#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"

#include <QAction>
#include <QByteArrayList>
#include <QComboBox>
#include <QMetaMethod>
#include <QTimer>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using Node = pugi::xml_node;
using Document = DashboardDocument;

template <auto Member, typename Signature>
constexpr bool kIs = std::is_same_v<decltype(Member), Signature>;

static_assert(kIs<&DashboardPackage::unpackArchive, bool (*)(const QString&, const QString&)>);
static_assert(kIs<&DashboardPackage::packDirectory, bool (*)(const QString&, const QString&)>);
static_assert(kIs<&DashboardPackage::findOverlayFile, QString (*)(const QString&)>);
static_assert(kIs<&DashboardPackage::findDeviceFile, QString (*)(const QString&)>);

static_assert(kIs<&Document::open, bool (Document::*)(const QString&)>);
static_assert(kIs<&Document::save, bool (Document::*)(const QString&)>);
static_assert(kIs<&Document::loadOverlay, bool (Document::*)(const QString&)>);
static_assert(kIs<&Document::loadDeviceFile, bool (Document::*)(const QString&)>);
static_assert(kIs<&Document::writeBack, bool (Document::*)(const QString&)>);
static_assert(kIs<&Document::pageCount, int (Document::*)() const>);
static_assert(kIs<static_cast<DashPage* (Document::*)(int)>(&Document::pageAt),
                  DashPage* (Document::*)(int)>);
static_assert(kIs<static_cast<const DashPage* (Document::*)(int) const>(&Document::pageAt),
                  const DashPage* (Document::*)(int) const>);
static_assert(kIs<&Document::confNode, Node (Document::*)() const>);
static_assert(kIs<&Document::pageNode, Node (Document::*)(int) const>);
static_assert(kIs<&Document::pages, const std::vector<DashPage>& (Document::*)() const>);
static_assert(kIs<&Document::channels, const std::vector<ChannelDef>& (Document::*)() const>);
static_assert(kIs<&Document::deviceType, const QString& (Document::*)() const>);
static_assert(kIs<&Document::deviceTypeCode, int (Document::*)() const>);
static_assert(kIs<&Document::displayWidth, int (Document::*)() const>);
static_assert(kIs<&Document::displayHeight, int (Document::*)() const>);
static_assert(kIs<&Document::tempDir, const QString& (Document::*)() const>);
static_assert(kIs<&Document::overlayPath, const QString& (Document::*)() const>);
static_assert(kIs<&Document::devicePath, const QString& (Document::*)() const>);
static_assert(kIs<&Document::addBlankPage, int (Document::*)(const QString&)>);
static_assert(
    kIs<&Document::insertPageCopy, bool (Document::*)(int, const DashPage&, Node, Node&)>);
static_assert(kIs<&Document::removePage, bool (Document::*)(int)>);
static_assert(
    kIs<&Document::addElementFromDonor,
        int (Document::*)(int, Node, const ChannelDef&, int, int, int, int, DashElement&)>);
static_assert(kIs<&Document::insertElementCopy,
                  bool (Document::*)(int, int, const DashElement&, Node, Node, Node&)>);
static_assert(kIs<&Document::removeElement, bool (Document::*)(int, int)>);
static_assert(kIs<&Document::writeChannelBinding, void (Document::*)(Node, const ChannelDef&)>);
static_assert(kIs<&Document::readPage, void (Document::*)(Node, int)>);
static_assert(kIs<&Document::readElement, DashElement (*)(Node)>);

static_assert(std::is_constructible_v<DeleteCommand, Document*, int, int>);
static_assert(std::is_constructible_v<ClearPageCommand, Document*, int>);
static_assert(std::is_constructible_v<InsertElementCommand, Document*, int, const ChannelDef&, int,
                                      int, int, int, Node>);
static_assert(std::is_constructible_v<NewPageCommand, Document*, const QString&>);
static_assert(kIs<&NewPageCommand::pageIndex, int (NewPageCommand::*)() const>);

/// A command of its own on the stack, which is never merged with another.
template <typename Command>
constexpr bool kIsOneStep =
    std::is_base_of_v<QUndoCommand, Command>&& kIs<&Command::id, int (QUndoCommand::*)() const>&&
        kIs<&Command::mergeWith, bool (QUndoCommand::*)(const QUndoCommand*)>;
static_assert(kIsOneStep<MoveCommand>);
static_assert(kIsOneStep<DeleteCommand>);
static_assert(kIsOneStep<InsertElementCommand>);
static_assert(kIsOneStep<NewPageCommand>);
static_assert(kIsOneStep<ClearPageCommand>);

static_assert(std::is_constructible_v<DashCanvas, QWidget*>);
static_assert(kIs<&DashCanvas::setPage, void (DashCanvas::*)(DashPage*)>);
static_assert(kIs<&DashCanvas::setSession, void (DashCanvas::*)(TelemetrySession*)>);
static_assert(kIs<&DashCanvas::setReplayTime, void (DashCanvas::*)(double)>);
static_assert(kIs<&DashCanvas::setSpeedUnit, void (DashCanvas::*)(int)>);
static_assert(kIs<&DashCanvas::setSnap, void (DashCanvas::*)(bool, int)>);
static_assert(kIs<&DashCanvas::setUndoStack, void (DashCanvas::*)(QUndoStack*)>);
static_assert(kIs<&DashCanvas::selectedIndex, int (DashCanvas::*)() const>);
static_assert(kIs<&DashCanvas::clearSelectionAndRepaint, void (DashCanvas::*)()>);
static_assert(kIs<&DashCanvas::fitScale, double (DashCanvas::*)() const>);
static_assert(kIs<&DashCanvas::pageOrigin, QPointF (DashCanvas::*)() const>);
static_assert(kIs<&DashCanvas::elementRect, QRectF (DashCanvas::*)(const DashElement&) const>);
static_assert(kIs<&DashCanvas::snapValue, int (DashCanvas::*)(int) const>);
static_assert(kIs<&DashCanvas::elementSelected, void (DashCanvas::*)(int)>);
static_assert(kIs<&DashCanvas::elementMoved, void (DashCanvas::*)(int, int, int)>);
static_assert(kIs<&DashCanvas::elementResized, void (DashCanvas::*)(int, int, int)>);
static_assert(kIs<&DashCanvas::deleteRequested, void (DashCanvas::*)(int)>);

static_assert(kIs<&PropertyPanel::setElement, void (PropertyPanel::*)(DashElement*)>);
static_assert(kIs<&PropertyPanel::clear, void (PropertyPanel::*)()>);
static_assert(kIs<&PropertyPanel::refreshGeometry, void (PropertyPanel::*)()>);
static_assert(kIs<&PropertyPanel::setPageSize, void (PropertyPanel::*)(int, int)>);
static_assert(kIs<&PropertyPanel::positionChanged, void (PropertyPanel::*)(int, int)>);
static_assert(kIs<&PropertyPanel::sizeChanged, void (PropertyPanel::*)(int, int)>);
static_assert(kIs<&PropertyPanel::fontChanged, void (PropertyPanel::*)()>);

static_assert(std::is_constructible_v<XrkLibrary, const char*>);
static_assert(!std::is_convertible_v<const char*, XrkLibrary>);
static_assert(kIs<&XrkLibrary::isLoaded, bool (XrkLibrary::*)() const>);
static_assert(
    kIs<&TelemetrySession::load, bool (TelemetrySession::*)(const QString&, const QString&)>);
static_assert(kIs<&TelemetrySession::clear, void (TelemetrySession::*)()>);
static_assert(kIs<&TelemetrySession::isLoaded, bool (TelemetrySession::*)() const>);
static_assert(kIs<&TelemetrySession::duration, double (TelemetrySession::*)() const>);
static_assert(kIs<&TelemetrySession::channelNames, QStringList (TelemetrySession::*)() const>);
static_assert(
    kIs<&TelemetrySession::matchChannel, QString (TelemetrySession::*)(const QString&) const>);
static_assert(
    kIs<&TelemetrySession::value, double (TelemetrySession::*)(const QString&, double) const>);

static_assert(std::is_constructible_v<AddElementDialog, Document*, QWidget*>);
static_assert(kIs<&AddElementDialog::spec, InsertElementSpec (AddElementDialog::*)() const>);

static_assert(std::is_constructible_v<PageListPanel, QWidget*>);
static_assert(kIs<&PageListPanel::setPages, void (PageListPanel::*)(const std::vector<DashPage>&)>);
static_assert(kIs<&PageListPanel::pageSelected, void (PageListPanel::*)(int)>);

static_assert(std::is_default_constructible_v<MainWindow>);
static_assert(kIs<&MainWindow::openDashboard, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::saveDashboard, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::saveDashboardAs, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::newPage, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::insertElement, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::deleteSelectedElement, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::deleteElement, void (MainWindow::*)(int)>);
static_assert(kIs<&MainWindow::clearPage, void (MainWindow::*)()>);
static_assert(kIs<&MainWindow::showAbout, void (MainWindow::*)()>);

/// The signals or slots that a class declares itself, with the names of their parameters.
template <typename Widget>
QByteArrayList declared(QMetaMethod::MethodType type)
{
    const QMetaObject& meta = Widget::staticMetaObject;
    QByteArrayList result;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == type)
            result << method.name() + '(' + method.parameterNames().join(", ") + ')';
    }
    return result;
}

static_assert(std::is_same_v<std::underlying_type_t<ElementKind>, std::int32_t>);
static_assert(static_cast<int>(ElementKind::Analog) == 0);
static_assert(static_cast<int>(ElementKind::Digit) == 1);
static_assert(static_cast<int>(ElementKind::Icon) == 2);
static_assert(static_cast<int>(ElementKind::Other) == 3);

} // namespace

TEST(PublicInterface, RecordsHaveTheirFieldsInOrderWithTheirDefaults)
{
    const auto& [name, index, width, height, imagePath, image, elements] = DashPage();
    EXPECT_TRUE(name.isEmpty() && imagePath.isEmpty() && image.isNull() && elements.empty());
    EXPECT_EQ(index, 0);
    EXPECT_EQ(width, 800);
    EXPECT_EQ(height, 480);

    const auto& [elementName, x, y, w, h, longName, shortName, kind, valueFont, valueSize,
                 valueColor, labelFont, labelSize, labelColor, hasLabel, node] = DashElement();
    EXPECT_TRUE(elementName.isEmpty() && longName.isEmpty() && shortName.isEmpty());
    EXPECT_TRUE(x == 0 && y == 0 && w == 0 && h == 0);
    EXPECT_EQ(kind, ElementKind::Other);
    EXPECT_TRUE(valueFont.isEmpty() && labelFont.isEmpty());
    EXPECT_TRUE(valueSize == 0 && labelSize == 0);
    EXPECT_FALSE(valueColor.isValid() || labelColor.isValid() || hasLabel || node);

    const auto& [fid, channelLong, channelShort, labelLong, uiv] = ChannelDef();
    EXPECT_EQ(fid, -1);
    EXPECT_TRUE(channelLong.isEmpty() && channelShort.isEmpty() && labelLong.isEmpty() &&
                uiv.isEmpty());
}

TEST(PublicInterface, SignalsAndSlotsHaveTheirNamesAndThoseOfTheirParameters)
{
    EXPECT_EQ(declared<DashCanvas>(QMetaMethod::Signal),
              (QByteArrayList{"elementSelected(index)", "elementMoved(index, newX, newY)",
                              "elementResized(index, newW, newH)", "deleteRequested(index)",
                              "playToggleRequested()", "pageStepRequested(delta)"}));
    EXPECT_EQ(declared<DashCanvas>(QMetaMethod::Slot),
              (QByteArrayList{"clearSelectionAndRepaint()"}));
    EXPECT_EQ(declared<PropertyPanel>(QMetaMethod::Signal),
              (QByteArrayList{"positionChanged(x, y)", "sizeChanged(w, h)", "fontChanged()"}));
    EXPECT_EQ(declared<PropertyPanel>(QMetaMethod::Slot),
              (QByteArrayList{"onSpinBoxChanged()", "onValueFontChanged()", "onLabelFontChanged()",
                              "pickValueColor()", "pickLabelColor()"}));
    EXPECT_EQ(declared<PageListPanel>(QMetaMethod::Signal),
              (QByteArrayList{"pageSelected(index)"}));
    EXPECT_EQ(declared<PageListPanel>(QMetaMethod::Slot),
              (QByteArrayList{"onCurrentRowChanged(row)"}));
}

TEST(PublicInterface, MainWindowNamesItsParts)
{
    const MainWindow window;
    for (const char* const name : {"pageList",
                                   "canvas",
                                   "propertyPanel",
                                   "replaySlider",
                                   "timeLabel",
                                   "playButton",
                                   "rateCombo",
                                   "targetDeviceBadge",
                                   "gridSnapCheck",
                                   "speedUnitCombo",
                                   "xSpin",
                                   "ySpin",
                                   "widthSpin",
                                   "heightSpin",
                                   "channelLabel",
                                   "typeLabel",
                                   "idLabel",
                                   "valueFontCombo",
                                   "valueSizeSpin",
                                   "valueColorButton",
                                   "labelFontCombo",
                                   "labelSizeSpin",
                                   "labelColorButton",
                                   "labelGroup"})
        EXPECT_NE(window.findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    EXPECT_NE(window.findChild<QTimer*>(QStringLiteral("replayTimer")), nullptr);
    for (const QAction* const action : window.findChildren<QAction*>(Qt::FindDirectChildrenOnly))
        EXPECT_FALSE(action->objectName().isEmpty()) << qPrintable(action->text());
}

TEST(PublicInterface, InsertDialogNamesItsParts)
{
    DashboardDocument document;
    const AddElementDialog dialog(&document, nullptr);
    for (const char* const name :
         {"typeList", "filterEdit", "channelList", "summaryLabel", "buttonBox"})
        EXPECT_NE(dialog.findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
}
