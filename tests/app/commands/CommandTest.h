#pragma once

#include "document/DashboardDocument.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"

#include <QUndoStack>

#include <gtest/gtest.h>

/// A document of three pages and a stack for commands on it. The first page holds five elements
/// with other objects before, between and after them; the second holds one element as its very
/// first child; the third holds none.
class CommandTest : public ::testing::Test
{
protected:
    CommandTest()
        : m_overlay(LoadedOverlay::around(
              R"(<p n="DIMENSIONE_X">320</p>)"
              R"(<e c="GPageParam" i="0"><p n="PAGE_NAME">Race</p><e c="Other" i="0"/>)" +
              element("a", "Engine RPM") + element("b", "") + R"(<e c="Other" i="1"/>text)" +
              element("c", "Oil Temp") + element("d", "Water Temp") + element("e", "Speed") +
              R"(<e c="Other" i="2"/></e>)"
              R"(<e c="Other"/><e c="GPageParam" i="1">)" +
              element("f", "Gear") + R"(<p n="PAGE_NAME">Quali</p><e c="Other"/></e>)" +
              R"(<e c="GPageParam" i="2"><p n="PAGE_NAME">Empty</p></e><e c="Other"/>)"))
    {
    }

    /// With properties and objects that records do not model.
    static QByteArray element(const QByteArray& name, const QByteArray& channel)
    {
        return R"(<e c="GMaskParam" i=")" + name + R"(" extra="x"><p n="XPOS">1</p>)" +
               R"(<p n="SECRET">)" + name + R"(</p><p n="YPOS">2</p><p n="WIDTH">3</p>)" +
               R"(<p n="HEIGHT">4</p><e c="Axis"><p n="lnm">)" + channel + R"(</p></e>)" +
               R"(<e c="Digit"><p n="CHAR_SET_ID_2">F</p></e><e c="Unknown"><q>&amp;</q></e></e>)";
    }

    /// The whole document: XML and records.
    [[nodiscard]] QByteArray state() const
    {
        EXPECT_EQ(InStep::firstDisagreement(m_overlay.document), "");
        return InStep::overlayText(m_overlay.document) + InStep::recordsText(m_overlay.document);
    }

    /// Names of a page's elements, in order.
    [[nodiscard]] QByteArray names(int page)
    {
        QByteArray result;
        for (const DashElement& element : m_overlay.document.pages().at(std::size_t(page)).elements)
            result += element.name.toUtf8();
        return result;
    }

    /// Names of a page's child objects, other ones too, in order.
    [[nodiscard]] QByteArray children(int page)
    {
        QByteArray result;
        for (const pugi::xml_node child : m_overlay.document.pageNode(page).children("e"))
            result += child.attribute("i").as_string();
        return result;
    }

    /// Pushes a command and expects that undo and redo lead back and forth exactly.
    void pushAndTravel(QUndoCommand* command)
    {
        const QByteArray before = state();
        m_stack.push(command);
        const QByteArray after = state();
        for (int round = 0; round < 2; ++round) {
            m_stack.undo();
            EXPECT_EQ(state(), before) << "undo in round " << round;
            m_stack.redo();
            EXPECT_EQ(state(), after) << "redo in round " << round;
        }
    }

    /// Pushes a command that has nothing to do; it is a step of the stack all the same.
    void expectNothingHappens(QUndoCommand* command)
    {
        const QByteArray before = state();
        const int index = m_stack.index();
        m_stack.push(command);
        EXPECT_EQ(state(), before);
        EXPECT_EQ(m_stack.index(), index + 1);
        m_stack.undo();
        EXPECT_EQ(state(), before);
        m_stack.redo();
        EXPECT_EQ(state(), before);
    }

    [[nodiscard]] DashboardDocument* document() { return &m_overlay.document; }
    [[nodiscard]] DashElement& record(int page, int index)
    {
        return m_overlay.element(page, index);
    }

    LoadedOverlay m_overlay;
    QUndoStack m_stack;
};
