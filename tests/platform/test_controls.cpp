#include "platform/controls.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zorvant;

namespace {

/// A dialog with one of each control that has rules of its own.
struct frmSample : Form {
    frmSample() : Form("frmSample", "Sample") {
        lblState.backColour = kPaleYellow;
        txtComment.maxLength = 3;
        cboUnit.items = {"s", "min"};
        cboUnit.editable = true;
        sldStep.minimum = 1;
        sldStep.maximum = 5;
        sldStep.value = 2;
        Declare();
    }
    Label lblState{*this, "lblState", "new"};
    TextField txtValue{*this, "txtValue", " 0.5"};
    TextField txtComment{*this, "txtComment"};
    TextField txtNotes{*this, "txtNotes"};
    Array<TextField, 3, 5> Inp{*this, "Inp"};
    Button cmdRun{*this, "cmdRun", "Run"};
    CheckBox chkLog{*this, "chkLog", "log"};
    OptionGroup optMode{*this, "optMode", {"first", "second", "third"}, 1};
    ComboBox cboUnit{*this, "cboUnit"};
    Slider sldStep{*this, "sldStep"};
    MenuEntry mnuRun{*this, "mnuRun"};
};

class Controls : public testing::Test {
protected:
    ScriptedHost script;
    Desktop desktop;
    frmSample form;
    std::vector<std::string> log;
    Handler Note(const std::string& text) {
        return [this, text] { log.push_back(text); };
    }
};

TEST_F(Controls, GoBackToWhatTheyDeclareWhenTheirDialogOpensAgain) {
    form.onLoad = [this] { form.txtValue.text += " loaded"; };
    ShowForm(desktop, form);
    form.lblState.text = "used";
    form.lblState.backColour = kWhite;
    form.optMode.selected = 2;
    form.optMode(2).enabled = false;
    form.cboUnit.items.clear();
    form.caption = "Another";
    form.Inp(7).visible = false;
    form.left = 300;

    ShowForm(desktop, form); // open already: only brought forward
    EXPECT_EQ(form.lblState.text, "used");
    EXPECT_TRUE(UnloadForm(desktop, form));
    ShowForm(desktop, form);
    EXPECT_EQ(form.lblState.text, "new");
    EXPECT_EQ(form.lblState.backColour, kPaleYellow);
    EXPECT_EQ(form.txtValue.text, " 0.5 loaded");
    EXPECT_EQ(form.optMode.selected, -1);
    EXPECT_TRUE(form.optMode(2).enabled);
    EXPECT_EQ(form.cboUnit.items.size(), 2U);
    EXPECT_EQ(form.caption, "Sample");
    EXPECT_TRUE(form.Find("Inp_7")->visible);
    EXPECT_EQ(form.left, 300); // where the user put it
}

TEST_F(Controls, RunTheKeyHandlerThenTheChangeHandlerWhenTyped) {
    form.txtValue.text.clear();
    form.txtValue.onKeyPress = [this](int& key) {
        log.push_back("key " + std::to_string(key));
        if (!FilterNumericKey(key))
            key = 0;
    };
    form.txtValue.onChange = [this] { log.push_back("change " + form.txtValue.text); };
    Type(form.txtValue, "1,x\b");
    EXPECT_THAT(log, testing::ElementsAre("key 49", "change 1", "key 44", "change 1.", "key 120",
                                          "key 8", "change 1"));
    log.clear();
    form.txtValue.text = "written by a handler";
    SetText(form.txtValue, "written by a handler");
    EXPECT_TRUE(log.empty());
    SetText(form.txtValue, "set");
    EXPECT_THAT(log, testing::ElementsAre("change set"));
    Type(form.txtValue, "\b\b\b\b"); // the fourth finds nothing to delete
    EXPECT_THAT(log, testing::Contains("change ").Times(1));
}

TEST_F(Controls, TakeWholeCharactersUpToTheirLength) {
    Type(form.txtComment, "\xCE\x94\xE2\x82\xAC\xF0\x9F\x98\x80z");
    EXPECT_EQ(form.txtComment.text, "\xCE\x94\xE2\x82\xAC\xF0\x9F\x98\x80");
    Type(form.txtComment, "\b\b");
    EXPECT_EQ(form.txtComment.text, "\xCE\x94");
    Type(form.txtNotes, "a\rb");
    form.txtNotes.multiLine = true;
    Type(form.txtNotes, "\rc");
    EXPECT_EQ(form.txtNotes.text, "ab\nc");
}

TEST_F(Controls, DoNothingWhileDisabledHiddenOrLocked) {
    form.cmdRun.onClick = form.mnuRun.onClick = form.chkLog.onClick = Note("run");
    form.txtValue.onChange = form.sldStep.onChange = Note("change");
    form.optMode.onClick = [this](int index) { log.push_back(std::to_string(index)); };
    form.cmdRun.enabled = form.mnuRun.visible = form.chkLog.enabled = false;
    form.sldStep.enabled = form.optMode(2).enabled = false;
    form.txtValue.locked = true;
    Press(form.cmdRun);
    Press(form.mnuRun);
    Press(form.chkLog, true);
    Press(form.optMode, 2);
    Move(form.sldStep, 4);
    Type(form.txtValue, "5");
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(form.chkLog.checked);
    EXPECT_EQ(form.sldStep.value, 2);
    Press(form.optMode, 3);
    EXPECT_THAT(log, testing::ElementsAre("3"));
    EXPECT_EQ(form.optMode.selected, 3);
}

TEST_F(Controls, OpenAndCloseInOrder) {
    frmSample other;
    form.onLoad = Note("load");
    form.onActivate = Note("activate");
    form.onUnload = Note("unload");
    bool refuse = true;
    form.onQueryUnload = [&](bool& cancel) {
        log.push_back("query");
        cancel = refuse;
    };
    EXPECT_TRUE(UnloadForm(desktop, form)); // not open: nothing to do
    ShowForm(desktop, form);
    ShowForm(desktop, other);
    ShowForm(desktop, form);
    EXPECT_EQ(desktop.order.back(), &form);
    EXPECT_TRUE(IsFormLoaded(desktop, "frmSample"));
    EXPECT_FALSE(UnloadForm(desktop, form));
    EXPECT_TRUE(form.loaded);
    refuse = false;
    EXPECT_TRUE(UnloadForm(desktop, form));
    EXPECT_THAT(log,
                testing::ElementsAre("load", "activate", "activate", "query", "query", "unload"));
    EXPECT_THAT(desktop.order, testing::ElementsAre(&other));

    form.onQueryUnload = nullptr;
    form.onLoad = [this] { UnloadForm(desktop, form); };
    log.clear();
    ShowForm(desktop, form); // its own load event closes it
    EXPECT_FALSE(form.loaded);
    EXPECT_THAT(log, testing::ElementsAre("unload"));
}

} // namespace
