#include "shell/commands.h"

#include "dialogs/common/names.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "shell/command_steps.h"
#include "shell/project_commands.h"
#include "shell/project_status.h"
#include "shell/start_up.h"

#include <algorithm>
#include <stdexcept>

namespace zorvant {
namespace {

constexpr const char* kTitle =
    "ZORVANT-4     Kinetics of Homogeneous Chemical Reactions - Reactors, Simulations and "
    "Evaluation of Experiments";
constexpr const char* kNotYet = "not yet available";
constexpr int kHelpMainWindow = 10250, kHelpFirstSteps = 11223;

// ---------------------------------------------------------------- the commands

/// What an entry does that opens no dialog of the sets, presses no button and shows no help.
struct Command {
    const char* control;
    const char* form; ///< the dialog that it needs; null: none
    void (*run)(MDIZOR&);
    const char* whyDisabled;
};

constexpr const char* kNeedsData = "no experimental data loaded";
constexpr const char* kNeedsProject = "no project or session loaded yet";

template <int Tool> void OpenCalculator(MDIZOR& form) {
    form.ps.kTFunction = Tool;
    form.ps.FitMode = kNoFit;
    Unload(form, name::kArrhenius);
    Show(form, name::kArrhenius);
}
void OpenModelDialog(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    Show(form, name::kModel);
}
void OpenXYEditor(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    Show(form, name::kXYEditor);
}
void ImportText(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    Show(form, name::kImportText);
}
void ShowStatus(MDIZOR& form) {
    Unload(form, name::kBloodAlcohol);
    ShowProjectStatus(form.ps, form.ps.DataFilePath);
}
/// The window list is filled where the windows are.
void OpenWindowList(MDIZOR&) {}

constexpr Command kCommands[] = {
    {"mnuLoadLastSession", nullptr, mnuLoadLastSession_Click, ""},
    {"mnuLoadProject", nullptr, mnuLoadProject_Click, ""},
    {"mnuSaveProject", nullptr, mnuSaveProject_Click, kNeedsProject},
    {"mnuStatus", nullptr, ShowStatus, ""},
    {"mnuNeudat", name::kDataEditor, mnuNeudat_Click, ""},
    {"mnuEditDat", name::kDataEditor, mnuEditDat_Click, kNeedsData},
    {"mnuImportText", name::kImportText, ImportText, ""},
    {"mnuEditXY", name::kXYEditor, OpenXYEditor, ""},
    {"mnuExit", nullptr, mnuExit_Click, ""},
    {"mnuModel", name::kModel, OpenModelDialog, ""},
    {"mnuToolArrhenius", name::kArrhenius, OpenCalculator<1>, ""},
    {"mnuToolEyring", name::kArrhenius, OpenCalculator<2>, ""},
    {"mnuConvertTool1W", nullptr, mnuConvertTool1W_Click, ""},
    {"mnuFenster", nullptr, OpenWindowList, ""},
    {"mnuHilfeHinweis", nullptr, mnuHilfeHinweis_Click, ""},
    {"mnuProjektInfo", nullptr, ShowStatus, ""},
    {"mnuInfo", nullptr, mnuInfo_Click, ""},
};

const Command* CommandOf(std::string_view control) {
    const auto* const found = std::ranges::find_if(
        kCommands, [&](const Command& command) { return control == command.control; });
    return found == std::end(kCommands) ? nullptr : found;
}

const PopupRow* PopupOf(std::string_view control) {
    const auto rows = PopupRows();
    const auto found =
        std::ranges::find_if(rows, [&](const PopupRow& row) { return control == row.control; });
    return found == rows.end() ? nullptr : &*found;
}

/// The dialog without which a command can do nothing; null when it needs none.
const char* NeededForm(std::string_view control) {
    if (const DialogSet* const set = DialogSetOf(control))
        return set->opens;
    if (const PopupRow* const row = PopupOf(control))
        return row->form;
    const Command* const command = CommandOf(control);
    return command == nullptr ? nullptr : command->form;
}

/// Gives the entry of each row the command of its table.
void WireCommands(MDIZOR& form) {
    for (const Command& command : kCommands) {
        MenuEntry& entry = form.Entry(command.control);
        entry.disabledTip = command.whyDisabled;
        entry.onClick = [&form, &command] { command.run(form); };
    }
    for (const DialogSet& set : DialogSets())
        form.Entry(set.command).onClick = [&form, &set] { OpenDialogSet(form, set); };
    for (const PopupRow& row : PopupRows())
        form.Entry(row.control).onClick = [&form, &row] { PressIn(form, row.form, row.button); };
    for (const HelpRow& row : HelpRows())
        form.Entry(row.control).onClick = [&row] { host().showHelp(row.topic); };
    for (const ToolRow& row : MainToolbar()) {
        Button& tool = form.Tool(row.index);
        MenuEntry& entry = form.Entry(row.command);
        tool.disabledTip = entry.disabledTip;
        tool.onClick = [&entry] { entry.onClick(); };
    }
}

/// The evaluations that a model allows, by the index of their entries.
struct Evaluations {
    int modelId;
    int index;
    bool nonIsothermal;
};
constexpr Evaluations kEvaluations[] = {
    {2, 1, true},
    {3, 2, true},
    {4, 3, false},
};

void ModelChanged(MDIZOR& form) {
    for (const Evaluations& each : kEvaluations) {
        const bool on = form.ps.ModelId == each.modelId;
        const std::string index = "_" + std::to_string(each.index);
        form.Entry("mnuctAusw" + index).enabled = on;
        form.Entry("mnuLambdaAusw" + index).enabled = on;
        if (each.nonIsothermal)
            form.Entry("mnuNonIsothermFitting" + index).enabled = on;
    }
    form.Entry("mnuMichMent").enabled = IsEnzymeModel(form.ps.ModelId);
}

void SetDisabledTips(MDIZOR& form) {
    for (int i = 1; i <= 3; ++i) {
        const std::string index = "_" + std::to_string(i);
        for (const char* entry : {"mnuctAusw", "mnuLambdaAusw", "mnuNonIsothermFitting"})
            if (i < 3 || std::string_view(entry) != "mnuNonIsothermFitting")
                form.Entry(entry + index).disabledTip = "the selected kinetic model is another one";
    }
    form.Entry("mnuMichMent").disabledTip = "only for the MICHAELIS-MENTEN enzyme reaction";
}

void OpenReactorMenu(const MDIZOR& form) {
    if (form.ps.ModelId == 0)
        ShowMessage("First select a kinetic model!", "Execution not possible", Icon::Critical);
}

void OpenTangentMenu(MDIZOR& form) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        form.Entry("mnuSubTangente_" + std::to_string(slot)).enabled =
            form.ps.ColumnHasData[static_cast<std::size_t>(slot)];
}

/// The entries of undo and redo name their steps as the buttons of the list under the menu do.
void NameSteps(MDIZOR& form, const std::string& index) {
    for (const char* entry : {"mnuUndo", "mnuRedo"}) {
        MenuEntry& shown = form.Entry(entry + index);
        const PopupRow* const row = PopupOf(shown.name);
        Form* const editor = FindForm(form.ps.desktop, row->form);
        if (const Control* const button = editor == nullptr ? nullptr : editor->Find(row->button)) {
            shown.text = button->text;
            shown.enabled = button->enabled;
            shown.disabledTip = button->disabledTip;
        }
    }
}

void OpenEditMenu(MDIZOR& form, const std::string& index) {
    form.Entry("mnuPaste" + index).enabled = host().clipboardText().has_value();
    NameSteps(form, index);
}

/// For the status line: that unsaved work would not survive a crash, and why; empty when it would.
std::string UnsafeNote(const MDIZOR& form) {
    for (const RecoveryKeeper& keeper : form.recoveries)
        if (!keeper.lastError.empty())
            return "     not secured against a crash (" + keeper.lastError + ")";
    return {};
}

void MakeEntries(MDIZOR& form) {
    for (const MenuRow& row : MainMenu()) {
        form.entries.push_back(std::make_unique<MenuEntry>(form, row.control, row.caption));
        form.entries.back()->helpTopic = row.helpTopic;
    }
}

std::string ToolName(int index) {
    return "Toolbar1_" + std::to_string(index);
}

void MakeTools(MDIZOR& form) {
    for (const ToolRow& row : MainToolbar()) {
        form.tools.push_back(std::make_unique<Button>(form, ToolName(row.index), row.text));
        form.tools.back()->toolTip = row.tip[0] == '\0' ? row.text : row.tip;
    }
}

void HideWhatIsNotOffered(MDIZOR& form) {
    for (const char* hiddenMenu : {"mnuOptionenTools", name::kMenuOfData, name::kMenuOfList})
        form.Entry(hiddenMenu).visible = false;
    // It does the same as 14; without it the data editor is the fifth icon, as the status box says.
    form.Tool(2).visible = false;
    form.Entry("mnuctAusw_4").enabled = false;
}

/// What is looked at as a menu opens.
void WireMenus(MDIZOR& form) {
    form.Entry("mnuReaktor").onOpen = [&form] { OpenReactorMenu(form); };
    form.Entry("mnuExpctAuswertung").onOpen = [&form] { form.ps.LambdaMode = false; };
    form.Entry("mnuCalcTangente").onOpen = [&form] { OpenTangentMenu(form); };
    form.Entry(name::kMenuOfData).onOpen = [&form] { OpenEditMenu(form, "1"); };
    form.Entry(name::kMenuOfList).onOpen = [&form] { OpenEditMenu(form, "2"); };
}

void WireFirstSteps(MDIZOR& form) {
    form.cmdErstnutzer.toolTip = " Introduction to ZORVANT by means of examples (german)";
    form.cmdErstnutzer.onClick = [] { host().showHelp(kHelpFirstSteps); };
}

void WireRecovery(MDIZOR& form) {
    form.recoveries.emplace_back(form.ps, DataRecovery(form.ps));
    form.tmrRecovery.interval = kRecoveryInterval;
    form.tmrRecovery.onTick = [&form] {
        for (RecoveryKeeper& keeper : form.recoveries)
            keeper.Keep();
    };
}

} // namespace

