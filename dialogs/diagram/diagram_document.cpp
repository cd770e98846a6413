#include "dialogs/diagram/diagram_document.h"

#include "dialogs/common/names.h"
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/curve_export.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_texts.h"
#include "dialogs/diagram/diagram_walk.h"
#include "dialogs/diagram/settings_panel.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

// Shares of the screen, and the upper edge in twips.
constexpr double kHeightShare = 0.7;
constexpr double kSideHeightShare = 0.57;
constexpr double kWidthShare = 0.62;
constexpr double kSideWidthShare = 0.42;
constexpr int kWindowTop = 500;

constexpr int kPointSymbolSize = 8;
/// Seen on white, on the grey of its colour scheme and on black.
constexpr Colour kGridGrey = 0xA0A0A0;
constexpr double kAxisFont = 11; // points
constexpr double kAxisFontNarrow = 10;
constexpr double kLegendFont = 8;
constexpr const char* kFontFamily = "ARIAL";

constexpr const char* kLegendHint = " without text no entry in the legend! ";

/// Models whose second species has a half-life, in c-t and r-t diagrams; 5, 53 and so on have none.
constexpr int kHalfLifeBKinds[] = {-8, 4,  7,  9,  10, 12, 13, 17, 19,
                                   54, 57, 59, 60, 62, 63, 67, 68, 69};

/// Kinds without a curve of their own: the window shows points only.
bool ShowsPointsOnly(int kind) {
    return kind == kKindPoints || kind == kKindKOfT || kind == kKindFitPoints ||
           kind == kKindMichaelisMenten;
}

// --- load, step by step

void PlaceWindow(Workspace& ps, DiagramDocument& doc) {
    const bool side = ps.Frame.SideWindow;
    const double screenWidth = doc.screenWidth * kTwipsPerPixel;
    const double screenHeight = doc.screenHeight * kTwipsPerPixel;
    doc.height = static_cast<int>(screenHeight * (side ? kSideHeightShare : kHeightShare));
    doc.width = static_cast<int>(screenWidth * (side ? kSideWidthShare : kWidthShare));
    if (side || ps.FitMode != kNoFit) {
        doc.top = kWindowTop;
        doc.left = static_cast<int>(screenWidth) - doc.width;
    } else {
        doc.top = ps.DiagramTop > 0 ? ps.DiagramTop : kWindowTop;
        doc.left = ps.DiagramLeft;
    }
}

void EmptyDocument(Workspace& ps, DiagramDocument& doc) {
    PlotSurface& surface = doc.surface;
    static_cast<PlotContents&>(surface) = PlotContents();
    surface.rubber = {};
    surface.cursor.reset();
    doc.selected = {};
    doc.pointer = ChartPointer::Default;
    SetSeriesCount(surface, kLines, kLineSeries);
    SetSeriesCount(surface, kPoints, kPointSets);
    SetSeriesDisplay(surface, kLines, kFrameSeries, SeriesDisplay::Hidden);
    ps.CurveCount = 0;
    doc.CurveSlot = 0;
    doc.CurveSteps = kCurveSteps;
    doc.ManualSet = kManualSet;
    doc.CurveSlotFree.fill(true);
    doc.RegressLeftOut = 0;
    doc.DrawNote.clear();
    doc.DrawError = false;
    for (TabPage& page : doc.tabKurven.pages)
        page.visible = false;
    for (TabPage& page : doc.tabPunkte.pages)
        page.visible = false;
}

void StyleSeries(Workspace& ps, DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        SetLineStyle(doc.surface, kLines, slot, {LinePattern::Solid, 1, ps.PresetColor});
        SetSymbol(doc.surface, kLines, slot, {SymbolShape::Hidden, 1, ps.PresetColor});
        doc.cmdKurvenFarbe(slot).backColour = ps.PresetColor;
    }
    for (int set = 1; set <= kPointSets; ++set) {
        SetLineStyle(doc.surface, kPoints, set, {LinePattern::None, 1, ps.PresetColor});
        SetSymbol(doc.surface, kPoints, set,
                  {static_cast<SymbolShape>(set - 1), kPointSymbolSize, ps.PresetColor});
        doc.cmdPunktFarbe(set).backColour = ps.PresetColor;
        doc.cmbPunktStil(set).index = set - 1;
    }
    doc.cmdFarbVorwahl.backColour = ps.PresetColor;
}

