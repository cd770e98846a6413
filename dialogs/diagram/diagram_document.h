// The diagram window: the diagram that it holds, and those controls of the window that its logic
// reads or writes. One diagram exists at a time. The panels that only change looks are added by the
// window's own record.
#pragma once

#include "diagrams/diagram.h"
#include "diagrams/plot_drag.h"
#include "dialogs/common/workspace.h"
#include "dialogs/diagram/design_controls.h"
#include "dialogs/diagram/diagram_history.h"

#include <string>

namespace zorvant {

inline constexpr int kTwipsPerPixel = 15;
/// Screens narrower than this get smaller fonts, pixels.
inline constexpr int kNarrowScreen = 800;
/// A click or readout within this many pixels of a point means the point.
inline constexpr double kHitDistance = 4;

inline constexpr Colour kLightGrey = 0xE0E0E0;
inline constexpr Colour kLightGreen = 0xC0FFC0;

/// What the pointer over the chart looks like.
enum class ChartPointer { Default, Curve, Point, Move, CrossHair };

inline constexpr int kResultOfMark = -1;

/// Which text the text panel edits.
enum class DiagramText { Header = 1, Additional = 2, XTitle = 3, YTitle = 4 };
/// Entry of mnuTextDesign that opens the curve panel: labels and legend texts stand there.
inline constexpr int kCurveTexts = 5;

struct DiagramDocument : Form, Diagram {
    explicit DiagramDocument(Workspace& state);

    Workspace& ps;
    DiagramText TextTarget = DiagramText::Header;
    ChartPointer pointer = ChartPointer::Default;
    int ResultOf = 0; ///< curve slot that the result line tells of; kResultOfMark; 0: of none
    PlotDrag drag;    ///< what the mouse has hold of
    DiagramHistory history;
    bool designEdited = false; ///< looks, texts or legend since it was drawn, loaded or saved

    /// The screen that the window opens on, pixels; the shell writes it before a load.
    int screenWidth = 1280;
    int screenHeight = 800;
    /// The right edge of the window as it stands, twips; empty without a screen.
    std::function<int()> rightEdge;

    // --- commands
    Button cmdDraw{*this, "cmdDraw", "Draw"};
    Button cmdSingleCalc{*this, "cmdSingleCalc", "Graph calculator"};
    Button cmdManuPoints{*this, "cmdManuPoints", "Manual points"};
    Button cmdManuKurve{*this, "cmdManuKurve", "Manual curve"};
    Button cmdFarbVorwahl{*this, "cmdFarbVorwahl", "Colour of what comes next"};
    Button cmdMarkConti{*this, "cmdMarkConti", "Mark of the mean residence time"};
    Button cmdMsgDelPoint{*this, "cmdMsgDelPoint", "How to delete a point"};

    MenuEntry mnuDesign{*this, "mnuDesign", "Design"};
    MenuEntry mnuKurvenDesign{*this, "mnuKurvenDesign", "Curves"};
    MenuEntry mnuPunktDesign{*this, "mnuPunktDesign", "Experimental points"};
    MenuEntry mnuDesignMore{*this, "mnuDesignMore", "More settings"};
    MenuEntry mnuCoord{*this, "mnuCoord", "Coordinates"};
    MenuEntry mnuAddPunkte{*this, "mnuAddPunkte", "Experimental points"};
    MenuEntry mnuAddText{*this, "mnuAddText", "Additional text"};
    Array<MenuEntry, 5, 1> mnuTextDesign{*this, "mnuTextDesign"}; ///< by DiagramText; 5: curves
    MenuEntry mnuAddLegend{*this, "mnuAddLegend", "Legend"};
    MenuEntry mnuAddLabels{*this, "mnuAddLabels", "Labels of the curves"};
    MenuEntry mnuHalbA{*this, "mnuHalbA", "Half-life of A"};
    MenuEntry mnuHalbB{*this, "mnuHalbB", "Half-life of B"};
    MenuEntry mnuDelete{*this, "mnuDelete", "Delete"};
    MenuEntry mnuDelKurv{*this, "mnuDelKurv", "Curves"};
    Array<MenuEntry, kCurveSlots + 1> mnuSubDelKurv{*this, "mnuSubDelKurv"}; ///< 0: all
    MenuEntry mnuDelPoints{*this, "mnuDelPoints", "Experimental points"};
    Array<MenuEntry, kPointSets + 1> mnuSubDelPoints{*this, "mnuSubDelPoints"}; ///< 0: all
    MenuEntry mnuDelHalbAB{*this, "mnuDelHalbAB", "Marks"};
    MenuEntry mnuDelMarkLabels{*this, "mnuDelMarkLabels", "All labels"};
    MenuEntry mnuDelLabels{*this, "mnuDelLabels", "Labels of the curves"};
    MenuEntry mnuDelLegend{*this, "mnuDelLegend", "Legend"};
    MenuEntry mnuDelLegendZeile{*this, "mnuDelLegendZeile", "A line of the legend"};
    MenuEntry mnuDelTotal{*this, "mnuDelTotal", "Everything"};

