#include "dialogs/diagram/frm_z_graph_calc.h"

#include "dialogs/common/names.h"
#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "evaluation/model_value.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <array>

namespace zorvant {
namespace {

constexpr int kHelpCalculator = 7004;
constexpr int kOwnWidth = 3600; ///< twips, about
/// The share of its width by which the window stands inside the diagram's right edge.
constexpr double kInsideShare = 1.045;
constexpr std::array<const char*, kSpecies> kNames{"c(A)", "c(B)", "c(C)", "c(P)", "c(Q)"};
constexpr std::array<const char*, 3> kEnzymeNames{"c(E)", "c(S)", "c(ES)"};

bool ShowsSaturation(const Workspace& ps) {
    return IsEnzymeModel(ps.ModelId) && ps.MMDiagram;
}

void ShowSaturationFields(frmZGraphCalc& form) {
    form.lblXEingabe.text = form.ps.MMNormalized ? "c(S)/KM" : "c(S)";
    form.lblZeit.text = form.ps.MMNormalized ? "" : "mol/L";
    for (int i = 0; i < kSpecies; ++i) {
        form.lblRes(i).text.clear();
        form.lblResult(i).text.clear();
        form.lblRes(i).visible = form.lblResult(i).visible = i == 0;
    }
    form.lblRes(0).text = "r(P)/r(P)max";
}

void ShowSpeciesFields(frmZGraphCalc& form) {
    if (IsEnzymeModel(form.ps.ModelId))
        for (int i = 0; i < static_cast<int>(kEnzymeNames.size()); ++i)
            form.lblRes(i).text = kEnzymeNames[static_cast<std::size_t>(i)];
    if (form.ps.IsTubular) { // its diagram shows concentrations along the tube
        form.lblXEingabe.text = "length l =";
        form.lblZeit.text = "m";
    }
    for (int i = 0; i < kSpecies; ++i) {
        form.lblResult(i).text.clear();
        form.lblRes(i).visible = form.lblResult(i).visible = InMask(form.ps.SpeciesMask, i + 1);
    }
}

/// What the model takes for an x of the diagram: a time, or a concentration of the substrate.
double ModelX(const Workspace& ps, double x) {
    return ps.IsTubular && !ShowsSaturation(ps) && ps.vRohr > 0 ? x / ps.vRohr : x;
}

} // namespace

frmZGraphCalc::frmZGraphCalc(Workspace& state, DiagramDocument& document)
    : Form(name::kGraphCalculator, "  Single Point Calculator"), ps(state), diagram(document) {
    helpTopic = kHelpCalculator;
    txtX.toolTip = " within range of the diagram ";
    for (int i = 0; i < kSpecies; ++i)
        lblRes(i).text = kNames[static_cast<std::size_t>(i)];
    cmdGraphCalcExec.isDefault = true;
    cmdCloseGraphCalc.isCancel = true;
    onLoad = [this] { Form_Load(*this); };
    txtX.onKeyPress = [this](int& key) { txtX_KeyPress(*this, key); };
    txtX.onGotFocus = [this] { txtX.selectAll = true; };
    cmdGraphCalcExec.onClick = [this] { cmdGraphCalcExec_Click(*this); };
    cmdCloseGraphCalc.onClick = [this] { UnloadForm(ps.desktop, *this); };
    Declare();
}

void Form_Load(frmZGraphCalc& form) {
    const DiagramDocument& diagram = form.diagram;
    form.top = diagram.screenHeight * kTwipsPerPixel / 8;
    const int rightEdge = diagram.rightEdge ? diagram.rightEdge() : diagram.left + diagram.width;
    form.left = rightEdge - static_cast<int>(kOwnWidth / kInsideShare);
    form.txtX.text = "0";
    form.lblZeit.text = form.ps.TimeUnitText;
    if (ShowsSaturation(form.ps))
        ShowSaturationFields(form);
    else
        ShowSpeciesFields(form);
    form.setFocus = &form.txtX;
}

void txtX_KeyPress(frmZGraphCalc& form, int& key) {
    if (key == kKeyEnter) {
        cmdGraphCalcExec_Click(form);
        key = 0;
    } else if (!FilterNumericKey(key)) {
        key = 0;
    }
}

void cmdGraphCalcExec_Click(frmZGraphCalc& form) {
    const double x = Val(form.txtX.text);
    // The end of the axis is of single precision; what is typed is compared as such.
    if (x < 0 || NearestSingle(x) > form.ps.Frame.xMax) {
        host().beep();
        return;
    }
    SpeciesArray c{};
    bool err = false;
    FuModellWert(form.ps, form.ps.ModelId, ModelX(form.ps, x), c, err);
    for (int i = 0; i < kSpecies; ++i) {
        const double value = c[static_cast<std::size_t>(i + 1)];
        form.lblResult(i).text = err ? "" : PlainText(value);
    }
    if (!form.hidden) {
        form.setFocus = &form.txtX;
        form.txtX.selectAll = true; // the next x is typed at once
    }
}

} // namespace zorvant