void WriteTexts(const Workspace& ps, DiagramDocument& doc) {
    const bool narrow = doc.screenWidth < kNarrowScreen;
    const FontChoice font{.family = kFontFamily, .size = narrow ? kAxisFontNarrow : kAxisFont};
    TextBlock block;
    block.font = font;
    SetFooter(doc.surface, block);
    block.text = ps.Frame.Header;
    SetHeader(doc.surface, block);
    SetAxisTitle(doc.surface, AxisId::X, ps.Frame.xTitle, TextRotation::Horizontal);
    SetAxisTitle(doc.surface, AxisId::Y, ps.Frame.yTitle, TextRotation::Vertical);
    for (const AxisId axis : {AxisId::X, AxisId::Y, AxisId::Y2})
        SetAxisFont(doc.surface, axis, font, font);
    PlotLegend legend;
    legend.font = {.family = kFontFamily, .size = kLegendFont};
    doc.mnuAddText.enabled = true;
    SetLegend(doc.surface, legend);
    doc.LegendBackColor = legend.colours.back;
}

void SetUpAxes(DiagramDocument& doc) {
    doc.GridMode = 3;
    doc.GridPattern = LinePattern::Dotted;
    for (const AxisId axis : {AxisId::X, AxisId::Y}) {
        SetAxisVisible(doc.surface, axis, true);
        SetGrid(doc.surface, axis, doc.GridPattern, kGridGrey);
        SetAxisOrigin(doc.surface, axis, Placement::Min);
        SetAxisAnnotation(doc.surface, axis, Placement::Min, TextRotation::Horizontal);
    }
    SetAxisVisible(doc.surface, AxisId::Y2, false);
    SetPlotAreaFrame(doc.surface, true, 1);
}

void SetUpMenus(Workspace& ps, DiagramDocument& doc) {
    const int kind = ps.DiagramKind;
    const bool tanks = ps.IsCSTR || ps.IsCascade;
    const bool lines = kind >= kKindMixedSecondOrder && kind <= kKindFirstOrder;
    doc.mnuHalbA.enabled = !tanks && (lines || IsModelKind(kind));
    doc.mnuHalbB.enabled =
        !tanks && std::ranges::find(kHalfLifeBKinds, kind) != std::end(kHalfLifeBKinds);
    doc.mnuHalbA.text = std::string("&Half-life of ") + SpeciesName(ps.ModelId, 1);
    doc.mnuHalbB.text = std::string("Half-li&fe of ") + SpeciesName(ps.ModelId, 2);
    for (MenuEntry* entry : {&doc.mnuDelKurv, &doc.mnuDelPoints, &doc.mnuDelHalbAB,
                             &doc.mnuDelLabels, &doc.mnuDelTotal})
        entry->enabled = false;
    ShowLegend(doc, false);
}

void FillWithPoints(Workspace& ps, DiagramDocument& doc) {
    bool anyInside = false;
    LoadPointSets(ps, doc, anyInside);
    if (!anyInside)
        WarnPointsOutside("Enlarge the range of coordinates.");
}

void FillWithCurves(Workspace& ps, DiagramDocument& doc) {
    cmdDraw_Click(ps, doc);
    if (ps.DiagramKind <= 0 || ps.ExpPointCount == 0 || !ps.WithExpPoints)
        return;
    bool anyInside = false;
    LoadPointSets(ps, doc, anyInside);
    if (!anyInside)
        WarnPointsOutside(JoinLines({"Check if the experimental points fit to this diagram ",
                                     "or increase the range of the diagram axes"}));
}

// --- the record

TabPanel& WithPages(TabPanel& panel, int count) {
    panel.pages.assign(static_cast<std::size_t>(count), {.text = "", .visible = false});
    return panel;
}

