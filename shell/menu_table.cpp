#include "shell/menu_table.h"

#include "dialogs/common/names.h"

#include <algorithm>
#include <iterator>

namespace zorvant {
namespace {

constexpr MenuRow kMenu[] = {
    {1, "mnuDaten", "&Data", 10070},
    {2, "mnuLoadLastSession", "Load last session"},
    {2, "mnuLoadProject", "Load existing project", 0, "Ctrl+O"},
    {2, "mnuSaveProject", "Save actual project as ..."},
    {2, "mnuStatus", "Info Project State"},
    {2, "sep10", "-"},
    {2, "mnuNeudat", "Editor exper. data NEW (Input / Load)", 10130},
    {2, "mnuEditDat", "Editor exper. data View / Edit / Save", 10100},
    {2, "mnuImportText", "Import text/CSV ...", 10140},
    {2, "sep6", "-"},
    {2, "mnuEditXY", "Editor XY-Data "},
    {2, "sep7", "-"},
    {2, "mnuExit", "Exit", 10110, "Ctrl+Q"},
    {1, "mnuModel", "Kinetic model", 10240},
    {1, "mnuAuswertung", "Evaluation of Exper./Fitting"},
    {2, "mnuExpctAuswertung", "c-t data            (isothermal)"},
    {3, "mnuSubCtGrafisch", "Graph-assisted evaluation via straight line function"},
    {4, "mnuctAusw_1", "... for 1st order  A => P", 10030},
    {4, "mnuctAusw_2", "... for 2nd order  2 A => P", 10040},
    {4, "mnuctAusw_3", "... for 2nd order  A + B => P ", 10050},
    {4, "mnuctAusw_4", "WILKINSON"},
    {3, "sep5", "-"},
    {3, "mnuctFitting", "k-Fitting according to the selected model (nonlinear fitting)"},
    {3, "sep4", "-"},
    {3, "mnuROFitting", "Fitting of reaction order and k for A => P (nonlinear fitting)"},
    {2, "mnuExpctT", "c-t-T data         (non-isothermal) "},
    {3, "mnuNonIsothermFitting_1", "Fitting non-isothermal, 1st-order A => P, using t-c(A)-T data"},
    {3, "mnuNonIsothermFitting_2", "Fitting non-isothermal, 2nd-order 2A => P using t-c(A)-T data"},
    {2, "mnuSubLambdatGrafisch", "lambda-t data    (isothermal)"},
    {3, "mnuLambdaAusw_1", "... for 1st order  A => P"},
    {3, "mnuLambdaAusw_2", "... for 2nd order  2 A => P"},
    {3, "mnuLambdaAusw_3", "... for 2nd order  A + B => P "},
    {2, "sep11", "-"},
    {2, "mnuExpkTAuswertung", "k-T data", 10290},
    {3, "mnukT_1", "ARRHENIUS equation", 10300},
    {3, "mnukT_2", "EYRING equation", 10310},
    {2, "sep12", "-"},
    {2, "mnuCalcTangente", "reaction rates from c-t measuring points"},
    {3, "mnuSubTangente_1", "from points c(A) - t"},
    {3, "mnuSubTangente_2", "from points c(B) - t"},
    {3, "mnuSubTangente_3", "from points c(C) - t"},
    {3, "mnuSubTangente_4", "from points c(P) - t"},
    {3, "mnuSubTangente_5", "from points c(Q) - t"},
    {2, "sep13", "-"},
    {2, "mnuMichMent", "r(P)-c(S) data (Michaelis-Menten evaluation)"},
    {3, "mnuSubMichMent_0", "LINEWEAVER/BURK evaluation"},
    {3, "mnuSubMichMent_1", "HANES/WOOLF evaluation"},
    {3, "mnuSubMichMent_2", "EADIE/HOFSTEE evaluation"},
    {1, "mnuGraph", "Diagrams c-t|r-t"},
    {2, "mnuctGraph", "Diagram/Table \"Concentration vs. Time\""},
    {2, "sep3", "-"},
    {2, "mnuvtGraph", "Diagram/Table \"Reaction Rate vs. Time\""},
    {1, "mnuReaktor", "Reactors"},
    {2, "mnuBatchR", "Batch Reactor"},
    {2, "sep1", "-"},
    {2, "mnuRohrR", "Tubular Flow Reactor (TFR)"},
    {2, "sep2", "-"},
    {2, "mnuKontRK", "Continuous Stirred Tank (CSTR) "},
    {2, "sep8", "-"},
    {2, "mnuKaskade", "Stirred Tanks-in-series"},
    {1, "mnuVerweilzeit", "Residence Time"},
    {2, "mnuVerweilzeitVisual", "A residence-time experiment"},
    {2, "mnuVerweilzeitVerteilung", "Resid.-time distribution of ideal reactors"},
    {1, "mnuMonteCarlo", "\"Monte-Carlo\" Simulation"},
    {2, "mnuSubMonteCarlo_0", "1st-order reaction A => P "},
    {2, "mnuSubMonteCarlo_1", "Dynamic Reaction Equilibrium A <=> P"},
    {1, "mnuOptionenTools", "Options"},
    {2, "mnuOption", "Options"},
    {2, "sep9", "-"},
    {2, "mnuToolArrhenius", "ARRHENIUS Calculator"},
    {2, "mnuToolEyring", "EYRING Calculator"},
    {1, "Blutalkohol", "Special: metabolism of &blood alcohol"},
    {1, "mnuConvertTool1W", "Unit converter"},
    {1, "mnuFenster", "&Windows"},
    {1, "mnuHelp", "&Info/Help...", 10250},
    {2, "mnuAboutZor", "About this program (german)", 10260},
    {2, "strich1", "-"},
    {2, "mnuIndex", "Hilfe zur Hilfe; Hilfe-Index", 10270},
    {2, "mnuHilfeHinweis", "Hinweis zur HTML-Hilfe"},
    {2, "mnuTip", "Show Tips & Tricks"},
    {2, "strich", "-"},
    {2, "mnuProjektInfo", "Project info"},
    {2, "strich2", "-"},
    {2, "mnuInfo", "About ZORVANT", 10280},
    // Menus at the pointer, not in the bar.
    {1, "mnuEdit1", "Popup-menue exp-daten-grid"},
    {2, "mnuCopy1", "Copy"},
    {2, "mnuPaste1", "Insert"},
    {2, "mnuErase1", "Delete"},
    {3, "mnuSubDelNull1", "marked cell(s) => 0"},
    {3, "mnuSubDelLine1", "remove marked line(s)"},
    {2, "sepEdit1", "-"},
    {2, "mnuUndo1", "Undo"},
    {2, "mnuRedo1", "Redo"},
    {1, "mnuEdit2", "PopUpMenue XY-editor"},
    {2, "mnuCopy2", "Copy"},
    {2, "mnuPaste2", "Insert"},
    {2, "mnuErase2", "Delete"},
    {3, "mnuSubDelNull2", "marked cell(s) => 0"},
    {3, "mnuSubDelLine2", "remove marked line(s)"},
    {2, "sepEdit2", "-"},
    {2, "mnuUndo2", "Undo"},
    {2, "mnuRedo2", "Redo"},
};

constexpr ToolRow kTools[] = {
    {2, "", "mnuNeudat", "New data", "data_table"},
    {4, " load last session ", "mnuLoadLastSession", "Load last session", "session"},
    {6, " load an existing project ", "mnuLoadProject", "Load project", "project_open"},
    {8, " save actual session ", "mnuSaveProject", "Save project", "project_save"},
    {14, " exper. data NEW load/input", "mnuNeudat", "New experimental data", "data_new"},
    {16, " exper. data edit ", "mnuEditDat", "Edit experimental data", "data_edit"},
    {23, "ARRHENIUS Calculator", "mnuToolArrhenius", "ARRHENIUS Calculator", "arrhenius"},
    {25, "EYRING Calculator", "mnuToolEyring", "EYRING Calculator", "eyring"},
    {29, "  X-Y Editor ", "mnuEditXY", "X-Y Editor", "xy_editor"},
    {36, " status of the project ", "mnuStatus", "Status of the project", "status"},
};

constexpr DialogSet kSets[] = {
    {.command = "mnuctGraph",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTank, name::kTube, name::kSeries,
                name::kTracer, name::kFitting},
     .opens = name::kTimeDiagram,
     .isTubular = false,
     .isCSTR = false,
     .isCascade = false,
     .rateDiagram = false,
     .clearsFitMode = true},
    {.command = "mnuvtGraph",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTank, name::kTube, name::kSeries,
                name::kFitting},
     .opens = name::kTimeDiagram,
     .isTubular = false,
     .isCSTR = false,
     .isCascade = false,
     .rateDiagram = true,
     .clearsFitMode = true},
    {.command = "mnuBatchR",
     .closes = {name::kBloodAlcohol, name::kTimeDiagram, name::kTank, name::kTube, name::kSeries,
                name::kFitting, name::kTracer},
     .opens = name::kBatch,
     .isTubular = false,
     .isCSTR = false,
     .isCascade = false,
     .rateDiagram = false},
    {.command = "mnuRohrR",
     .closes = {name::kBloodAlcohol, name::kTimeDiagram, name::kTank, name::kBatch, name::kFitting,
                name::kSeries, name::kTracer},
     .opens = name::kTube,
     .isTubular = true,
     .isCSTR = false,
     .isCascade = false,
     .rateDiagram = false},
    {.command = "mnuKontRK",
     .closes = {name::kBloodAlcohol, name::kTimeDiagram, name::kBatch, name::kTube, name::kSeries,
                name::kTracer, name::kFitting},
     .opens = name::kTank,
     .isTubular = false,
     .isCSTR = true,
     .isCascade = false,
     .rateDiagram = false,
     .refusesEnzyme = true},
    {.command = "mnuKaskade",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTimeDiagram, name::kTank, name::kTube,
                name::kTracer, name::kFitting},
     .opens = name::kSeries,
     .isTubular = false,
     .isCSTR = false,
     .isCascade = true,
     .rateDiagram = false,
     .refusesEnzyme = true},
    {.command = "mnuVerweilzeitVisual",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTimeDiagram, name::kTank, name::kTube,
                name::kSeries, name::kFitting, name::kTracer},
     .opens = name::kTracer,
     .presses = "cmdStop"}, // it opens idle
    {.command = "mnuVerweilzeitVerteilung",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTimeDiagram, name::kTank, name::kTube,
                name::kSeries, name::kFitting},
     .opens = name::kResidence},
    {.command = "Blutalkohol",
     .closes = {name::kBloodAlcohol, name::kBatch, name::kTimeDiagram, name::kTank, name::kTube,
                name::kSeries, name::kFitting, name::kTracer},
     .opens = name::kBloodAlcohol,
     .hidesModelDialog = true},
};

