#include "dialogs/course/frm_prepare_time_diagram.h"

#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/diagram/course_drawing.h"
#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "platform/host.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kHelpTimeDiagram = 7001;
constexpr const char* kNoPointsTip = "only with concentrations of data points";

void ShowKM(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    if (!IsEnzymeModel(ps.ModelId) || !(ps.k[1] > 0))
        return;
    ps.KM = (ps.k[2] + ps.k[3]) / ps.k[1];
    form.lblMichaelisK1.text =
        "Michaelis constant KM/(mol/L) = (k< + k3) / k> = " + GeneralText(ps.KM);
    form.lblMichaelisK2.text = "(real order of magnitude KM/(mol/L) = 0.01...0.00001)";
}

void ShowParameters(frmPrepareTimeDiagram& form) {
    form.kCombo(0).text = GeneralText(form.ps.tMax);
    form.unit4.text = form.ps.TimeUnitText;
    ShowKM(form);
}

bool ModelHasData(const Workspace& ps) {
    const GivenInput shown = InputShownFor(ps);
    for (std::size_t slot = 1; slot <= kSpecies; ++slot)
        if (shown.species[slot] && ps.ColumnHasData[slot])
            return true;
    return false;
}

/// Data may come and go while the dialog is open. The room of the box is kept.
void RefreshPoints(frmPrepareTimeDiagram& form) {
    const Workspace& ps = form.ps;
    form.chkMitPunkten.visible = !ps.RateDiagram && ModelHasData(ps);
    form.chkMitPunkten.enabled = ps.ExpPointCount > 0 && !ps.MMDiagram;
    form.chkMitPunkten.disabledTip = kNoPointsTip;
    form.chkMitPunkten.checked = ps.WithExpPoints;
}

void Form_Load(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    ps.IsTubular = ps.IsCSTR = ps.IsCascade = false;
    ps.WithExpPoints = false;
    form.txtS0max.text = GeneralText(static_cast<double>(ps.S0Max));
    ps.ScaleOneSpecies = false;
    ps.ScaleSpecies = 1;
    ShowScaling(form);
    if (ps.cA0Data > 0)
        ps.c0[1] = static_cast<double>(ps.cA0Data);
    if (ps.cB0Data > 0)
        ps.c0[2] = static_cast<double>(ps.cB0Data);
}

void CaptionRates(frmPrepareTimeDiagram& form) {
    form.ps.WithExpPoints = false;
    form.caption = "Functions Reaction Rate vs. Time";
    form.cmdDrawctDiagram.text = "draw r(i)-t diagramm";
    form.cmdDrawctDiagram.toolTip = " rate of reaction vs. time ";
    form.cmdListe.toolTip = " Time | Rate of Reaction ";
}

void CaptionConcentrations(frmPrepareTimeDiagram& form) {
    form.caption = "  Diagram: Concentration vs. Time";
    form.cmdDrawctDiagram.text = "Draw c-t diagram";
    form.cmdDrawctDiagram.toolTip = "...concentration(s) vs. time ";
    form.cmdListe.toolTip = " time | concentration(s) ";
}

void Form_Activate(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    UpdateUnitLabels(ps);
    ps.MMDiagram = false;
    form.fraMichaelis.visible = IsEnzymeModel(ps.ModelId);
    RefreshScaling(form);
    form.chkNormiert.checked = ps.MMNormalized;
    chkNormiert_Click(form);
    form.Label7.text = ModelCaption(ps);
    if (ps.RateDiagram)
        CaptionRates(form);
    else
        CaptionConcentrations(form);
    RefreshPoints(form);
}

/// The Michaelis-Menten curve stands for itself while the flag is set.
class MMScope {
public:
    explicit MMScope(Workspace& ps) : ps_(ps) { ps_.MMDiagram = true; }
    ~MMScope() { ps_.MMDiagram = false; }
    MMScope(const MMScope&) = delete;
    MMScope& operator=(const MMScope&) = delete;

private:
    Workspace& ps_;
};

void CaptionControls(frmPrepareTimeDiagram& form) {
    form.chkDelDiagram.text = "adds new curves (scaling is fixed)";
    form.chkSpecialScaling.text = "special Y-axis scaling determined by";
    form.chkMitPunkten.toolTip = " only effective after click \"Draw diagram\"; editing with the "
                                 "\"Editor for exper. data\" ";
    form.cmdReset_k.toolTip = "...for the rate constant(s) and t(max)";
}

void WireParameters(frmPrepareTimeDiagram& form) {
    MakeNumeric(form.kCombo(0), &form.parameterWalk, [&form](double t) { form.ps.tMax = t; });
    form.otherFields = {{InputField::TimeAxis, &form.kCombo(0)}};
    for (std::size_t j = 1; j <= 3; ++j) {
        ComboBox& box = form.kCombo(static_cast<int>(j));
        form.kFields[j] = &box;
        MakeNumeric(box, &form.parameterWalk, [&form, j](double k) {
            form.ps.k[j] = k;
            ShowKM(form);
        });
    }
}

void WireDrawing(frmPrepareTimeDiagram& form) {
    form.cmdDrawctDiagram.isDefault = true;
    form.cmdDrawctDiagram.onClick = [&form] { cmdDrawctDiagram_Click(form); };
    form.cmdListe.onClick = [&form] { cmdListe_Click(form); };
    form.chkMitPunkten.onClick = [&form] { form.ps.WithExpPoints = form.chkMitPunkten.checked; };
}