void WireCurvePanel(Workspace& ps, DiagramDocument& doc) {
    for (int slot = 1; slot <= kCurveSlots; ++slot) {
        doc.cmbKStil(slot).items = {"only single points", "curve solid", "Curve dotted",
                                    "Curve dashed", "Curve dash-dotted"};
        doc.cmbKStil(slot).index = 1;
        doc.txtLegendCurves(slot).toolTip = kLegendHint;
        doc.UpDown1_KBreite(slot).minimum = 1;
        doc.UpDown1_KBreite(slot).maximum = 20;
        doc.UpDown1_KBreite(slot).value = 1;
        doc.Label39(slot).text = "1";
        doc.chkEinzelLabelSichtbar(slot).text = "visible";
        doc.cmdKurvenFarbe(slot).text = "Colour ...";
        doc.chkLegend1(slot).text = "Legend";
        doc.scrShiftLab(slot).minimum = 1;
        doc.cmbKStil(slot).onClick = [&doc, slot] { cmbKStil_Click(doc, slot); };
        doc.UpDown1_KBreite(slot).onChange = [&doc, slot] { UpDown1_KBreite_Change(doc, slot); };
        doc.cmdKurvenFarbe(slot).onClick = [&doc, slot] { cmdKurvenFarbe_Click(doc, slot); };
        doc.txtLegendCurves(slot).onChange = [&doc, slot] { txtLegendCurves_Change(doc, slot); };
        doc.txtLabel(slot).onChange = [&doc, slot] { txtLabel_Change(doc, slot); };
        doc.chkEinzelLabelSichtbar(slot).onClick = [&doc, slot] {
            chkEinzelLabelSichtbar_Click(doc, slot);
        };
        doc.scrShiftLab(slot).onChange = [&doc, slot] { scrShiftLab_Change(doc, slot); };
        doc.chkLegend1(slot).onClick = [&doc, slot] {
            ShowLegend(doc, doc.chkLegend1(slot).checked);
        };
    }
    for (int slot = 0; slot <= kCurveSlots; ++slot) {
        MenuEntry& entry = doc.mnuSubDelKurv(slot);
        entry.text = slot == 0 ? "all" : "curve " + std::to_string(slot);
        entry.visible = slot == 0;
        entry.onClick = [&ps, &doc, slot] { mnuSubDelKurv_Click(ps, doc, slot); };
    }
    doc.tabKurven.onClick = [&doc](int page) { SelectSeries(doc, kLines, page + 1); };
    doc.cmdDelKurv.onClick = [&ps, &doc] { cmdDelKurv_Click(ps, doc); };
    doc.cmdClipboard.onClick = [&doc] { cmdClipboard_Click(doc); };
    doc.cmdClipboard.toolTip = "x and y with a tab between them, one line for each point";
    doc.cmdSaveCurveAsXY.onClick = [&ps, &doc] { cmdSaveCurveAsXY_Click(ps, doc); };
    doc.cmbSep.onClick = [&ps, &doc] { cmbSep_Click(ps, doc); };
}

