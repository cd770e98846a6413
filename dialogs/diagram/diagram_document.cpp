#include "dialogs/diagram/diagram_document.h"

#include "diagrams/point_sets.h"
#include "diagrams/ranges.h"
#include "dialogs/common/names.h"
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/curve_export.h"
#include "dialogs/diagram/curve_panel.h"
#include "dialogs/diagram/diagram_curves.h"
#include "dialogs/diagram/diagram_design.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_marks.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/diagram_texts.h"
#include "dialogs/diagram/diagram_undo.h"
#include "dialogs/diagram/point_panel.h"
#include "dialogs/diagram/settings_panel.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

// Shares of the screen, and the upper edge in twips.
constexpr double kHeightShare = 0.7;
constexpr double kSideHeightShare = 0.57;
constexpr double kWidthShare = 0.62;
constexpr double kSideWidthShare = 0.42;
constexpr int kWindowTop = 500;

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
    EmptyDiagram(ps, doc);
    doc.pointer = ChartPointer::Default;
    for (TabPanel* panel : {&doc.tabKurven, &doc.tabPunkte})
        for (TabPage& page : panel->pages)
            page.visible = false;
}

void SetUpMenus(Workspace& ps, DiagramDocument& doc) {
    doc.mnuHalbA.enabled = OffersHalfLifeA(ps, ps.DiagramKind);
    doc.mnuHalbB.enabled = OffersHalfLifeB(ps, ps.DiagramKind);
    doc.mnuHalbA.text = std::string("&Half-life of ") + SpeciesName(ps.ModelId, 1);
    doc.mnuHalbB.text = std::string("Half-li&fe of ") + SpeciesName(ps.ModelId, 2);
    for (MenuEntry* entry : {&doc.mnuDelKurv, &doc.mnuDelPoints, &doc.mnuDelHalbAB,
                             &doc.mnuDelLabels, &doc.mnuDelTotal})
        entry->enabled = false;
    doc.mnuAddText.enabled = true;
    doc.mnuAddPunkte.enabled = ps.ExpPointCount > 0;
    ShowLegend(doc, false);
}