void WireMichaelis(frmPrepareTimeDiagram& form) {
    MakeNumeric(form.txtS0max, nullptr,
                [&form](double s) { form.ps.S0Max = static_cast<float>(s); });
    form.cmdMMdiagram.onClick = [&form] { cmdMMdiagram_Click(form); };
    form.cmdMichaelisListe.onClick = [&form] { cmdMichaelisListe_Click(form); };
    form.chkNormiert.onClick = [&form] { chkNormiert_Click(form); };
}

void WireForm(frmPrepareTimeDiagram& form) {
    form.onLoad = [&form] { Form_Load(form); };
    form.onActivate = [&form] { Form_Activate(form); };
    form.onRefresh = [&form] {
        RefreshScaling(form);
        RefreshPoints(form);
    };
    form.onInit = [&form] { InitSimulation(form); };
    form.onShowParameters = [&form] { ShowParameters(form); };
    form.cmdClose.isCancel = true;
    form.cmdClose.onClick = [&form] { UnloadForm(form.ps.desktop, form); };
}

/// What stands in the lists; a list does not tell when it is filled from the state.
void ReadParameters(frmPrepareTimeDiagram& form) {
    form.ps.tMax = Val(form.kCombo(0).text);
    for (std::size_t j = 1; j <= 3; ++j)
        form.ps.k[j] = Val(form.kCombo(static_cast<int>(j)).text);
    ShowKM(form);
}

void TellFailedDrawing(const std::string& reason) {
    std::string text = std::string("If no diagram graphic is possible: ") + kCrLf +
                       "The 2D-graph module does not seem to be installed correctly.";
    if (!reason.empty()) // a user with an overflow is not helped by a word on the installation
        text += std::string(kCrLf) + kCrLf + "(" + reason + ")";
    ShowMessage(text, kExecutionNotPossible, Icon::Critical);
}

} // namespace

frmPrepareTimeDiagram::frmPrepareTimeDiagram(Workspace& state, DiagramDocument& diagramDocument)
    : CalcDialog(state, name::kTimeDiagram, "  Diagram: Concentration vs. Time",
                 CalcTask::TimeDiagram),
      diagram(diagramDocument) {
    helpTopic = kHelpTimeDiagram;
    left = 60;
    CaptionControls(*this);
    WireConcentrations(*this);
    WireParameters(*this);
    WireDefaults(*this);
    WireScaling(*this);
    WireDrawing(*this);
    WireMichaelis(*this);
    WireForm(*this);
    Declare();
}

void InitSimulation(frmPrepareTimeDiagram& form) {
    const Workspace& ps = form.ps;
    form.Label7.text = ModelCaption(ps);
    form.fraMichaelis.visible = form.lblMichaelisK1.visible = form.lblMichaelisK2.visible =
        IsEnzymeModel(ps.ModelId);
    RefreshPoints(form);
    ShowKM(form);
}

void chkNormiert_Click(frmPrepareTimeDiagram& form) {
    const bool normalized = form.chkNormiert.checked;
    form.txtS0max.visible = form.lblS0max.visible = !normalized;
    form.chkNormiert.toolTip =
        normalized ? " equation r(P)/r(P),max = Fu(S(0)) "
                   : " normalized equation r(P)/r(P),max = Fu(S(0)/KM)  (KM = Michaelis constant) ";
}

void cmdDrawctDiagram_Click(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    if (ps.MMDiagram)
        ps.WithExpPoints = false;
    RefreshPoints(form);
    for (ComboBox& box : form.kCombo.items)
        Remember(box);
    ReadConcentrations(form);
    ReadParameters(form);
    if (RefusesInput(form, InputTask::CourseDiagram, InputShownFor(ps)))
        return;
    try {
        DrawCourse(ps, form.diagram, ps.tMax);
    } catch (const ArithmeticError& error) {
        TellFailedDrawing(error.what());
    } catch (const std::exception&) {
        TellFailedDrawing("");
    }
}

void cmdMMdiagram_Click(frmPrepareTimeDiagram& form) {
    form.ps.MMDiagram = true; // until the dialog is activated again
    form.ps.MMNormalized = form.chkNormiert.checked;
    cmdDrawctDiagram_Click(form);
}

void cmdListe_Click(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    ReadConcentrations(form);
    ps.NPoints = kCurveIntervals;
    if (RefusesInput(form, InputTask::CourseTable, InputShownFor(ps)))
        return;
    bool err = false;
    try {
        const WaitScope wait(ps);
        calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    } catch (const ArithmeticError& error) {
        ShowMessage(error.what(), kExecutionNotPossible, Icon::Critical);
        return;
    }
    if (err)
        return;
    if (Form* table = FindForm(ps.desktop, name::kTable)) {
        UnloadForm(ps.desktop, *table); // it builds its text as it opens
        ShowForm(ps.desktop, *table);
    }
}

void cmdMichaelisListe_Click(frmPrepareTimeDiagram& form) {
    const MMScope scope(form.ps);
    form.ps.MMNormalized = form.chkNormiert.checked;
    cmdListe_Click(form);
}

} // namespace zorvant