    // --- readouts
    Label lblMausPosNr{*this, "lblMausPosNr"};
    Label lblMausPos{*this, "lblMausPos"};
    Label lblHint{*this, "lblHint"};       ///< what holds for the axes at present
    Label StatusBar2{*this, "StatusBar2"}; ///< its panel 1, the result line

    // --- floating panels
    Frame fraTabs{*this, "fraTabs", "Settings of the diagram"};
    Frame fraKurven{*this, "fraKurven", "Curves"};
    Frame fraPunkte{*this, "fraPunkte", "Experimental points"};
    Frame fraSchrift{*this, "fraSchrift"};
    Frame fraCoordInput{*this, "fraCoordInput", " Coord. of the Diagram "};
    Frame fraPrintIt{*this, "fraPrintIt"};
    Frame fraResolution{*this, "fraResolution", "Curve resolution"};

    // --- the curve panel, one page for each slot
    TabPanel tabKurven;
    Array<ComboBox, kCurveSlots, 1> cmbKStil{*this, "cmbKStil"};
    Array<Label, kCurveSlots, 1> Label39{*this, "Label39"}; ///< line width
    Array<UpDown, kCurveSlots, 1> UpDown1_KBreite{*this, "UpDown1_KBreite"};
    Array<Button, kCurveSlots, 1> cmdKurvenFarbe{*this, "cmdKurvenFarbe"};
    Array<TextField, kCurveSlots, 1> txtLegendCurves{*this, "txtLegendCurves"};
    Array<TextField, kCurveSlots, 1> txtLabel{*this, "txtLabel"};
    Array<CheckBox, kCurveSlots, 1> chkEinzelLabelSichtbar{*this, "chkEinzelLabelSichtbar"};
    Array<Slider, kCurveSlots, 1> scrShiftLab{*this, "scrShiftLab"};
    Array<CheckBox, kCurveSlots, 1> chkLegend1{*this, "chkLegend1"};
    Button cmdDelKurv{*this, "cmdDelKurv", "Delete this curve"};

    // --- the point panel, one page for each set
    TabPanel tabPunkte;
    Array<ComboBox, kPointSets, 1> cmbPunktStil{*this, "cmbPunktStil"};
    Array<Label, kPointSets, 1> Label56{*this, "Label56"}; ///< symbol size
    Array<UpDown, kPointSets, 1> UpDown1_PointSize{*this, "UpDown1_PointSize"};
    Array<Button, kPointSets, 1> cmdPunktFarbe{*this, "cmdPunktFarbe"};
    Array<TextField, kPointSets, 1> txtLegendPoints{*this, "txtLegendPoints"};
    Array<CheckBox, kPointSets, 1> chkLegend2{*this, "chkLegend2"};
    Array<Button, kPointSets, 1> cmdDelPoints{*this, "cmdDelPoints"};

    // --- legend and labels as a whole
    CheckBox chkLegend{*this, "chkLegend", "Legend"};
    CheckBox chkLabelNotVisible{*this, "chkLabelNotVisible", "Labels not visible"};

