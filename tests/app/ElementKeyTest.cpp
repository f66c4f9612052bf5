#include "app/ElementKey.h"

#include <gtest/gtest.h>

TEST(ElementKey, FindsTheElementWhereverItStands)
{
    pugi::xml_document xml;
    DashPage page;
    for (const char* const name : {"a", "b", "c"}) {
        DashElement element;
        element.name = QLatin1String(name);
        element.node = xml.append_child("e");
        page.elements.push_back(element);
    }
    const ElementKey key(page.elements[1]);
    EXPECT_EQ(key.indexIn(&page), 1);
    page.elements.erase(page.elements.begin());
    EXPECT_EQ(key.indexIn(&page), 0);
    page.elements.erase(page.elements.begin());
    EXPECT_EQ(key.indexIn(&page), -1);
    EXPECT_EQ(key.indexIn(nullptr), -1);
}

TEST(ElementKey, ANodeThatCameBackUnderAnotherNameIsAnotherElement)
{
    pugi::xml_document xml;
    DashPage page;
    page.elements.resize(1);
    page.elements[0].name = QStringLiteral("former");
    page.elements[0].node = xml.append_child("e");
    const ElementKey key(page.elements[0]);
    page.elements[0].name = QStringLiteral("latter");
    EXPECT_EQ(key.indexIn(&page), -1);
}

TEST(ElementKey, TheEmptyKeyNamesNothing)
{
    DashPage page;
    page.elements.resize(1);
    EXPECT_EQ(ElementKey().indexIn(&page), -1);
}
