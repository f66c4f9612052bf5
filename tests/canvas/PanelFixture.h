#pragma once

#include "canvas/PropertyPanel.h"
#include "document/ElementGeometry.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

/// An inspector, listened to, and an element with both text styles that it does not show yet.
class PanelFixture : public ::testing::Test
{
protected:
    PanelFixture()
    {
        m_element.name = QStringLiteral("mask.3");
        setGeometry(m_element, {30, 40, 120, 60});
        m_element.channelLongName = QStringLiteral("Engine RPM");
        m_element.kind = ElementKind::Digit;
        m_element.valueFont = QStringLiteral("Basic Sans SF");
        m_element.valueFontSize = 24;
        m_element.valueColor = QColor(255, 200, 0, 128);
        m_element.hasLabel = true;
        m_element.labelFont = QStringLiteral("Huge Basic Sans Heavy SF");
        m_element.labelFontSize = 12;
        m_element.labelColor = QColor(0, 0, 128);
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const
    {
        auto* const widget = m_panel.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            throw std::runtime_error(std::string("no widget ") + name); // fails the test
        return *widget;
    }
    [[nodiscard]] QSpinBox& spin(const char* name) const { return find<QSpinBox>(name); }
    [[nodiscard]] QComboBox& combo(const char* name) const { return find<QComboBox>(name); }
    [[nodiscard]] QPushButton& button(const char* name) const { return find<QPushButton>(name); }
    [[nodiscard]] std::string text(const char* name) const
    {
        return find<QLabel>(name).text().toStdString();
    }
    /// What the four geometry boxes say.
    [[nodiscard]] ElementGeometry shown() const
    {
        return {spin("xSpin").value(), spin("ySpin").value(), spin("widthSpin").value(),
                spin("heightSpin").value()};
    }
    [[nodiscard]] bool labelGroupIsHidden() const
    {
        return find<QGroupBox>("labelGroup").isHidden();
    }

    void expectSilence() const
    {
        EXPECT_EQ(m_positionChanged.count(), 0);
        EXPECT_EQ(m_sizeChanged.count(), 0);
        EXPECT_EQ(m_fontChanged.count(), 0);
    }

    DashElement m_element;
    PropertyPanel m_panel;
    QSignalSpy m_positionChanged{&m_panel, &PropertyPanel::positionChanged};
    QSignalSpy m_sizeChanged{&m_panel, &PropertyPanel::sizeChanged};
    QSignalSpy m_fontChanged{&m_panel, &PropertyPanel::fontChanged};
};
