// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/model/ModelFixture.h"

#include "model/AXNames.h"
#include "model/UIElementUtilities.h"

namespace lumbrix::test
{
namespace
{

using platform::AXRange;
using platform::AXValue;
using platform::ElementRef;

class UIElementUtilitiesTest : public ModelFixture
{
protected:
    /// A window with one further attribute of each kind.
    ElementRef windowWithEveryKind()
    {
        SimulatedWindow window{u"Plan"_s};
        window.attributes = {{u"Place"_s, QPointF(1, 2)},
                             {u"Extent"_s, QSizeF(3, 4)},
                             {u"Frame"_s, QRectF(5, 6, 7, 8)},
                             {u"Selection"_s, AXRange{9, 10}},
                             {u"Note"_s, u"old"_s},
                             {u"Level"_s, 11.0},
                             {u"Flag"_s, true}};
        number = desk.addWindow(addApplication(u"Maps"_s), window);
        return desk.windowElement(number);
    }
    QString terse(const QString& attribute)
    {
        return utilities.descriptionForUIElement(desk.windowElement(number), attribute, false)
            .value_or(u"null"_s);
    }

    const UIElementUtilities utilities{ports()};
    WindowID number = 0;
};

TEST_F(UIElementUtilitiesTest, values_haveAVerboseAndATerseForm)
{
    const ElementRef window = windowWithEveryKind();
    const std::tuple<AXValue, QString, QString> rows[] = {
        {QPointF(1.5, -2), u"<AXPointValue x=1.5 y=-2>"_s, u"x=1.5 y=-2"_s},
        {QSizeF(1e7, 0), u"<AXSizeValue w=1e+07 h=0>"_s, u"w=1e+07 h=0"_s},
        {QRectF(1, 2, 3, 4), u"<AXRectValue  x=1 y=2 w=3 h=4>"_s, u"x=1 y=2 w=3 h=4"_s},
        {AXRange{5, 6}, u"<AXRangeValue pos=5 len=6>"_s, u"pos=5 len=6"_s},
        {u"text"_s, u"text"_s, u"text"_s},
        {0.25, u"0.25"_s, u"0.25"_s},
        {std::vector<ElementRef>{window, window}, u"<array of size 2>"_s, u"<array of size 2>"_s},
        {window, u"<AXWindow: “Plan”>"_s, u"<AXWindow: “Plan”>"_s},
        {desk.dockItem(u"Trash"_s), u"<AXDockItem: “Trash”>"_s, u"<AXDockItem: “Trash”>"_s},
    };
    for (const auto& [value, verbose, terse] : rows) {
        EXPECT_EQ(utilities.descriptionOfValue(value, true), verbose);
        EXPECT_EQ(utilities.descriptionOfValue(value, false), terse);
    }
    EXPECT_EQ(utilities.descriptionOfValue({}, true), std::nullopt);
    EXPECT_EQ(UIElementUtilities::stringDescriptionOfAXValue(u"text"_s, true), u"AXValue???"_s);
    EXPECT_EQ(UIElementUtilities::stringDescriptionOfAXValue({}, false), u"AXValue???"_s);
    desk.changeWindow(number, [](SimulatedWindow& each) { each.title.clear(); });
    EXPECT_EQ(utilities.descriptionOfValue(window, false), u"<AXWindow>"_s);

    EXPECT_EQ(utilities.descriptionOfAXDescriptionOfUIElement(window), u"No Description"_s);
    for (const QString& text : {QString(), u"A plan"_s}) {
        desk.changeWindow(number,
                          [&](SimulatedWindow& each) { each.attributes[AX::Description] = text; });
        EXPECT_EQ(utilities.descriptionOfAXDescriptionOfUIElement(window),
                  text.isEmpty() ? u"No Description"_s : text);
    }
}

TEST_F(UIElementUtilitiesTest, text_isSetInTheFormOfThePresentValue_orNotAtAll)
{
    const ElementRef window = windowWithEveryKind();
    const std::tuple<QString, QString, QString> rows[] = {
        {u"Place"_s, u"x=-1.25  y= 3e2 and more"_s, u"x=-1.25 y=300"_s},
        {u"Place"_s, u"x=5"_s, u"x=-1.25 y=300"_s},
        {u"Place"_s, u"x=5,5 y=1"_s, u"x=-1.25 y=300"_s},
        {u"Place"_s, u"<AXPointValue x=1 y=2>"_s, u"x=-1.25 y=300"_s},
        {u"Extent"_s, u"w=30 h=40"_s, u"w=30 h=40"_s},
        {u"Extent"_s, u"x=1 y=2"_s, u"w=30 h=40"_s},
        {u"Frame"_s, u"x=1 y=2 w=3 h=+4"_s, u"x=1 y=2 w=3 h=4"_s},
        {u"Frame"_s, u"x=9 y=9 w=9 h="_s, u"x=1 y=2 w=3 h=4"_s},
        {u"Selection"_s, u"pos=1 len=-2"_s, u"pos=1 len=-2"_s},
        {u"Selection"_s, u"pos=99999999999999999999 len=1"_s, u"pos=1 len=-2"_s},
        {u"Note"_s, u"  x=1 y=2"_s, u"  x=1 y=2"_s},
        {u"Level"_s, u" 12.5 apples"_s, u"12.5"_s},
        {u"Level"_s, u"apples"_s, u"0"_s},
        {u"Flag"_s, u"0"_s, u"1"_s},
        {QString(), u"0"_s, u"null"_s},
        {u"Missing"_s, u"0"_s, u"null"_s},
    };
    for (const auto& [attribute, text, expected] : rows) {
        utilities.setStringValue(text, attribute, window);
        EXPECT_EQ(terse(attribute), expected) << qPrintable(attribute + u' ' + text);
    }
    desk.closeWindow(number);
    utilities.setStringValue(u"new"_s, u"Note"_s, window);
    utilities.setStringValue(u"new"_s, u"Note"_s, nullptr);
}

TEST_F(UIElementUtilitiesTest, report_tellsLineageAttributesAndActions)
{
    const Pid maps = addApplication(u"Maps"_s, 1);
    const ElementRef window = desk.windowElement(desk.stacking().front());
    EXPECT_EQ(utilities.processIdentifierOfUIElement(window), maps);
    EXPECT_TRUE(utilities.isApplicationUIElement(utilities.parentOfUIElement(window)));
    EXPECT_FALSE(utilities.isApplicationUIElement(window));
    EXPECT_EQ(utilities.frameOfUIElement(window), QRectF(100, 540, 400, 300));
    EXPECT_EQ(utilities.frameOfUIElement(utilities.parentOfUIElement(window)), QRectF());
    EXPECT_EQ(utilities.stringDescriptionOfUIElement(window),
              u"<AXApplication: “Maps”>\n"
              " <AXWindow: “Maps 1”>\n"
              "\n"
              "Attributes:\n"
              "   AXRole:  “AXWindow”\n"
              "   AXSubrole:  “AXStandardWindow”\n"
              "   AXTitle:  “Maps 1”\n"
              "   AXParent:  “<AXApplication: “Maps”>”\n"
              "   AXChildren:  “<array of size 1>”\n"
              "   AXPosition:  “x=100 y=60”\n"
              "   AXSize:  “w=400 h=300”\n"
              "   AXMinimized (W):  “0”\n"
              "   AXCloseButton:  “<AXButton>”\n"
              "\n"
              "Actions:\n"
              "   AXRaise - raise\n"_s);
    EXPECT_EQ(utilities.lineageDescriptionOfUIElement(
                  window, [](const QString& text) { return text.toUpper(); }),
              u"<AXAPPLICATION: “MAPS”>\n <AXWINDOW: “MAPS 1”>\n"_s);
    // Which attributes are there, and what there is not.
    EXPECT_EQ(std::get<QString>(utilities.valueOfAttribute(AX::Title, window)), u"Maps 1"_s);
    EXPECT_EQ(utilities.valueOfAttribute(AX::URL, window), AXValue());
    utilities.performAction(
        AX::Press, std::get<ElementRef>(utilities.valueOfAttribute(AX::CloseButton, window)));
    EXPECT_EQ(utilities.stringDescriptionOfUIElement(window),
              u"<AXUIElement pid=%1>\n"_s.arg(maps));
    EXPECT_EQ(utilities.attributeNamesOfUIElement(window), std::nullopt);
    EXPECT_FALSE(utilities.canSetAttribute(AX::Minimized, window));
    EXPECT_EQ(utilities.stringDescriptionOfUIElement(nullptr), QString());
}

TEST_F(UIElementUtilitiesTest, listsAreCountedWithoutBeingFetched_andLoopsOfParentsEnd)
{
    struct Odd : ForwardingAccessibility {
        using ForwardingAccessibility::ForwardingAccessibility;
        platform::AXResult copyAttributeValue(const ElementRef& element,
                                              const QString& attribute) override
        {
            EXPECT_NE(attribute, AX::Children);
            if (attribute == AX::Parent)
                return {platform::AXError::Success, element};
            return ForwardingAccessibility::copyAttributeValue(element, attribute);
        }
        platform::AXResult attributeValueCount(const ElementRef&, const QString&) override
        {
            return {platform::AXError::Success, 3.0};
        }
    };
    Odd odd(desk.accessibility());
    install(odd, desk.windowServer());
    addApplication(u"Maps"_s, 1);
    const ElementRef window = desk.windowElement(desk.stacking().front());
    EXPECT_EQ(utilities.descriptionForUIElement(window, AX::Children, false),
              u"<array of size 3>"_s);
    EXPECT_LT(utilities.lineageOfUIElement(window).size(), 100U);
}

} // namespace
} // namespace lumbrix::test
