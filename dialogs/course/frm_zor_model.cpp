#include "dialogs/course/frm_zor_model.h"

#include "dialogs/common/calc_dialog.h"
#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kHelpModel = 10240;
constexpr int kHelpMatrix = 10241;
/// c(P,0) that starts an autocatalysis; taken away again when another model is selected.
constexpr double kSeedOfAutocatalysis = 0.002;
constexpr const char* kColumnGap = "                "; // 16 blanks

/// Captions of two frames are taken from their extents while the model has more than one.
constexpr const char* kExtentsTip = "... both to the right => ";

void ShowConcentrations(Workspace& ps, CalcDialog& dialog) {
    for (int i = 0; i < 10; ++i) {
        dialog.Inp(i).visible = false;
        dialog.Inp(i).text.clear();
        dialog.lblStoff(i).visible = false;
    }
    for (int slot = 1; slot <= kSpecies; ++slot) {
        if (!InMask(ps.SpeciesMask, slot))
            continue;
        dialog.Inp(slot - 1).visible = dialog.lblStoff(slot - 1).visible = true;
        if (dialog.IsReactor())
            dialog.Inp(slot + 4).visible = dialog.lblStoff(slot + 4).visible = true;
    }
    for (int i = 5; i < 10; ++i)
        dialog.Inp(i).locked = true;
}

void NameSpecies(Workspace& ps, CalcDialog& dialog) {
    for (int i = 0; i < 10; ++i)
        dialog.lblStoff(i).text = SpeciesName(ps.ModelId, i % 5 + 1);
    if (dialog.id == CalcTask::Fitting)
        return;
    for (int slot = 1; slot <= kSpecies; ++slot) {
        Option& option = dialog.optSpecialScaling(slot - 1);
        option.enabled = InMask(ps.SpeciesMask, slot) && dialog.chkSpecialScaling.checked;
        option.visible = InMask(ps.SpeciesMask, slot);
        option.text = SpeciesName(ps.ModelId, slot);
    }
}

void CaptionConstants(Workspace& ps, CalcDialog& dialog) {
    const ReactionModel& model = Model(ps.ModelId);
    const bool nonIsothermal = ps.FitMode >= kFirstTemperatureMode;
    for (int j = 1; j <= 3; ++j) {
        Label& caption = dialog.Bz(j + 4);
        caption.text = model.constantCaptions[static_cast<std::size_t>(j)];
        const bool used = ps.RateMask[static_cast<std::size_t>(j - 1)] == '1';
        if (j > 1) {
            caption.visible = used;
            dialog.Inp(j + 9).visible = used;
            (j == 2 ? dialog.unit2 : dialog.unit3).visible = used;
        }
    }
    if (nonIsothermal) {
        dialog.Bz(5).text = "Arrhenius-A";
        dialog.Bz(6).text = "EA";
    } else if (ps.FitMode == kFitOrder) {
        dialog.Bz(6).text = "n";
    }
}

void WriteValues(Workspace& ps, CalcDialog& dialog) {
    const auto c0P = static_cast<std::size_t>(4);
    if (IsAutocatalytic(ps.ModelId)) {
        if (Val(dialog.Inp(3).text) == 0 && ps.c0[c0P] == 0)
            ps.c0[c0P] = kSeedOfAutocatalysis;
    } else if (ps.c0[c0P] == kSeedOfAutocatalysis) {
        ps.c0[c0P] = 0;
    }
    for (int slot = 1; slot <= kSpecies; ++slot)
        dialog.Inp(slot - 1).text = GeneralText(ps.c0[static_cast<std::size_t>(slot)]);
    if (ps.FitMode == kFitOrder)
        dialog.Inp(11).text = GeneralText(static_cast<double>(ps.OrderN));
    if (dialog.id == CalcTask::Batch || dialog.id == CalcTask::Tubular)
        dialog.Inp(14).text = GeneralText(ps.tVerweil);
    if (dialog.id == CalcTask::TimeDiagram || dialog.id == CalcTask::Fitting)
        dialog.Inp(14).text = GeneralText(ps.tMax);
    if (dialog.onShowParameters)
        dialog.onShowParameters();
}

