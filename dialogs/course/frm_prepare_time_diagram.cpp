#include "dialogs/course/frm_prepare_time_diagram.h"

#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "engine/time_units.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <utility>

namespace zorvant {
namespace {

constexpr int kHelpTimeDiagram = 7001;
constexpr const char* kRefused = "Execution not possible";
/// How many values each parameter remembers.
constexpr std::size_t kRemembered = 7;
constexpr const char* kScaleTip = "scaling is fixed while new curves are added";

constexpr std::array<int, 5> kConcentrationFields{0, 1, 2, 3, 4};

/// Messages of one press, each on a line of its own.
struct Messages {
    std::string text;
    void Add(const std::string& line) { text += line + kCrLf; }
    /// Shows what was collected. Returned: whether there was something.
    bool Show() const {
        if (text.empty())
            return false;
        ShowMessage(text, kRefused, Icon::Critical);
        return true;
    }
};

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
    const Workspace& ps = form.ps;
    form.kCombo(0).text = GeneralText(ps.tMax);
    for (int j = 1; j <= 3; ++j)
        form.kCombo(j).text = GeneralText(ps.k[static_cast<std::size_t>(j)]);
    form.unit4.text = ps.TimeUnitText;
    ShowKM(form);
}

void EnableScaling(frmPrepareTimeDiagram& form) {
    form.chkSpecialScaling.enabled = !form.ps.AddCurves;
    form.chkSpecialScaling.toolTip = form.ps.AddCurves ? kScaleTip : "";
    for (int slot = 1; slot <= kSpecies; ++slot)
        form.optSpecialScaling(slot - 1).enabled = form.chkSpecialScaling.checked &&
                                                   !form.ps.AddCurves &&
                                                   InMask(form.ps.SpeciesMask, slot);
}

bool MaskHasData(const Workspace& ps) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(ps.SpeciesMask, slot) && ps.ColumnHasData[static_cast<std::size_t>(slot)])
            return true;
    return false;
}

void Form_Load(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    form.chkMitPunkten.enabled = ps.ExpPointCount > 0;
    ps.IsTubular = ps.IsCSTR = ps.IsCascade = false;
    ps.WithExpPoints = form.chkMitPunkten.checked;
    form.chkMitPunkten.visible = !ps.RateDiagram;
    form.txtS0max.text = GeneralText(static_cast<double>(ps.S0Max));
    ps.ScaleOneSpecies = false;
    ps.ScaleSpecies = 1;
    form.chkSpecialScaling.checked = false;
    form.optSpecialScaling.selected = ps.ScaleSpecies - 1;
    EnableScaling(form);
    if (ps.cA0Data > 0)
        ps.c0[1] = static_cast<double>(ps.cA0Data);
    if (ps.cB0Data > 0)
        ps.c0[2] = static_cast<double>(ps.cB0Data);
}

void Form_Activate(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    UpdateUnitLabels(ps);
    ps.MMDiagram = false;
    const bool enzyme = IsEnzymeModel(ps.ModelId);
    form.fraMichaelis.visible = enzyme;
    const bool curves = form.diagram.loaded && ps.CurveCount > 0;
    if (ps.AddCurves && !curves)
        ps.AddCurves = false;
    form.chkDelDiagram.enabled = curves;
    form.chkDelDiagram.toolTip = curves ? "" : "only while a diagram with curves is open";
    form.chkDelDiagram.checked = ps.AddCurves;
    EnableScaling(form);
    form.chkNormiert.checked = ps.MMNormalized;
    chkNormiert_Click(form);
    form.Label7.text = ModelCaption(ps);
    if (ps.RateDiagram) {
        ps.WithExpPoints = false;
        form.chkMitPunkten.checked = false;
        form.chkMitPunkten.visible = false;
        form.caption = "Functions Reaction Rate vs. Time";
        form.cmdDrawctDiagram.text = "draw r(i)-t diagramm";
        form.cmdDrawctDiagram.toolTip = " rate of reaction vs. time ";
        form.cmdListe.toolTip = " Time | Rate of Reaction ";
    } else {
        form.caption = "  Diagram: Concentration vs. Time";
        form.cmdDrawctDiagram.text = "Draw c-t diagram";
        form.cmdDrawctDiagram.toolTip = "...concentration(s) vs. time ";
        form.cmdListe.toolTip = " time | concentration(s) ";
        form.chkMitPunkten.visible = MaskHasData(ps);
        form.chkMitPunkten.enabled = ps.ExpPointCount > 0;
    }
}

