#include "dialogs/common/reactor_dialog.h"
#include "dialogs/common/time_unit_change.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace zorvant;

namespace {

struct TestDialog : ReactorDialog {
    TestDialog(Workspace& state, const char* formName, CalcTask dialogId)
        : ReactorDialog(state, formName, "", dialogId) {
        Declare();
    }
};

} // namespace

TEST(TimeUnits, ReachTheOpenDialogs) {
    const auto ps = std::make_unique<Workspace>();
    InitProjectState(*ps);
    ps->ModelId = 9;
    FuMaskenSetzen(*ps, 9);
    SetDefaultK(*ps);
    TestDialog diagram(*ps, "frmPrepareTimeDiagram", CalcTask::TimeDiagram);
    TestDialog tank(*ps, "frmRKconti", CalcTask::Cstr),
        tube(*ps, "frmRohrreaktor", CalcTask::Tubular);
    Form editor("frmDatedit"), model("frmZorModel");
    std::vector<std::string> told;
    diagram.onShowParameters = [&] { told.push_back("parameters"); };
    for (Form* form : {static_cast<Form*>(&diagram), static_cast<Form*>(&tank),
                       static_cast<Form*>(&tube), &editor, &model}) {
        ps->desktop.forms.push_back(form);
        form->onTimeUnitChanged = [&told, form] { told.push_back(form->name); };
    }
    ps->vRohr = 2;
    ps->VPunkt = 3;
    ChangeTimeUnit(*ps, 1, 0); // nothing is open
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(ps->vRohr, 2);
    EXPECT_EQ(ps->VPunkt, 3);

    tube.loaded = tank.loaded = editor.loaded = model.loaded = true;
    EXPECT_EQ(WhichCalcDialog(*ps), &tank);
    ChangeTimeUnit(*ps, 0, 1);
    EXPECT_EQ(told, (std::vector<std::string>{"frmDatedit", "frmRohrreaktor", "frmRKconti",
                                              "frmZorModel"}));
    EXPECT_DOUBLE_EQ(ps->vRohr, 2.0 / 60);
    EXPECT_DOUBLE_EQ(ps->VPunkt, 3.0 / 60);
    EXPECT_EQ(tank.Inp(10).text, " 0.15");
    EXPECT_EQ(tank.Inp(11).text, " 0.1");
    EXPECT_EQ(tank.unit1.text, "/(L/(s*mol))");
    EXPECT_EQ(tank.lblVPunktInput.text, "V* /(m^3/s)");
    EXPECT_EQ(tube.unit1.text, ""); // not the dialog at work

    told.clear();
    diagram.loaded = true;
    EXPECT_EQ(WhichCalcDialog(*ps), &diagram);
    ps->tMax = 5;
    ResetConstants(*ps);
    EXPECT_EQ(ps->tMax, 100);
    EXPECT_EQ(told, std::vector<std::string>{"parameters"});
    diagram.loaded = tank.loaded = tube.loaded = false;
    EXPECT_EQ(WhichCalcDialog(*ps), nullptr);
    ResetConstants(*ps);
    EXPECT_EQ(ps->tMax, 100);
}

TEST(TimeUnits, OfAProjectConvertTheRowsAndThoseOfRowsTheProject) {
    Workspace ps;
    InitProjectState(ps);
    TestDialog tube(ps, "frmRohrreaktor", CalcTask::Tubular);
    ps.desktop.forms.push_back(&tube);
    tube.loaded = true;
    ps.ExpData.resize(2);
    ps.ExpPointCount = 1;
    ps.ExpData[1].t = 120;
    ps.k[1] = 0.5;
    ps.tMax = 600;
    ps.vRohr = 2;
    TakeUnitOfConstants(ps, "min"); // the project's own constants come after it
    EXPECT_EQ(ps.ExpData[1].t, 2);
    EXPECT_EQ(ps.k[1], 0.5);
    EXPECT_EQ(ps.UnitNotice, "data converted from s to min");
    TellUnitOfData(ps);
    EXPECT_EQ(ps.TimeUnitIdx, 1);
    EXPECT_EQ(ps.vRohr, 120);

    TakeUnitOfRows(ps, "s"); // new rows follow
    TellUnitOfData(ps);
    EXPECT_EQ(ps.ExpData[1].t, 2);
    EXPECT_DOUBLE_EQ(ps.k[1], 0.5 / 60);
    EXPECT_EQ(ps.tMax, 36000);
    EXPECT_EQ(ps.vRohr, 2);
    TakeUnitOfRows(ps, "fortnight"); // nobody knows how long
    EXPECT_DOUBLE_EQ(ps.k[1], 0.5 / 60);
}