constexpr PopupRow kPopups[] = {
    {"mnuCopy1", name::kDataEditor, "cmdClipboard"},
    {"mnuPaste1", name::kDataEditor, "cmdClipEinfuegen"},
    {"mnuSubDelNull1", name::kDataEditor, "cmdEraseSelected"},
    {"mnuSubDelLine1", name::kDataEditor, "cmdErase"},
    {"mnuUndo1", name::kDataEditor, "cmdUndo"},
    {"mnuRedo1", name::kDataEditor, "cmdRedo"},
    {"mnuCopy2", name::kXYEditor, "cmdClipboard"},
    {"mnuPaste2", name::kXYEditor, "cmdClipEinfuegen"},
    {"mnuSubDelNull2", name::kXYEditor, "cmdEraseSelected"},
    {"mnuSubDelLine2", name::kXYEditor, "cmdErase"},
    {"mnuUndo2", name::kXYEditor, "cmdUndo"},
    {"mnuRedo2", name::kXYEditor, "cmdRedo"},
};

constexpr HelpRow kHelps[] = {
    {"mnuAboutZor", 10260},
    {"mnuIndex", 10270},
    {"mnuTip", 11124},
};

constexpr StartPosition kPositions[] = {
    {name::kArrhenius, 2500, 500}, {name::kBloodAlcohol, 1500, 0}, {name::kTangent, 50, 900},
    {name::kComment, 0, 0},        {name::kFileDialog, 20, 216},   {name::kFitting, 80, 0},
    {name::kTimeDiagram, 60, 0},   {name::kBatch, 50, 0},          {name::kTank, 50, 0},
    {name::kTube, 50, 0},          {name::kTable, 400, 120},       {name::kResidence, 120, 3000},
    {name::kTracer, 0, 0},
};

} // namespace

std::span<const MenuRow> MainMenu() {
    return kMenu;
}
std::span<const ToolRow> MainToolbar() {
    return kTools;
}
std::span<const DialogSet> DialogSets() {
    return kSets;
}
const DialogSet* DialogSetOf(std::string_view command) {
    const auto* const found =
        std::ranges::find_if(kSets, [&](const DialogSet& set) { return command == set.command; });
    return found == std::end(kSets) ? nullptr : found;
}
std::span<const PopupRow> PopupRows() {
    return kPopups;
}
std::span<const HelpRow> HelpRows() {
    return kHelps;
}
std::span<const StartPosition> StartPositions() {
    return kPositions;
}

} // namespace zorvant