    // --- coordinates
    Array<TextField, 4, 1> coord{*this, "coord"}; ///< xMin, xMax, yMin, yMax
    Button cmdCoord_OK{*this, "cmdCoord_OK", "OK"};
    Button cmdCoord_Esc{*this, "cmdCoord_Esc", "Cancel"};
    Array<TextField, 4, 1> Tabcoord{*this, "Tabcoord"};
    Button cmdTabCoord_OK{*this, "cmdTabCoord_OK", "Apply"};
    Button cmdXLog{*this, "cmdXLog", "  X-Axis"};
    Button cmdYLog{*this, "cmdYLog", "  Y-Axis "};
    OptionGroup optScaling{*this, "optScaling", {"automat.", "manual"}};
    TextField txtXGridValue{*this, "txtXGridValue"};
    TextField txtYGridValue{*this, "txtYGridValue"};
    TextField txtXTickValue{*this, "txtXTickValue"};
    TextField txtYTickValue{*this, "txtYTickValue"};
    TextField txtXZiffValue{*this, "txtXZiffValue"};
    TextField txtYZiffValue{*this, "txtYZiffValue"};

    DesignControls design{*this}; ///< the rest of the settings panel

    // --- a curve as data
    Button cmdClipboard{*this, "cmdClipboard", "Curve to clip&board"};
    Button cmdSaveCurveAsXY{*this, "cmdSaveCurveAsXY", "&Save curve as *.XY ..."};
    ComboBox cmbSep{*this, "cmbSep"};

    // --- the text panel
    TextField schrift{*this, "schrift"};
    Button cmdFont{*this, "cmdFont", "&Font ..."};
    Button cmdZiffFont{*this, "cmdZiffFont", "Font of the &numbers ..."};
    Button cmdSchriftHFarbe{*this, "cmdSchriftHFarbe", "Back&ground ..."};
    CheckBox chkTextFrame{*this, "chkTextFrame", "F&rame"};
    Frame fraTextPlace{*this, "fraTextPlace", "Place"};
    Slider HScroll1{*this, "HScroll1"}; ///< left edge of the text, thousandths of the picture
    Slider VScroll1{*this, "VScroll1"}; ///< its upper edge
    Button cmdTextPlaceAuto{*this, "cmdTextPlaceAuto", "&Automatic place"};
    Frame fraYText{*this, "fraYText", "Title of the Y axis"};
    OptionGroup optOrientYAxText{*this, "optOrientYAxText", {"horiz. top", "vertical"}};
    Frame fraYZiff{*this, "fraYZiff", "Numbers of the Y axis"};
    OptionGroup optOrientYAxZiff{*this, "optOrientYAxZiff", {"horizontal", "vertical"}};
    Button cmdSchriftFertig{*this, "cmdSchriftFertig", "&Close"};
};

/// The order of steps in which a window opens: place and size, empty series, styles, texts, axes,
/// menus, frame, masks, then points or curves.
void Form_Load(Workspace& ps, DiagramDocument& doc);
void Form_Activate(Workspace& ps, DiagramDocument& doc);
void Form_Unload(Workspace& ps, DiagramDocument& doc);

/// Hides all floating panels.
void FuPanelsZu(DiagramDocument& doc);
void mnuDesign_Click(Workspace& ps, DiagramDocument& doc);
/// The settings as they were left, or on a page.
void mnuDesignMore_Click(DiagramDocument& doc);
void mnuDesignMore_Click(DiagramDocument& doc, SettingsPage page);

/// Empties the result line.
void ClearResult(DiagramDocument& doc);

/// Whether the screen asks for smaller fonts.
bool OnSmallScreen(const DiagramDocument& doc);

/// Shows or hides a page of a tab panel; its caption stays.
void ShowPage(TabPanel& panel, int page, bool visible);
/// Which pages of the point panel are offered: species with data, pairs, manual points.
void ShowPointPages(Workspace& ps, DiagramDocument& doc);

} // namespace zorvant