// ---------------------------------------------------------------- the record

MDIZOR::MDIZOR(Workspace& state) : Form(name::kMainWindow, kTitle), ps(state) {
    helpTopic = kHelpMainWindow;
    menu = MainMenu();
    MakeEntries(*this);
    MakeTools(*this);
    WireCommands(*this);
    SetDisabledTips(*this);
    HideWhatIsNotOffered(*this);
    WireMenus(*this);
    WireFirstSteps(*this);
    WireRecovery(*this);
    onLoad = [this] { MDIZOR_Load(*this); };
    onModelChanged = [this] { ModelChanged(*this); };
    onRefresh = [this] { lblStatus.text = StatusLine(ps) + savedNote + UnsafeNote(*this); };
    Declare();
}

MenuEntry& MDIZOR::Entry(const std::string& control) {
    const auto found =
        std::ranges::find_if(entries, [&](const auto& entry) { return entry->name == control; });
    if (found == entries.end())
        throw std::out_of_range("menu entry " + control);
    return **found;
}

Button& MDIZOR::Tool(int index) {
    const std::string wanted = ToolName(index);
    const auto found =
        std::ranges::find_if(tools, [&](const auto& tool) { return tool->name == wanted; });
    if (found == tools.end())
        throw std::out_of_range(wanted);
    return **found;
}