/// Enter moves on to the next visible, unlocked field, from the last to the first.
void MoveOn(frmPrepareTimeDiagram& form, int index) {
    const int count = static_cast<int>(kConcentrationFields.size());
    int next = index;
    do
        next = (next + 1) % count;
    while (next != index && (!form.Inp(next).visible || form.Inp(next).locked));
    form.setFocus = &form.Inp(next);
}

/// The same among t(max) and the constants.
void MoveOnCombo(frmPrepareTimeDiagram& form, int index) {
    int next = index;
    do
        next = (next + 1) % 4;
    while (next != index && !form.kCombo(next).visible);
    form.setFocus = &form.kCombo(next);
}

/// What numeric fields do with a key; `moveOn` runs on Enter.
template <class MoveOnFunction> void NumericKey(int& key, MoveOnFunction moveOn) {
    if (key == 3 || key == 22 || key == 24) // copy, paste, cut
        return;
    if (key == 13) {
        moveOn();
        key = 0;
    } else if (!FilterNumericKey(key)) {
        key = 0;
    }
}

void ReadConcentrations(frmPrepareTimeDiagram& form) {
    for (const int i : kConcentrationFields)
        form.ps.c0[static_cast<std::size_t>(i + 1)] = Val(form.Inp(i).text);
}

void Remember(ComboBox& box) {
    if (box.text.empty())
        return;
    box.items.push_back(box.text);
    if (box.items.size() > kRemembered)
        box.items.erase(box.items.begin());
}

std::string SecondSpeciesMessage(const Workspace& ps) {
    return IsEnzymeModel(ps.ModelId) ? "- not yet a valid input of an initial conc. c(S,0)"
                                     : "- not yet a valid input of an initial conc. c(B,0)";
}

/// The checks of the draw command. k2 and k3 may be 0: the reaction then simply does not happen.
Messages CheckForDiagram(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    Messages messages;
    if (HasOrder(ps.ModelId) && !(ps.OrderN > 0)) {
        messages.Add("- input value of the reaction order has to be > 0");
        ps.OrderN = 1.5F;
        if (Form* model = FindForm(ps.desktop, name::kModel); model != nullptr && model->loaded)
            model->Find("txtOrdnung")->text = " 1.5";
        form.Label7.text = ModelCaption(ps);
    }
    const auto missing = [&](std::size_t slot) { return !(ps.c0[slot] > 0); };
    if (!ps.EquilibriumModel) {
        if (missing(1))
            messages.Add("- not yet a valid input of an initial conc. c(A,0)");
    } else if (missing(1) && missing(4) && !BeginsFromEitherSide(ps.ModelId)) {
        messages.Add("- not yet a valid input of an initial conc. c(A,0) or c(P,0)");
    }
    if (form.Inp(1).visible && missing(2) && (!ps.EquilibriumModel || !missing(1)))
        messages.Add(SecondSpeciesMessage(ps));
    if (BeginsFromEitherSide(ps.ModelId) && missing(2) && missing(4) && missing(5))
        messages.Add("- specify initial concentration of substance B or P and Q");
    if (IsAutocatalytic(ps.ModelId) && missing(4))
        messages.Add("- for auto catalysis, a (low) c(P,0) must be present, otherwise the reaction "
                     "will not start");
    if (!(ps.tMax > 0))
        messages.Add("- specification of time is not in order!");
    if (!(ps.k[1] > 0))
        messages.Add("- the rate constant has to be k1 > 0");
    return messages;
}