/// Puts the selected model into the open calculation dialog.
void AdaptCalcDialog(Workspace& ps, CalcDialog& dialog) {
    dialog.fraKsi.visible = false;
    ShowConcentrations(ps, dialog);
    ps.UA = 0;
    dialog.cmdShowKsi.enabled = dialog.cmdDiagram.enabled = false;
    const char* const extentsTip = ps.SingleReaction ? "" : kExtentsTip;
    dialog.cmdShowKsi.toolTip = dialog.fraKsi.toolTip = dialog.lblTextKsi_1.toolTip =
        dialog.lblTextKsi_2.toolTip = extentsTip;
    if (dialog.IsReactor() && dialog.onInit)
        dialog.onInit();
    dialog.Label7.text = ModelCaption(ps);
    NameSpecies(ps, dialog);
    CaptionConstants(ps, dialog);
    WriteValues(ps, dialog);
    if (!dialog.IsReactor() && dialog.onInit)
        dialog.onInit();
}

/// Which option stands in bold, with the scheme beside it.
void MarkSelection(frmZorModel& form, int index) {
    for (int i = 0; i < kModels; ++i)
        form.optTyp(i).bold = i == index;
    form.optTyp.selected = index;
    struct Scheme {
        Label& label;
        int option;
    };
    for (const Scheme& scheme :
         {Scheme{form.lbl7, 7}, Scheme{form.lbl10, 10}, Scheme{form.lbl13, 13},
          Scheme{form.Label3, 14}, Scheme{form.Label2, 15}, Scheme{form.lbl18, 18}})
        scheme.label.bold = scheme.option == index;
}

void ShowTimeUnit(frmZorModel& form) {
    form.optZeit.selected = form.ps.TimeUnitIdx;
    for (int i = 0; i < 5; ++i)
        form.optZeit(i).bold = i == form.ps.TimeUnitIdx;
}

void Form_Load(frmZorModel& form) {
    Workspace& ps = form.ps;
    form.txtOrdnung.text = GeneralText(static_cast<double>(ps.OrderN));
    ps.TimeUnitIdx = TimeUnitIndex(ps.TimeUnitText);
    ShowTimeUnit(form);
    form.optMichMent.selected = ps.RcSMode ? 0 : 1;
    for (int i = 0; i < 2; ++i)
        form.optMichMent(i).toolTip = " ... for the setting of the editor ";
    optTyp_Click(form, Model(ps.ModelId).option);
    UpdateUnitLabels(ps);
}

} // namespace

frmZorModel::frmZorModel(Workspace& state)
    : Form(name::kModel, " Kinetic Model"), ps(state),
      optTyp(*this, "optTyp",
             {"", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""}) {
    helpTopic = kHelpModel;
    for (int i = 0; i < kModels; ++i)
        optTyp(i).text = Model(ModelOfOption(i)).caption;
    onLoad = [this] { Form_Load(*this); };
    onTimeUnitChanged = [this] { ShowTimeUnit(*this); };
    optTyp.onClick = [this](int i) { optTyp_Click(*this, i); };
    optZeit.onClick = [this](int i) { optZeit_Click(*this, i); };
    optMichMent.onClick = [this](int) { optMichMent_Click(*this); };
    txtOrdnung.onGotFocus = [this] { txtOrdnung.selectAll = true; };
    txtOrdnung.onKeyPress = [this](int& key) { txtOrdnung_KeyPress(*this, key); };
    txtOrdnung.onChange = [this] { txtOrdnung_Change(*this); };
    cmdShowMatrix.onClick = [this] {
        if (Form* matrix = FindForm(ps.desktop, name::kMatrix))
            ShowForm(ps.desktop, *matrix);
    };
    Declare();
}