void WirePointPanel(Workspace& ps, DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set) {
        doc.cmbPunktStil(set).items = {"Dot",           "Circle",          "Cross", "Square",
                                       "Star",          "Triangle",        "Box",   "Diamond",
                                       "Vertical line", "Horizontal line", "hidden"};
        doc.txtLegendPoints(set).toolTip = kLegendHint;
        doc.UpDown1_PointSize(set).minimum = 1;
        doc.UpDown1_PointSize(set).maximum = 40;
        doc.UpDown1_PointSize(set).value = kPointSymbolSize;
        doc.Label56(set).text = std::to_string(kPointSymbolSize);
        doc.chkLegend2(set).text = "Legend";
        doc.cmdPunktFarbe(set).text = "Colour ...";
        doc.cmdDelPoints(set).text = "Delete these points";
        doc.cmbPunktStil(set).onClick = [&doc, set] { cmbPunktStil_Click(doc, set); };
        doc.UpDown1_PointSize(set).onChange = [&doc, set] { UpDown1_PointSize_Change(doc, set); };
        doc.cmdPunktFarbe(set).onClick = [&doc, set] { cmdPunktFarbe_Click(doc, set); };
        doc.txtLegendPoints(set).onChange = [&doc, set] { txtLegendPoints_Change(doc, set); };
        doc.cmdDelPoints(set).onClick = [&doc, set] { cmdDelPoints_Click(doc, set); };
        doc.chkLegend2(set).onClick = [&doc, set] { ShowLegend(doc, doc.chkLegend2(set).checked); };
    }
    for (int set = 0; set <= kPointSets; ++set) {
        MenuEntry& entry = doc.mnuSubDelPoints(set);
        entry.text = set == 0 ? "all" : "point set " + std::to_string(set);
        entry.visible = set == 0;
        entry.onClick = [&doc, set] { mnuSubDelPoints_Click(doc, set); };
    }
    doc.tabPunkte.onClick = [&doc](int page) { SelectSeries(doc, kPoints, page + 1); };
    doc.cmdManuPoints.onClick = [&ps, &doc] { cmdManuPoints_Click(ps, doc); };
    doc.mnuAddPunkte.onClick = [&ps, &doc] { mnuAddPunkte_Click(ps, doc); };
}

void WireCoordinates(Workspace& ps, DiagramDocument& doc) {
    for (Array<TextField, 4, 1>* boxes : {&doc.coord, &doc.Tabcoord})
        for (int i = 1; i <= 4; ++i) {
            TextField& box = (*boxes)(i);
            box.onKeyPress = [&doc, boxes, i](int& key) { coord_KeyPress(doc, *boxes, i, key); };
            box.onGotFocus = [&box] { box.selectAll = true; };
        }
    doc.mnuCoord.onClick = [&ps, &doc] { mnuCoord_Click(ps, doc); };
    doc.cmdCoord_OK.onClick = [&ps, &doc] { cmdCoord_OK_Click(ps, doc); };
    doc.cmdCoord_Esc.onClick = [&doc] { cmdCoord_Esc_Click(doc); };
    doc.cmdTabCoord_OK.onClick = [&ps, &doc] { cmdTabCoord_OK_Click(ps, doc); };
    doc.cmdXLog.onClick = [&doc] { cmdXLog_Click(doc); };
    doc.cmdYLog.onClick = [&doc] { cmdYLog_Click(doc); };
    doc.optScaling.onClick = [&doc](int index) { optScaling_Click(doc, index); };
    const std::pair<TextField*, SpacingBox> spacings[] = {
        {&doc.txtXGridValue, SpacingBox::XGrid},   {&doc.txtYGridValue, SpacingBox::YGrid},
        {&doc.txtXTickValue, SpacingBox::XTick},   {&doc.txtYTickValue, SpacingBox::YTick},
        {&doc.txtXZiffValue, SpacingBox::XNumber}, {&doc.txtYZiffValue, SpacingBox::YNumber},
    };
    for (const auto& [box, which] : spacings) {
        box->onChange = [&doc, which = which] { SpacingBox_Change(doc, which); };
        box->onLostFocus = [&doc, which = which] { SpacingBox_Leave(doc, which); };
        box->onKeyPress = [&doc, which = which](int& key) { SpacingBox_KeyPress(doc, which, key); };
    }
}