/// The checks of the table command.
Messages CheckForTable(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    Messages messages;
    const auto missing = [&](std::size_t slot) { return !(ps.c0[slot] > 0); };
    if (missing(1))
        messages.Add("- not yet a valid input of an initial conc. c(A,0)");
    if (form.Inp(1).visible && missing(2))
        messages.Add(SecondSpeciesMessage(ps));
    if (IsAutocatalytic(ps.ModelId) && missing(4))
        messages.Add("- for autocatalysis a (very small) initial value of c(P)(0) must be given, "
                     "otherwise the reaction cannot start");
    if (ps.OrderN < 0 && ps.DiagramKind == 20)
        messages.Add("- allowed only n > 0");
    if (!(ps.tMax > 0))
        messages.Add("- specification of time is not in order");
    if (!(ps.k[1] > 0))
        messages.Add("- the rate constant has to be k1 > 0");
    if (form.kCombo(2).visible && !(ps.k[2] > 0)) {
        messages.Add("- the rate constant has to be k2 > 0");
        messages.Add("  (you can input a very small value, e. g. k2 = 1e-10)");
    }
    if (form.kCombo(3).visible && !(ps.k[3] > 0))
        messages.Add("- the rate constant has to be k3 > 0");
    return messages;
}

void DrawCourse(frmPrepareTimeDiagram& form) {
    Workspace& ps = form.ps;
    const WaitScope wait(ps);
    bool err = false;
    calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    if (ps.AddCurves) {
        GrafZentrale(ps, form.diagram);
        cmdDraw_Click(ps, form.diagram);
        return;
    }
    UnloadForm(ps.desktop, form.diagram);
    if (err)
        return;
    FuDatenBereiche(ps, ps.DiagramKind);
    GrafZentrale(ps, form.diagram);
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

} // namespace

frmPrepareTimeDiagram::frmPrepareTimeDiagram(Workspace& state, DiagramDocument& diagramDocument)
    : CalcDialog(name::kTimeDiagram, "  Diagram: Concentration vs. Time", CalcTask::TimeDiagram),
      ps(state), diagram(diagramDocument) {
    helpTopic = kHelpTimeDiagram;
    left = 60;
    for (int i = 5; i < 17; ++i)
        Omit(Inp(i));
    for (int i = 5; i < 10; ++i)
        Omit(lblStoff(i));
    for (Control* reactorOnly : std::initializer_list<Control*>{
             &fraKsi, &lblTextKsi_1, &lblTextKsi_2, &cmdShowKsi, &cmdDiagram, &lblZeitEinheit})
        Omit(*reactorOnly);

    chkDelDiagram.text = "adds new curves (scaling is fixed)";
    chkSpecialScaling.text = "special Y-axis scaling determined by";
    chkMitPunkten.toolTip = " only effective after click \"Draw diagram\"; editing with the "
                            "\"Editor for exper. data\" ";
    cmdReset_k.toolTip = "...for the rate constant(s) and t(max)";
    cmdDrawctDiagram.isDefault = true;
    cmdClose.isCancel = true;
    for (int i = 0; i < 4; ++i) {
        ComboBox& box = kCombo(i);
        box.editable = true;
        box.onChange = [this, i] { kCombo_Change(*this, i); };
        box.onGotFocus = [this, i] { kCombo(i).selectAll = true; };
        box.onKeyPress = [this, i](int& key) {
            NumericKey(key, [this, i] { MoveOnCombo(*this, i); });
        };
    }
    for (const int i : kConcentrationFields) {
        TextField& field = Inp(i);
        field.onGotFocus = [this, i] { Inp(i).selectAll = true; };
        field.onKeyPress = [this, i](int& key) {
            NumericKey(key, [this, i] { MoveOn(*this, i); });
        };
        field.onChange = [this, i] { Inp(i).text = CommasToPoints(Inp(i).text); };
    }
    txtS0max.onGotFocus = [this] { txtS0max.selectAll = true; };
    txtS0max.onKeyPress = [](int& key) { NumericKey(key, [] {}); };
    txtS0max.onChange = [this] {
        txtS0max.text = CommasToPoints(txtS0max.text);
        ps.S0Max = static_cast<float>(Val(txtS0max.text));
    };
    onLoad = [this] { Form_Load(*this); };
    onActivate = [this] { Form_Activate(*this); };
    onInit = [this] { InitSimulation(*this); };
    onShowParameters = [this] { ShowParameters(*this); };
    cmdDrawctDiagram.onClick = [this] { cmdDrawctDiagram_Click(*this); };
    cmdListe.onClick = [this] { cmdListe_Click(*this); };
    cmdReset_k.onClick = [this] { ResetConstants(ps); };
    cmdMMdiagram.onClick = [this] { cmdMMdiagram_Click(*this); };
    cmdMichaelisListe.onClick = [this] { cmdMichaelisListe_Click(*this); };
    chkMitPunkten.onClick = [this] { ps.WithExpPoints = chkMitPunkten.checked; };
    chkDelDiagram.onClick = [this] { chkDelDiagram_Click(*this); };
    chkSpecialScaling.onClick = [this] { chkSpecialScaling_Click(*this); };
    optSpecialScaling.onClick = [this](int i) { ps.ScaleSpecies = i + 1; };
    chkNormiert.onClick = [this] { chkNormiert_Click(*this); };
    cmdClose.onClick = [this] { UnloadForm(ps.desktop, *this); };
    Declare();
}

