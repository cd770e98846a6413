// The single point calculator of the diagram window.
#include "dialogs/diagram/dispatcher.h"
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "dialogs/diagram/frm_z_graph_calc.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zorvant {
namespace {

struct Calculator : testing::Test {
    Calculator() {
        InitProjectState(ps);
        for (Form* form : {static_cast<Form*>(&diagram), static_cast<Form*>(&calc)})
            ps.desktop.forms.push_back(form);
        ps.c0 = {0, 1, 0.8, 0, 0, 0};
        ps.k = {0, 0.02, 0.01, 0.01};
        ps.tMax = 100;
    }
    void Draw(int model) {
        ps.ModelId = ps.DiagramKind = model;
        FuMaskenSetzen(ps, model);
        UnloadForm(ps.desktop, diagram);
        bool err = false;
        calc_diagram_function(ps, model, ps.tMax, err);
        ASSERT_FALSE(err);
        GrafZentrale(ps, diagram);
        Press(diagram.cmdSingleCalc);
        ASSERT_TRUE(calc.loaded);
    }
    std::string At(const std::string& x, int result = 0) {
        calc.txtX.text.clear();
        Type(calc.txtX, x + "\r");
        return calc.lblResult(result).text;
    }

    ScriptedHost scripted;
    Workspace ps;
    frmZGraph2D diagram{ps};
    frmZGraphCalc calc{ps, diagram};
};

TEST_F(Calculator, GivesTheModelsConcentrations) {
    Draw(2);
    EXPECT_EQ(calc.txtX.text, "0");
    EXPECT_EQ(calc.lblZeit.text, "s");
    EXPECT_TRUE(calc.lblResult(0).visible && calc.lblRes(3).visible);
    EXPECT_FALSE(calc.lblResult(1).visible || calc.lblRes(1).visible) << "model 2 has no B";
    EXPECT_EQ(At("0"), " 1");
    EXPECT_EQ(At("50"), PlainText(std::exp(-1.0)));
    EXPECT_EQ(At("50", 3), PlainText(1 - std::exp(-1.0)));
    EXPECT_EQ(calc.setFocus, &calc.txtX);
    EXPECT_EQ(At("2,5"), PlainText(std::exp(-0.05))) << "a comma becomes a point";

    ps.Frame.xMax = 0.7F; // below 0.7 by a rounding
    EXPECT_EQ(At("0.7"), PlainText(std::exp(-0.014)));
    const std::string kept = calc.lblResult(0).text;
    EXPECT_EQ(scripted.beeps, 0);
    At("0.71");
    At("-1");
    EXPECT_EQ(scripted.beeps, 2);
    EXPECT_EQ(calc.lblResult(0).text, kept);
    UnloadForm(ps.desktop, diagram);
    EXPECT_FALSE(calc.loaded) << "closes with its diagram";
}

TEST_F(Calculator, FollowsTheKindOfDiagram) {
    ps.c0 = {0, 0.01, 0.8, 0, 0, 0};
    ps.KM = 0.5;
    Draw(10);
    EXPECT_EQ(calc.lblRes(0).text + calc.lblRes(1).text + calc.lblRes(2).text, "c(E)c(S)c(ES)");
    EXPECT_EQ(At("0", 1), " .8");

    ps.MMDiagram = true;
    for (const bool normalized : {true, false}) {
        ps.MMNormalized = normalized;
        Draw(10);
        EXPECT_EQ(calc.lblXEingabe.text, normalized ? "c(S)/KM" : "c(S)");
        EXPECT_EQ(calc.lblZeit.text, normalized ? "" : "mol/L");
        EXPECT_EQ(calc.lblRes(0).text, "r(P)/r(P)max");
        for (int i = 1; i < kSpecies; ++i)
            EXPECT_FALSE(calc.lblResult(i).visible || calc.lblRes(i).visible);
        EXPECT_EQ(At(normalized ? "1" : ".1"), normalized ? " .5" : PlainText(0.1 / 0.6));
    }
    ps.MMDiagram = false;
    ps.IsTubular = true;
    ps.vRohr = 0.1;
    Draw(2);
    EXPECT_EQ(calc.lblXEingabe.text + calc.lblZeit.text, "length l =m");
    EXPECT_EQ(At("5"), PlainText(0.01 * std::exp(-1.0))) << "50 s from the inlet";
}

} // namespace
} // namespace zorvant