void WireMenus(Workspace& ps, DiagramDocument& doc) {
    doc.cmdDraw.onClick = [&ps, &doc] { cmdDraw_Click(ps, doc); };
    doc.cmdManuKurve.onClick = [&ps, &doc] { cmdManuKurve_Click(ps, doc); };
    doc.cmdFarbVorwahl.onClick = [&ps, &doc] { cmdFarbVorwahl_Click(ps, doc); };
    doc.cmdMsgDelPoint.onClick = [] { cmdMsgDelPoint_Click(); };
    doc.mnuDesign.onOpen = [&ps, &doc] { mnuDesign_Click(ps, doc); };
    doc.mnuDelete.onOpen = [&doc] { mnuDelete_Click(doc); };
    doc.mnuKurvenDesign.onClick = [&ps, &doc] { mnuKurvenDesign_Click(ps, doc); };
    doc.mnuPunktDesign.onClick = [&ps, &doc] { mnuPunktDesign_Click(ps, doc); };
    doc.mnuDesignMore.onClick = [&doc] { mnuDesignMore_Click(doc); };
    doc.mnuAddLegend.onClick = [&doc] { mnuAddLegend_Click(doc); };
    doc.mnuDelLegend.onClick = [&doc] { mnuDelLegend_Click(doc); };
    doc.mnuDelLegendZeile.onClick = [] { mnuDelLegendZeile_Click(); };
    doc.chkLegend.onClick = [&doc] { ShowLegend(doc, doc.chkLegend.checked); };
    doc.mnuAddLabels.onClick = [&doc] { mnuAddLabels_Click(doc); };
    doc.mnuDelLabels.onClick = [&doc] { mnuDelLabels_Click(doc); };
    doc.chkLabelNotVisible.onClick = [&doc] { chkLabelNotVisible_Click(doc); };
    doc.mnuHalbA.onClick = [&ps, &doc] { mnuHalbA_Click(ps, doc); };
    doc.mnuHalbB.onClick = [&ps, &doc] { mnuHalbB_Click(ps, doc); };
    doc.cmdMarkConti.onClick = [&ps, &doc] { cmdMarkConti_Click(ps, doc); };
    doc.mnuHalbA.disabledTip = doc.mnuHalbB.disabledTip = "not in this kind of diagram";
    doc.mnuDelHalbAB.onClick = [&doc] { mnuDelHalbAB_Click(doc); };
    doc.mnuDelMarkLabels.onClick = [&doc] { mnuDelMarkLabels_Click(doc); };
    doc.mnuDelTotal.onClick = [&ps, &doc] { mnuDelTotal_Click(ps, doc); };
}

} // namespace

DiagramDocument::DiagramDocument(Workspace& state)
    : Form(name::kDiagram, "Diagram"), ps(state), tabKurven(*this, "tabKurven", {}),
      tabPunkte(*this, "tabPunkte", {}) {
    WithPages(tabKurven, kCurveSlots);
    WithPages(tabPunkte, kPointSets);
    WireCurvePanel(ps, *this);
    WirePointPanel(ps, *this);
    WireCoordinates(ps, *this);
    WireMenus(ps, *this);
    WireTexts(ps, *this);
    WireDesign(ps, *this);
    lblHint.visible = false;
    for (Label* readout : {&lblMausPosNr, &lblMausPos})
        readout->visible = false;
    cmbSep.items = {";", ",", "Tab"};
    optScaling.selected = 0;
    onLoad = [this] { Form_Load(ps, *this); };
    onActivate = [this] { Form_Activate(ps, *this); };
    onUnload = [this] { Form_Unload(ps, *this); };
    onRefresh = [this] {
        lblHint.text = lblHint.toolTip = ChartHint(*this);
        lblHint.visible = !lblHint.text.empty();
    };
    FuPanelsZu(*this);
    {
        const PlotBatch batch(surface);
        EmptyDocument(ps, *this);
        ResetLabels(*this);
    }
    Declare();
}

void Form_Load(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    PlaceWindow(ps, doc);
    EmptyDocument(ps, doc);
    StyleSeries(ps, doc);
    WriteTexts(ps, doc);
    ResetLabels(doc);
    SetUpAxes(doc);
    cmdFullWhite_Click(doc);
    SetUpMenus(ps, doc);
    ShowFrame(ps.Frame, doc.coord);
    ShowFrame(ps.Frame, doc.Tabcoord);
    FuKoordSetzen(ps, doc);
    optScaling_Click(doc, 0);
    FuMaskenSetzen(ps, ps.DiagramKind);
    doc.mnuAddPunkte.enabled = ps.ExpPointCount > 0;
    // The residence-time dialogs fill the buffer after the window is open; what an earlier diagram
    // has left in it is not theirs.
    const bool filledLater =
        ps.DiagramKind >= kKindResidenceFirst && ps.DiagramKind <= kKindResidenceLast;
    if (filledLater)
        ps.CurveBuf.assign(1, {});
    if (ShowsPointsOnly(ps.DiagramKind))
        FillWithPoints(ps, doc);
    else
        FillWithCurves(ps, doc);
    ps.CurveBuf.assign(kCurveBufferPoints + 1, {});
    ShowDesign(doc);
}