void optTyp_Click(frmZorModel& form, int index) {
    Workspace& ps = form.ps;
    if (Form* alcohol = FindForm(ps.desktop, name::kBloodAlcohol))
        UnloadForm(ps.desktop, *alcohol);
    ps.EquilibriumModel = false;
    ps.MMDiagram = false;
    ps.ModelId = ModelOfOption(index);
    const ReactionModel& model = Model(ps.ModelId);
    if (HasOrder(ps.ModelId))
        ps.OrderN = static_cast<float>(Val(form.txtOrdnung.text));
    SelectionDefaultTimes(ps);
    if (ps.FitMode == kNoFit)
        ps.DiagramKind = ps.RateDiagram ? ps.ModelId + kRateKinds : ps.ModelId;
    else if (ps.DiagramKind != kKindFitPoints)
        ps.DiagramKind = ps.ModelId;
    FuMaskenSetzen(ps, ps.ModelId);
    FillStoich(ps);

    ps.SingleReaction = model.singleReaction;
    ps.ReversibleA = model.reversibleA;
    ps.EquilibriumModel = model.equilibrium;
    ps.NumericModel = model.numeric;
    form.txtOrdnung.enabled = HasOrder(ps.ModelId);
    form.txtOrdnung.toolTip = HasOrder(ps.ModelId) ? "" : "only for the n-th-order reaction A => P";
    SelectionDefaultConcentrations(ps);
    if (HasOrder(ps.ModelId) && ps.FitMode == kFitOrder)
        ps.k[2] = static_cast<double>(ps.OrderN);
    SelectionDefaultConstants(ps);

    if (CalcDialog* dialog = WhichCalcDialog(ps))
        AdaptCalcDialog(ps, *dialog);
    MarkSelection(form, index);
    UpdateUnitLabels(ps);
    if (Form* matrix = FindForm(ps.desktop, name::kMatrix); matrix != nullptr && matrix->loaded) {
        UnloadForm(ps.desktop, *matrix);
        ShowForm(ps.desktop, *matrix);
    }
    for (int i = 0; i < 2; ++i)
        form.optMichMent(i).enabled = IsEnzymeModel(ps.ModelId);
    // The main window sets its menus, the data editor its heads.
    for (Form* open : ps.desktop.forms)
        if (open->loaded && open->onModelChanged)
            open->onModelChanged();
}

void optZeit_Click(frmZorModel& form, int index) {
    Workspace& ps = form.ps;
    ps.TimeUnitOldIdx = TimeUnitIndex(ps.TimeUnitText);
    ps.TimeUnitIdx = index;
    ShowTimeUnit(form);
    ChangeTimeUnit(ps, index, ps.TimeUnitOldIdx);
}

void optMichMent_Click(frmZorModel& form) {
    form.ps.RcSMode = form.optMichMent.selected == 0;
    for (Form* open : form.ps.desktop.forms)
        if (open->loaded && open->name == name::kDataEditor && open->onModelChanged)
            open->onModelChanged();
}

void txtOrdnung_KeyPress(frmZorModel& form, int& key) {
    if (key == 3 || key == 22) // copying and pasting pass
        return;
    if (!FilterNumericKey(key))
        key = 0;
    else if (form.optTyp.selected != 0)
        Press(form.optTyp, 0);
}

void txtOrdnung_Change(frmZorModel& form) {
    form.txtOrdnung.text = CommasToPoints(form.txtOrdnung.text);
    form.ps.OrderN = static_cast<float>(Val(form.txtOrdnung.text));
    if (!HasOrder(form.ps.ModelId))
        return;
    FillStoich(form.ps);
    if (CalcDialog* dialog = WhichCalcDialog(form.ps))
        dialog->Label7.text = ModelCaption(form.ps);
}

namespace {

void Form_Load(frmmatrix& form) {
    const Workspace& ps = form.ps;
    form.lblModel.text = ModelNameText(ps, ps.ModelId);
    if (HasOrder(ps.ModelId))
        form.lblModel.text += " (n = " + FormatNumber(static_cast<double>(ps.OrderN), "0.00") + ")";
    Label* const heads[] = {&form.lblA, &form.lblB, &form.lblC, &form.lblP, &form.lblQ};
    for (int slot = 1; slot <= kSpecies; ++slot) {
        const auto s = static_cast<std::size_t>(slot);
        heads[slot - 1]->text = SpeciesName(ps.ModelId, slot);
        std::string& row = form.lblRow(slot).text;
        row.clear();
        for (std::size_t reaction = 1; reaction <= 3; ++reaction) {
            if (reaction > 1)
                row += kColumnGap;
            row += SingleText(static_cast<double>(ps.Stoich[reaction][s]));
        }
    }
}

} // namespace

frmmatrix::frmmatrix(Workspace& state) : Form(name::kMatrix, " Stoichiometric Matrix "), ps(state) {
    helpTopic = kHelpMatrix;
    cmdClose.isCancel = true;
    onLoad = [this] { Form_Load(*this); };
    cmdClose.onClick = [this] { UnloadForm(ps.desktop, *this); };
    cmdHelp.onClick = [this] { host().showHelp(helpTopic); };
    Declare();
}

} // namespace zorvant
