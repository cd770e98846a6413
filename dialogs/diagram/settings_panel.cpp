#include "dialogs/diagram/settings_panel.h"

#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_texts.h"
#include "dialogs/diagram/point_panel.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

constexpr int kPlaceStep = 10;    // thousandths
constexpr int kWidestBorder = 20; // pixels

// --- controls whose handlers need the window alone

template <class Clicked>
void Click(DiagramDocument& doc, Clicked& control, void (*handler)(DiagramDocument&)) {
    control.onClick = [&doc, handler] { handler(doc); };
}
void Choice(DiagramDocument& doc, OptionGroup& group, void (*handler)(DiagramDocument&, int)) {
    group.onClick = [&doc, handler](int index) { handler(doc, index); };
}
template <class Changed>
void Change(DiagramDocument& doc, Changed& control, void (*handler)(DiagramDocument&)) {
    control.onChange = [&doc, handler] { handler(doc); };
}

void WireAxisPages(Workspace& ps, DiagramDocument& doc) {
    Click(doc, doc.design.cmdZoom, cmdZoom_Click);
    doc.design.cmdZoomReset.onClick = [&ps, &doc] { cmdZoomReset_Click(ps, doc); };
    doc.design.cmdShowAll.onClick = [&ps, &doc] { cmdShowAll_Click(ps, doc); };
    Choice(doc, doc.design.opt1Gitter, opt1Gitter_Click);
    Choice(doc, doc.design.opt2Gitter, opt2Gitter_Click);
    Click(doc, doc.design.cmdGitterFarbe, cmdGitterFarbe_Click);
    Choice(doc, doc.design.optStandardOrigin, optStandardOrigin_Click);
    Choice(doc, doc.design.optXOrigin, optXOrigin_Click);
    Choice(doc, doc.design.optYOrigin, optYOrigin_Click);
    Choice(doc, doc.design.optXZiffern, optXZiffern_Click);
    Choice(doc, doc.design.optYZiffern, optYZiffern_Click);
}

void WireLegendPage(DiagramDocument& doc) {
    Choice(doc, doc.design.optLegOrient, optLegOrient_Click);
    Click(doc, doc.design.chkAutoLegend, chkAutoLegend_Click);
    Click(doc, doc.design.cmdLegCorner, cmdLegCorner_Click);
    Change(doc, doc.design.scrLegH, scrLegH_Change);
    Change(doc, doc.design.scrlegV, scrlegV_Change);
    Click(doc, doc.design.chkLegFrame, chkLegFrame_Click);
    Click(doc, doc.design.chkLegTransparent, chkLegTransparent_Click);
    Click(doc, doc.design.cmdLegFont, cmdLegFont_Click);
    Click(doc, doc.design.cmdLegBColor, cmdLegBColor_Click);
    Click(doc, doc.design.cmdLegFColor, cmdLegFColor_Click);
}

void WireLabelPage(DiagramDocument& doc) {
    Click(doc, doc.design.cmdFontLabel, cmdFontLabel_Click);
    Click(doc, doc.design.cmdLabelFColor, cmdLabelFColor_Click);
    Click(doc, doc.design.cmdLabelBColor, cmdLabelBColor_Click);
    Click(doc, doc.design.chkLabelFrame, chkLabelFrame_Click);
}

void WireColourPage(DiagramDocument& doc) {
    Click(doc, doc.design.cmdFullBlack, cmdFullBlack_Click);
    Click(doc, doc.design.cmdFullWhite, cmdFullWhite_Click);
    Click(doc, doc.design.cmdRandColGrau, cmdRandColGrau_Click);
    Click(doc, doc.design.cmdRandCol_out, cmdRandCol_out_Click);
    Click(doc, doc.design.cmdRandCol_in, cmdRandCol_in_Click);
    Click(doc, doc.design.cmdColor_in, cmdColor_in_Click);
}

void WireFramePage(DiagramDocument& doc) {
    Click(doc, doc.design.chkDiaFrame, chkDiaFrame_Click);
    Choice(doc, doc.design.optFrameType, optFrameType_Click);
    Change(doc, doc.design.UpDownRBreite, UpDownRBreite_Change);
    Click(doc, doc.design.chkAutoRand, chkAutoRand_Click);
    for (Slider* margin :
         {&doc.design.scrHL, &doc.design.scrHR, &doc.design.scrHO, &doc.design.scrHU})
        Change(doc, *margin, MarginSlider_Change);
    Click(doc, doc.design.chkAutoChartArea, chkAutoChartArea_Click);
    for (const auto& [slider, edge] : {std::pair(&doc.design.scrHLChartArea, Edge::Left),
                                       {&doc.design.scrHChartArea, Edge::Right},
                                       {&doc.design.scrVOChartArea, Edge::Top},
                                       {&doc.design.scrVChartArea, Edge::Bottom}})
        slider->onChange = [&doc, edge = edge] { ChartAreaSlider_Change(doc, edge); };
}

} // namespace

DesignControls::DesignControls(Form& owner)
    : form(owner), tabSettings(owner, "tabSettings",
                               {"&Coordinates", "G&rid", "&Origin", "Lege&nd", "&Labels",
                                "Colo&urs", "&Frame"}) {
    for (TextField* shown : {&txtXOrigin, &txtYOrigin}) {
        shown->locked = true;
        shown->backColour = kPaleYellow;
    }
    for (Slider* place :
         {&scrLegH, &scrlegV, &scrHLChartArea, &scrHChartArea, &scrVOChartArea, &scrVChartArea}) {
        place->maximum = static_cast<int>(kPlaceSteps);
        place->step = kPlaceStep;
    }
    for (Slider* margin : {&scrHL, &scrHR, &scrHO, &scrHU})
        margin->maximum = kWidestMargin;
    UpDownRBreite.minimum = 1;
    UpDownRBreite.maximum = kWidestBorder;
    UpDownRBreite.value = 1;
    optStandardOrigin.selected = optXOrigin.selected = optYOrigin.selected = 0;
    optXZiffern.selected = optYZiffern.selected = opt2Gitter.selected = 0;
    optFrameType.selected = 0;
    opt1Gitter.selected = 3;
    optLegOrient.selected = 1;
    cmdZoom.toolTip = "Draw a rectangle around what you want to see larger (Ctrl++)";
    cmdZoomReset.toolTip = "Back to the coordinates given last (Ctrl+0)";
    cmdShowAll.toolTip = "All curves and points (Ctrl+9)";
    cmdLegCorner.toolTip = "Inside the axes, where it hides least";
    cmdRandCol_out.toolTip = "Background of the whole chart";
    cmdRandCol_in.toolTip = "Background behind the axes with their numbers and titles";
    cmdColor_in.toolTip = "Background between the axes";
    chkAutoLegend.toolTip = "Beside the axes when vertical, below them when horizontal";
    chkAutoChartArea.toolTip = "All the room that header and additional text leave";
}

void WireDesign(Workspace& ps, DiagramDocument& doc) {
    WireAxisPages(ps, doc);
    WireLegendPage(doc);
    WireLabelPage(doc);
    WireColourPage(doc);
    WireFramePage(doc);
}

void ShowDesign(DiagramDocument& doc) {
    ShowAxisSettings(doc);
    ShowLegendSettings(doc);
    ShowLabelSettings(doc);
    ShowColourSettings(doc);
    ShowFrameSettings(doc);
    ShowCurveDesign(doc);
    ShowPointDesign(doc);
    ShowText(doc);
}

int Thousandths(double share) {
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kPlaceSteps));
}

} // namespace zorvant