void SetUpCoordinates(Workspace& ps, DiagramDocument& doc) {
    ShowFrame(ps.Frame, doc.coord);
    ShowFrame(ps.Frame, doc.Tabcoord);
    FuKoordSetzen(ps.Frame, doc.surface);
    optScaling_Click(doc, 0);
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

void Fill(Workspace& ps, DiagramDocument& doc) {
    FuMaskenSetzen(ps, ps.DiagramKind);
    // What an earlier diagram has left in the buffer is not that of a dialog that fills it later.
    if (IsResidenceKind(ps.DiagramKind))
        ps.CurveBuf.assign(1, {});
    if (ShowsPointsOnly(ps.DiagramKind))
        FillWithPoints(ps, doc);
    else
        FillWithCurves(ps, doc);
    ps.CurveBuf.assign(kCurveBufferPoints + 1, {});
}

// --- the record

void MakePages(TabPanel& panel, int count) {
    panel.pages.assign(static_cast<std::size_t>(count), {.text = "", .visible = false});
}

void WireMenus(Workspace& ps, DiagramDocument& doc) {
    doc.cmdDraw.onClick = [&ps, &doc] { cmdDraw_Click(ps, doc); };
    doc.cmdManuKurve.onClick = [&ps, &doc] { cmdManuKurve_Click(ps, doc); };
    doc.cmdManuPoints.onClick = [&ps, &doc] { cmdManuPoints_Click(ps, doc); };
    doc.mnuAddPunkte.onClick = [&ps, &doc] { mnuAddPunkte_Click(ps, doc); };
    doc.cmdFarbVorwahl.toolTip = "black: each curve gets a colour of its own";
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

/// A dialog that draws anew closes the diagram from behind; the one in front is closed by the user.
bool IsInFront(const Workspace& ps, const DiagramDocument& doc) {
    return !ps.desktop.order.empty() && ps.desktop.order.back() == &doc;
}

/// An edited design is offered to be saved before the user closes it.
bool MayClose(Workspace& ps, DiagramDocument& doc) {
    NoteStep(doc);
    if (!doc.designEdited || !IsInFront(ps, doc))
        return true;
    const Answer answer =
        Ask(JoinLines({"The design of this diagram has been changed.", "",
                       "Save it before the diagram is closed?"}),
            "Close the diagram", Icon::Question, Buttons::YesNoCancel, Answer::Yes);
    if (answer == Answer::Yes)
        mnuSaveOC2_Click(ps, doc);
    return answer == Answer::No || (answer == Answer::Yes && !doc.designEdited);
}

void WireWindow(Workspace& ps, DiagramDocument& doc) {
    doc.onLoad = [&ps, &doc] { Form_Load(ps, doc); };
    doc.onActivate = [&ps, &doc] { Form_Activate(ps, doc); };
    doc.onUnload = [&ps, &doc] { Form_Unload(ps, doc); };
    doc.onQueryUnload = [&ps, &doc](bool& cancel) { cancel = !MayClose(ps, doc); };
    doc.onRefresh = [&doc] {
        NoteStep(doc);
        doc.lblHint.text = doc.lblHint.toolTip = ChartHint(doc);
        doc.lblHint.visible = !doc.lblHint.text.empty();
    };
    for (Label* readout : {&doc.lblMausPosNr, &doc.lblMausPos, &doc.lblHint})
        readout->visible = false;
    FuPanelsZu(doc);
}

} // namespace

DiagramDocument::DiagramDocument(Workspace& state)
    : Form(name::kDiagram, "Diagram"), ps(state), tabKurven(*this, "tabKurven", {}),
      tabPunkte(*this, "tabPunkte", {}) {
    MakePages(tabKurven, kCurveSlots);
    MakePages(tabPunkte, kPointSets);
    WireCurvePanel(ps, *this);
    WireCurveExport(ps, *this);
    WirePointPanel(*this);
    WireCoordinates(ps, *this);
    WireMenus(ps, *this);
    WireTexts(ps, *this);
    WireDesign(ps, *this);
    WireWindow(ps, *this);
    {
        const PlotBatch batch(surface);
        EmptyDocument(ps, *this);
        ResetLabels(surface, false);
    }
    Declare();
}

bool OnSmallScreen(const DiagramDocument& doc) {
    return doc.screenWidth < kNarrowScreen;
}

void Form_Load(Workspace& ps, DiagramDocument& doc) {
    const PlotBatch batch(doc.surface);
    PlaceWindow(ps, doc);
    EmptyDocument(ps, doc);
    StyleSeries(doc.surface, ps.PresetColor);
    WriteFrameTexts(ps.Frame, doc, OnSmallScreen(doc));
    ResetLabels(doc.surface, OnSmallScreen(doc));
    SetUpAxes(doc);
    cmdFullWhite_Click(doc);
    SetUpMenus(ps, doc);
    SetUpCoordinates(ps, doc);
    doc.cmdFarbVorwahl.backColour = ps.PresetColor;
    Fill(ps, doc);
    ShowDesign(doc);
}

void Form_Activate(Workspace& ps, DiagramDocument& doc) {
    const int kind = ps.DiagramKind;
    doc.mnuAddPunkte.enabled = ps.ExpPointCount != 0 && kind <= kRateKinds;
    doc.cmdSingleCalc.visible = kind >= 1 && kind < kKindResidenceFirst && kind != kKindTracer &&
                                !ps.IsCSTR && !ps.IsCascade;
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
    doc.designEdited = false;
    if (IsInFront(ps, doc))
        doc.history.Clear(); // what is drawn anew can be taken back
}

void ClearResult(DiagramDocument& doc) {
    doc.ResultOf = 0;
    doc.StatusBar2.text.clear();
    doc.StatusBar2.toolTip.clear();
}

void FuPanelsZu(DiagramDocument& doc) {
    for (Frame* panel : {&doc.fraTabs, &doc.fraKurven, &doc.fraPunkte, &doc.fraSchrift,
                         &doc.fraCoordInput, &doc.fraPrintIt, &doc.fraResolution})
        panel->visible = false;
}

void mnuDesign_Click(Workspace& ps, DiagramDocument& doc) {
    FuPanelsZu(doc);
    doc.mnuKurvenDesign.enabled = doc.mnuTextDesign(kCurveTexts).enabled = ps.CurveCount > 0;
    doc.mnuPunktDesign.enabled = ps.DiagramOfTk || ps.DiagramOfRc || AnyPoints(doc.surface);
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

void ShowPointPages(Workspace& ps, DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set)
        ShowPage(doc.tabPunkte, set - 1, OffersPointSet(ps, doc.surface, set));
}

} // namespace zorvant
