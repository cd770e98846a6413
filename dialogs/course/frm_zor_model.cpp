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

/// The matrix stands for the model that was selected when it opened.
void ReopenMatrix(Workspace& ps) {
    if (Form* matrix = FindForm(ps.desktop, name::kMatrix); matrix != nullptr && matrix->loaded) {
        UnloadForm(ps.desktop, *matrix);
        ShowForm(ps.desktop, *matrix);
    }
}

/// Flags, masks, matrix and defaults of a model into the state; what the user has set stays.
void TakeModel(Workspace& ps, int modelId) {
    const ReactionModel& model = Model(modelId);
    ps.ModelId = modelId;
    ps.MMDiagram = false;
    SelectionDefaultTimes(ps);
    if (ps.FitMode == kNoFit)
        ps.DiagramKind = ps.RateDiagram ? modelId + kRateKinds : modelId;
    else if (ps.DiagramKind != kKindFitPoints)
        ps.DiagramKind = modelId;
    FuMaskenSetzen(ps, modelId);
    FillStoich(ps);
    ps.SingleReaction = model.singleReaction;
    ps.ReversibleA = model.reversibleA;
    ps.EquilibriumModel = model.equilibrium;
    ps.NumericModel = model.numeric;
    SelectionDefaultConcentrations(ps);
    if (HasOrder(modelId) && ps.FitMode == kFitOrder)
        ps.k[2] = static_cast<double>(ps.OrderN);
    SelectionDefaultConstants(ps);
}

void EnableOrder(frmZorModel& form, bool hasOrder) {
    form.txtOrdnung.enabled = hasOrder;
    form.txtOrdnung.toolTip = hasOrder ? "" : "only for the n-th-order reaction A => P";
}

void TakeOrder(frmZorModel& form, double order) {
    form.ps.OrderN = static_cast<float>(order);
    if (!HasOrder(form.ps.ModelId))
        return;
    FillStoich(form.ps);
    if (CalcDialog* dialog = WhichCalcDialog(form.ps))
        dialog->Label7.text = ModelCaption(form.ps);
}

void CaptionModels(frmZorModel& form) {
    for (int i = 0; i < kModels; ++i)
        form.optTyp(i).text = Model(ModelOfOption(i)).caption;
}

void WireChoices(frmZorModel& form) {
    form.optTyp.onClick = [&form](int i) { optTyp_Click(form, i); };
    form.optZeit.onClick = [&form](int i) { optZeit_Click(form, i); };
    form.optMichMent.onClick = [&form](int) { optMichMent_Click(form); };
    MakeNumeric(form.txtOrdnung, nullptr, [&form](double order) { TakeOrder(form, order); });
    form.cmdShowMatrix.onClick = [&form] {
        if (Form* matrix = FindForm(form.ps.desktop, name::kMatrix))
            ShowForm(form.ps.desktop, *matrix);
    };
}

} // namespace

frmZorModel::frmZorModel(Workspace& state)
    : Form(name::kModel, " Kinetic Model"), ps(state),
      optTyp(*this, "optTyp",
             {"", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""}) {
    helpTopic = kHelpModel;
    CaptionModels(*this);
    WireChoices(*this);
    onLoad = [this] { Form_Load(*this); };
    onTimeUnitChanged = [this] { ShowTimeUnit(*this); };
    Declare();
}

void optTyp_Click(frmZorModel& form, int index) {
    Workspace& ps = form.ps;
    if (Form* alcohol = FindForm(ps.desktop, name::kBloodAlcohol))
        UnloadForm(ps.desktop, *alcohol);
    if (HasOrder(ModelOfOption(index)))
        ps.OrderN = static_cast<float>(Val(form.txtOrdnung.text));
    TakeModel(ps, ModelOfOption(index));
    EnableOrder(form, HasOrder(ps.ModelId));
    if (CalcDialog* dialog = WhichCalcDialog(ps))
        AdaptToModel(*dialog);
    MarkSelection(form, index);
    UpdateUnitLabels(ps);
    ReopenMatrix(ps);
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

namespace {

void Form_Load(frmmatrix& form) {
    const Workspace& ps = form.ps;
    form.lblModel.text = ModelNameText(ps, ps.ModelId);
    if (HasOrder(ps.ModelId))
        form.lblModel.text += " (n = " + FormatNumber(static_cast<double>(ps.OrderN), "0.00") + ")";
    const GivenInput shown = InputShownFor(ps);
    Label* const heads[] = {&form.lblA, &form.lblB, &form.lblC, &form.lblP, &form.lblQ};
    for (int slot = 1; slot <= kSpecies; ++slot) {
        const auto s = static_cast<std::size_t>(slot);
        heads[slot - 1]->text = SpeciesName(ps.ModelId, slot);
        heads[slot - 1]->visible = shown.species[s];
        for (int reaction = 1; reaction <= 3; ++reaction) {
            Label& cell = form.lblCell(3 * (slot - 1) + reaction);
            cell.text =
                SingleText(static_cast<double>(ps.Stoich[static_cast<std::size_t>(reaction)][s]));
            cell.visible = shown.species[s];
        }
    }
}

} // namespace

frmmatrix::frmmatrix(Workspace& state) : Form(name::kMatrix, " Stoichiometric Matrix "), ps(state) {
    helpTopic = kHelpMatrix;
    for (int reaction = 1; reaction <= 3; ++reaction)
        lblHead(reaction).text = "(" + std::to_string(reaction) + ")";
    cmdClose.isCancel = true;
    onLoad = [this] { Form_Load(*this); };
    cmdClose.onClick = [this] { UnloadForm(ps.desktop, *this); };
    cmdHelp.onClick = [this] { host().showHelp(helpTopic); };
    Declare();
}

} // namespace zorvant