void UpdateAvailability(MDIZOR& form) {
    const auto exists = [&](const char* control) {
        const char* const needed = NeededForm(control);
        return needed == nullptr || FindForm(form.ps.desktop, needed) != nullptr;
    };
    const auto rows = MainMenu();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        MenuEntry& entry = *form.entries[i];
        const bool isMenu = i + 1 < rows.size() && rows[i + 1].level > rows[i].level;
        const bool isLine = std::string_view(rows[i].caption) == "-";
        entry.available = isMenu || isLine || (entry.onClick && exists(rows[i].control));
    }
    for (std::size_t i = 0; i < form.tools.size(); ++i)
        form.tools[i]->available = exists(MainToolbar()[i].command);
    for (Control* control : form.controls)
        if (!control->available)
            control->disabledTip = kNotYet;
}

// ---------------------------------------------------------------- small commands

void mnuConvertTool1W_Click(MDIZOR& form) {
    const std::string program = JoinPath(form.ps.ProgramDir, "ConvertTool1W_E.EXE");
    if (!host().startProgram(program))
        ShowMessage(Lines({"The unit converter can't be started:", program.c_str()}),
                    "Execution not possible", Icon::Critical);
}

void mnuHilfeHinweis_Click(MDIZOR&) {
    const std::string text =
        Lines({"Die umfangreiche HTML-Hilfe ist ein wichtiger", "Bestandteil des Programms.", "",
               "Wenn die Hilfe nicht funktionieren sollte:",
               "   Überprüfen Sie zuerst, ob die Hilfe-Datei ZORVANT.CHM",
               "   im ZORVANT-Arbeitsverzeichnis existiert.", "",
               "   Überprüfen Sie dann im Datei-Explorer, ob Ihr",
               "   Windows-System überhaupt CHM-Dateien starten kann.",
               "   (Achtung: Es gibt Programme, die sinnloserweise die",
               "   Datei-Extension CHM für andere Zwecke verwenden.) "});
    ShowMessage(text, "Hinweis zur HTML-Hilfe", Icon::Information);
}

void mnuInfo_Click(MDIZOR& form) {
    ShowMessage(Lines({form.caption.c_str(), "", "Version " ZORVANT_VERSION}), "ZORVANT-4",
                Icon::Information);
}

} // namespace zorvant