void Form_Activate(Workspace& ps, DiagramDocument& doc) {
    const int kind = ps.DiagramKind;
    doc.mnuAddPunkte.enabled = ps.ExpPointCount != 0 && kind <= kRateKinds;
    doc.cmdSingleCalc.visible =
        kind >= 1 && kind <= 111 && kind != kKindTracer && !ps.IsCSTR && !ps.IsCascade;
    ShowPointPages(ps, doc);
    ShowDelimiter(ps, doc);
}

void Form_Unload(Workspace& ps, DiagramDocument& doc) {
    if (Form* calculator = FindForm(ps.desktop, name::kGraphCalculator))
        UnloadForm(ps.desktop, *calculator);
    if (!ps.Frame.SideWindow) {
        ps.DiagramLeft = doc.left;
        ps.DiagramTop = doc.top;
    }
    ps.Frame.SideWindow = false;
    ps.CurveCount = 0;
}

void FuPanelsZu(DiagramDocument& doc) {
    for (Frame* panel : {&doc.fraTabs, &doc.fraKurven, &doc.fraPunkte, &doc.fraSchrift,
                         &doc.fraCoordInput, &doc.fraPrintIt, &doc.fraResolution})
        panel->visible = false;
}

void mnuDesign_Click(Workspace& ps, DiagramDocument& doc) {
    FuPanelsZu(doc);
    doc.mnuKurvenDesign.enabled = doc.mnuTextDesign(kCurveTexts).enabled = ps.CurveCount > 0;
    bool anyPoints = ps.DiagramOfTk || ps.DiagramOfRc;
    for (int set = 1; set <= kPointSets; ++set)
        anyPoints = anyPoints || GetPointCount(doc.surface, kPoints, set) > 0;
    doc.mnuPunktDesign.enabled = anyPoints;
}

void mnuDesignMore_Click(DiagramDocument& doc) {
    FuPanelsZu(doc);
    ShowDesign(doc);
    doc.fraTabs.visible = true;
    doc.setFocus = &doc.design.tabSettings;
}

void mnuDesignMore_Click(DiagramDocument& doc, SettingsPage page) {
    doc.design.tabSettings.selected = static_cast<int>(page);
    mnuDesignMore_Click(doc);
}

// --- pages

void ShowPage(TabPanel& panel, int page, bool visible) {
    panel.pages.at(static_cast<std::size_t>(page)).visible = visible;
}

bool IsFunctionOfC(const Workspace& ps) {
    return Val(ps.SpeciesMask) == 2;
}

bool OffersPointSet(const Workspace& ps, const DiagramDocument& doc, int set) {
    if (set == kManualSet)
        return GetPointCount(doc.surface, kPoints, set) > 0;
    if (set == kPairSet)
        return (ps.DiagramOfTk && ps.nkTPoints > 1) || ps.DiagramOfRc;
    const bool hasData = ps.ColumnHasData[static_cast<std::size_t>(set)];
    if (ps.DiagramKind == kKindSingleSpecies)
        return set == ps.SingleSpecies;
    if (IsFunctionOfC(ps))
        return set == 1 && hasData;
    return InMask(ps.SpeciesMask, set) && hasData;
}

void ShowPointPages(Workspace& ps, DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set)
        ShowPage(doc.tabPunkte, set - 1, OffersPointSet(ps, doc, set));
}

int BufferCount(const PointBuffer& buffer) {
    if (buffer.empty() || !(buffer[0].x > 0))
        return 0;
    const auto held = static_cast<float>(buffer.size() - 1);
    return static_cast<int>(std::min(buffer[0].x, held));
}

} // namespace zorvant