void InitSimulation(frmPrepareTimeDiagram& form) {
    const Workspace& ps = form.ps;
    form.Label7.text = ModelCaption(ps);
    const bool enzyme = IsEnzymeModel(ps.ModelId);
    form.fraMichaelis.visible = enzyme;
    form.lblMichaelisK1.visible = form.lblMichaelisK2.visible = enzyme;
    form.kCombo(2).visible = ps.RateMask[1] == '1';
    form.kCombo(3).visible = ps.RateMask[2] == '1';
    if (!ps.RateDiagram)
        form.chkMitPunkten.visible = MaskHasData(ps);
    EnableScaling(form);
    ShowKM(form);
}

void kCombo_Change(frmPrepareTimeDiagram& form, int index) {
    ComboBox& box = form.kCombo(index);
    box.text = CommasToPoints(box.text);
    const double value = Val(box.text);
    if (index == 0)
        form.ps.tMax = value;
    else
        form.ps.k[static_cast<std::size_t>(index)] = value;
    if (index > 0)
        ShowKM(form);
}

void chkDelDiagram_Click(frmPrepareTimeDiagram& form) {
    form.ps.AddCurves = form.chkDelDiagram.checked;
    if (form.ps.AddCurves) {
        form.chkSpecialScaling.checked = false;
        form.ps.ScaleOneSpecies = false;
    }
    EnableScaling(form);
}

void chkSpecialScaling_Click(frmPrepareTimeDiagram& form) {
    form.ps.ScaleOneSpecies = form.chkSpecialScaling.checked;
    EnableScaling(form);
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
    try {
        form.chkMitPunkten.enabled = !ps.MMDiagram && ps.ExpPointCount > 0;
        if (ps.MMDiagram) {
            form.chkMitPunkten.checked = false;
            ps.WithExpPoints = false;
        }
        for (int i = 0; i < 4; ++i)
            Remember(form.kCombo(i));
        ReadConcentrations(form);
        ps.tMax = Val(form.kCombo(0).text);
        for (int j = 1; j <= 3; ++j)
            ps.k[static_cast<std::size_t>(j)] = Val(form.kCombo(j).text);
        ShowKM(form);
        ps.NPoints = kCurveIntervals;
        if (CheckForDiagram(form).Show())
            return;
        DrawCourse(form);
    } catch (const ArithmeticError& error) {
        // a user with an overflow is not helped by a word on the installation alone
        ShowMessage(std::string("If no diagram graphic is possible: ") + kCrLf +
                        "The 2D-graph module does not seem to be installed correctly." + kCrLf +
                        kCrLf + "(" + error.what() + ")",
                    kRefused, Icon::Critical);
    } catch (const std::exception&) {
        ShowMessage(std::string("If no diagram graphic is possible: ") + kCrLf +
                        "The 2D-graph module does not seem to be installed correctly.",
                    kRefused, Icon::Critical);
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
    if (CheckForTable(form).Show())
        return;
    bool err = false;
    try {
        const WaitScope wait(ps);
        calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    } catch (const ArithmeticError& error) {
        ShowMessage(error.what(), kRefused, Icon::Critical);
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
