// The connection of records and widgets, on a small form that has a control of every kind.
#include "platform/host.h"
#include "platform/number_text.h"
#include "shell/qt/binder.h"
#include "shell/qt/menus.h"
#include "shell/qt/qt_host.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr MenuRow kMenu[] = {
    {1, "mnuFile", "&File"}, {2, "mnuOpen", "Open"}, {2, "sep1", "-"},
    {2, "mnuMore", "More"},  {3, "mnuDeep", "Deep"}, {1, "mnuPlain", "Plain"},
};

struct TestForm : Form {
    TestForm() : Form("TestForm", " A form") {
        menu = kMenu;
        txtNumber.onKeyPress = [this](int& key) {
            keys.push_back(key);
            if (key != 13 && !FilterNumericKey(key))
                key = 0;
        };
        txtNumber.onChange = [this] { changes.push_back(txtNumber.text); };
        txtNumber.onGotFocus = [this] { txtNumber.selectAll = true; };
        txtText.multiLine = true;
        cmbList.items = {"one", "two"};
        cmbFree.editable = true;
        lstList.items = {"a", "b", "c"};
        cmdDefault.isDefault = true;
        cmdEsc.isCancel = true;
        grdTable.heads = {"no", "off", "value"};
        grdTable.cells = {{"1", "0", "1.5"}, {"2", "-1", "2.5"}};
        grdTable.editableColumns = {false, false, true};
        grdTable.checkColumns = {false, true, false};
        Declare();
        loaded = true;
    }
    std::vector<int> keys;
    std::vector<std::string> changes;

    Label lblHint{*this, "lblHint", "5 < 7 & <b>plain</b>"};
    Frame fraGroup{*this, "fraGroup", "Group"};
    TextField txtNumber{*this, "txtNumber"};
    TextField txtText{*this, "txtText"};
    Button cmdDefault{*this, "cmdDefault", "&Go"};
    Button cmdEsc{*this, "cmdEsc", "Close <Esc>"};
    CheckBox chkOn{*this, "chkOn", "on"};
    OptionGroup optKind{*this, "optKind", {"first", "second", "third"}, 1};
    ComboBox cmbList{*this, "cmbList"};
    ComboBox cmbFree{*this, "cmbFree"};
    ListBox lstList{*this, "lstList"};
    Slider sldSpeed{*this, "sldSpeed"};
    UpDown updCount{*this, "updCount"};
    Grid grdTable{*this, "grdTable"};
    TabPanel tabPages{*this, "tabPages", {"left", "right"}};
    Timer tmrTick{*this, "tmrTick"};
    MenuEntry mnuFile{*this, "mnuFile", "&File"};
    MenuEntry mnuOpen{*this, "mnuOpen", "Open"};
    MenuEntry mnuPlain{*this, "mnuPlain", "Plain"};
    Picture picDrawing{*this, "picDrawing"};
};

template <class Widget> Widget* Make(QLayout& layout, const char* name) {
    auto* const widget = new Widget;
    widget->setObjectName(QString::fromUtf8(name));
    layout.addWidget(widget);
    return widget;
}

/// The window of the form, less one widget where a test wants it so.
std::unique_ptr<QWidget> MakeWindow(const std::string& without = {}) {
    auto root = std::make_unique<QWidget>();
    auto* const layout = new QVBoxLayout(root.get());
    auto* const bar = new QMenuBar(root.get());
    layout->setMenuBar(bar);
    BuildMenuBar(*bar, kMenu);
    Make<QLabel>(*layout, "lblHint");
    auto* const group = new QVBoxLayout(Make<QGroupBox>(*layout, "fraGroup"));
    Make<QLineEdit>(*group, "txtNumber");
    Make<QPlainTextEdit>(*layout, "txtText");
    Make<QPushButton>(*layout, "cmdDefault");
    Make<QPushButton>(*layout, "cmdEsc");
    Make<QCheckBox>(*layout, "chkOn");
    for (const char* name : {"optKind_1", "optKind_2", "optKind_3"})
        Make<QRadioButton>(*layout, name);
    Make<QComboBox>(*layout, "cmbList");
    Make<QComboBox>(*layout, "cmbFree");
    Make<QListWidget>(*layout, "lstList");
    Make<QSlider>(*layout, "sldSpeed");
    Make<QSpinBox>(*layout, "updCount");
    Make<QTableView>(*layout, "grdTable");
    auto* const tabs = Make<QTabWidget>(*layout, "tabPages");
    tabs->addTab(new QWidget, QString());
    tabs->addTab(new QWidget, QString());
    Make<QLabel>(*layout, "picDrawing");
    if (!without.empty())
        delete root->findChild<QWidget*>(QString::fromStdString(without));
    return root;
}

class BinderTest : public testing::Test {
protected:
    void Open() {
        window = MakeWindow();
        binder = new Binder(form, *window);
        window->show();
        window->activateWindow();
        Settle();
    }
    template <class Widget> Widget& At(const char* name) { return Child<Widget>(*window, name); }
    QComboBox& Free() { return At<QComboBox>("cmbFree"); }
    QLineEdit& Number() { return At<QLineEdit>("txtNumber"); }

    ScriptedHost desk;
    TestForm form;
    std::unique_ptr<QWidget> window;
    Binder* binder = nullptr;
};

TEST_F(BinderTest, AWindowThatDoesNotFitItsRecordIsRefusedByName) {
    const auto fault = [this](QWidget& root) -> std::string {
        try {
            Binder refused(form, root);
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return "none";
    };
    for (const char* name : {"txtNumber", "optKind_2", "grdTable", "tabPages", "lblHint"})
        EXPECT_THAT(fault(*MakeWindow(name)), HasSubstr(name));
    const auto surplus = MakeWindow();
    Make<QLineEdit>(*surplus->layout(), "txtStray");
    Make<QLabel>(*surplus->layout(), "lblFixed"); // a fixed caption needs no record
    EXPECT_THAT(fault(*surplus), AllOf(HasSubstr("txtStray"), Not(HasSubstr("lblFixed"))));
}

TEST_F(BinderTest, WhatIsTypedIsShownAndRecordedWithoutWhatTheFilterDrops) {
    form.cmbFree.onKeyPress = form.txtNumber.onKeyPress;
    form.cmbFree.onChange = [this] { form.changes.push_back(form.cmbFree.text); };
    Open();
    const struct {
        QWidget& field;
        QLineEdit& line;
        Control& record;
    } cases[] = {{Number(), Number(), form.txtNumber}, {Free(), *Free().lineEdit(), form.cmbFree}};
    for (const auto& [field, line, record] : cases) {
        form.keys.clear();
        form.changes.clear();
        field.setFocus();
        Keys(QStringLiteral("1x,5"));
        EXPECT_EQ(line.text(), QStringLiteral("1.5"));
        EXPECT_EQ(record.text, "1.5");
        EXPECT_EQ(form.keys, (std::vector<int>{'1', 'x', ',', '5'}));
        EXPECT_EQ(form.changes, (std::vector<std::string>{"1", "1.", "1.5"}));
    }
}

TEST_F(BinderTest, EditsWithoutAKeyAreAnnouncedAsBackspaceAndCanBeTakenBack) {
    form.cmbFree.onKeyPress = form.txtNumber.onKeyPress;
    Open();
    for (QWidget* field : {static_cast<QWidget*>(&Number()), static_cast<QWidget*>(&Free())}) {
        field->setFocus();
        const Control& record = *form.Find(field->objectName().toStdString());
        Keys(QStringLiteral("12"));
        form.keys.clear();
        Key(Qt::Key_Home);
        Key(Qt::Key_Delete);
        EXPECT_EQ(record.text, "2");
        EXPECT_EQ(form.keys, std::vector<int>{8});
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(record.text, "12");
    }
    QGuiApplication::clipboard()->setText(QStringLiteral("77"));
    form.keys.clear();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.keys, std::vector<int>{22});
}

TEST_F(BinderTest, WhatAnInputMethodComposesPassesTheKeyFilter) {
    Open();
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("3,a4"));
    QCoreApplication::sendEvent(&Number(), &composed);
    EXPECT_EQ(form.txtNumber.text, "3.4");
}

TEST_F(BinderTest, AHandlersWritingRunsNoHandlerAndKeepsTheCursor) {
    form.chkOn.onClick = [this] { form.txtNumber.text = "42"; };
    form.txtNumber.onChange = [this] {
        form.changes.push_back(form.txtNumber.text);
        form.txtNumber.text = CommasToPoints(form.txtNumber.text);
    };
    Open();
    At<QCheckBox>("chkOn").click();
    EXPECT_EQ(Number().text(), QStringLiteral("42"));
    EXPECT_TRUE(form.changes.empty());

    Number().setFocus();
    Number().setCursorPosition(1);
    form.txtNumber.onKeyPress = nullptr; // as when a comma is pasted
    Keys(QStringLiteral(","));
    EXPECT_EQ(Number().text(), QStringLiteral("4.2"));
    EXPECT_EQ(Number().cursorPosition(), 2);
}

TEST_F(BinderTest, HiddenControlsKeepTheirRoomAndDisabledOnesSayWhy) {
    form.chkOn.onClick = [this] {
        form.cmbList.visible = false;
        form.cmdDefault.enabled = form.mnuPlain.available = false;
        form.cmdDefault.disabledTip = form.mnuPlain.disabledTip = "nothing calculated yet";
    };
    form.cmdDefault.toolTip = " calculates ";
    Open();
    const auto& entry = Child<QAction>(*window, "mnuPlain");
    const int place = At<QWidget>("lstList").y();
    EXPECT_EQ(At<QPushButton>("cmdDefault").toolTip(), QStringLiteral("calculates"));
    EXPECT_TRUE(entry.isEnabled());
    At<QCheckBox>("chkOn").click();
    Settle();
    EXPECT_FALSE(At<QComboBox>("cmbList").isVisible());
    EXPECT_EQ(At<QWidget>("lstList").y(), place);
    EXPECT_FALSE(At<QPushButton>("cmdDefault").isEnabled() || entry.isEnabled());
    for (const QString& tip : {At<QPushButton>("cmdDefault").toolTip(), entry.toolTip()})
        EXPECT_EQ(tip, QStringLiteral("nothing calculated yet"));
}

TEST_F(BinderTest, EnterPressesTheDefaultButtonUnlessAHandlerTakesIt) {
    int pressed = 0;
    form.cmdDefault.onClick = [&] { ++pressed; };
    Open();
    for (QWidget* field : {static_cast<QWidget*>(&Number()), static_cast<QWidget*>(&Free())}) {
        pressed = 0;
        form.txtNumber.onKeyPress = form.cmbFree.onKeyPress = nullptr;
        field->setFocus();
        Key(Qt::Key_Return);
        EXPECT_EQ(pressed, 1);
        form.txtNumber.onKeyPress = form.cmbFree.onKeyPress = [this](int& key) {
            form.setFocus = &form.txtText;
            key = 0;
        };
        Key(Qt::Key_Return);
        EXPECT_EQ(pressed, 1);
        EXPECT_EQ(QApplication::focusWidget(), &At<QPlainTextEdit>("txtText"));
    }
}

TEST_F(BinderTest, AFieldThatIsEnteredMaySelectItsTextEvenByMouse) {
    form.txtNumber.text = "1.5";
    form.cmbFree.text = "2.5";
    form.cmbFree.onGotFocus = [this] { form.cmbFree.selectAll = true; };
    Open();
    At<QCheckBox>("chkOn").setFocus();
    int left = 0;
    form.txtNumber.onLostFocus = [&] { ++left; };
    Number().setFocus(Qt::MouseFocusReason);
    ClickAt(Number(), {5, 5}); // the press that brought the focus takes the selection away again
    Settle();
    EXPECT_EQ(Number().selectedText(), QStringLiteral("1.5"));
    At<QComboBox>("cmbFree").setFocus(Qt::MouseFocusReason);
    Settle();
    EXPECT_EQ(At<QComboBox>("cmbFree").lineEdit()->selectedText(), QStringLiteral("2.5"));
    EXPECT_EQ(left, 1);
}

TEST_F(BinderTest, EscPressesTheCancelButtonButInAnOpenListClosesTheListAlone) {
    int pressed = 0;
    form.cmdEsc.onClick = [&] { ++pressed; };
    form.cmbFree.items = {"1", "2"};
    Open();
    Free().setFocus();
    Key(Qt::Key_F4);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Key(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(pressed, 0);
    Key(Qt::Key_Escape);
    EXPECT_EQ(pressed, 1);
    form.cmdEsc.visible = false;
    Binder::PushAll();
    Key(Qt::Key_Escape);
    EXPECT_EQ(pressed, 1);
}

TEST_F(BinderTest, EveryKindOfControlWritesItsRecordAndIsWrittenFromIt) {
    int option = 0, tab = -1, ticks = 0;
    form.optKind.onClick = [&](int index) { option = index; };
    form.tabPages.onClick = [&](int index) { tab = index; };
    form.tmrTick.onTick = [&] { ++ticks; };
    form.mnuOpen.onClick = [this] { form.updCount.value = 9; };
    Open();
    EXPECT_EQ(At<QLabel>("lblHint").text(), QStringLiteral("5 < 7 & <b>plain</b>"));
    EXPECT_EQ(At<QLabel>("lblHint").textFormat(), Qt::PlainText);

    At<QRadioButton>("optKind_2").click();
    EXPECT_EQ(form.optKind.selected, 2);
    EXPECT_EQ(option, 2);
    form.optKind.selected = 3;
    form.optKind(1).enabled = false;
    Binder::PushAll();
    EXPECT_TRUE(At<QRadioButton>("optKind_3").isChecked());
    EXPECT_FALSE(At<QRadioButton>("optKind_1").isEnabled());
    form.optKind.selected = -1;
    Binder::PushAll();
    EXPECT_FALSE(At<QRadioButton>("optKind_3").isChecked());

    auto& list = At<QComboBox>("cmbList");
    ASSERT_EQ(list.count(), 2);
    list.setCurrentIndex(1);
    emit list.activated(1);
    EXPECT_EQ(form.cmbList.text, "two");

    form.cmbFree.text = "0.5";
    form.cmbFree.items.emplace_back("0.75");
    Binder::PushAll();
    EXPECT_EQ(Free().count(), 1);
    EXPECT_EQ(Free().currentText(), QStringLiteral("0.5")) << "a longer list leaves the text alone";

    At<QListWidget>("lstList").setCurrentRow(2);
    EXPECT_EQ(form.lstList.index, 2);
    At<QSlider>("sldSpeed").setValue(30);
    EXPECT_EQ(form.sldSpeed.value, 30);
    At<QSpinBox>("updCount").setValue(4);
    EXPECT_EQ(form.updCount.value, 4);
    At<QTabWidget>("tabPages").setCurrentIndex(1);
    EXPECT_EQ(form.tabPages.selected, 1);
    EXPECT_EQ(tab, 1);
    At<QPlainTextEdit>("txtText").setPlainText(QStringLiteral("two\nlines"));
    EXPECT_EQ(form.txtText.text, "two\r\nlines");

    Child<QAction>(*window, "mnuOpen").trigger();
    EXPECT_EQ(At<QSpinBox>("updCount").value(), 9);
    form.tmrTick.interval = 1;
    Binder::PushAll();
    QElapsedTimer waited;
    waited.start();
    while (ticks == 0 && waited.elapsed() < 2000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    EXPECT_GT(ticks, 0);
}

TEST_F(BinderTest, AGridTakesEditsTicksAndSelections) {
    std::vector<std::pair<int, int>> edits;
    form.grdTable.onEdit = [&](int row, int column) { edits.emplace_back(row, column); };
    Open();
    auto& view = At<QTableView>("grdTable");
    QAbstractItemModel& model = *view.model();
    EXPECT_EQ(model.index(1, 1).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model.setData(model.index(0, 2), QStringLiteral("3.5"), Qt::EditRole));
    EXPECT_TRUE(model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(form.grdTable.cells[0], (std::vector<std::string>{"1", "-1", "3.5"}));
    EXPECT_EQ(edits, (std::vector<std::pair<int, int>>{{0, 2}, {0, 1}}));
    view.selectAll();
    EXPECT_EQ(form.grdTable.selection, (GridRange{0, 0, 1, 2}));
}

TEST_F(BinderTest, AHandlerUnderWayIsNotEnteredAgainButOtherButtonsAre) {
    InstallQtHost();
    int starts = 0;
    bool stop = false;
    form.cmdDefault.onClick = [&] {
        ++starts;
        form.chkOn.enabled = false;
        At<QPushButton>("cmdDefault").click();
        while (!stop)
            host().serviceEvents();
    };
    form.cmdEsc.onClick = [&] { stop = true; };
    Open();
    bool lockedBefore = false;
    QTimer::singleShot(20, window.get(), [&] {
        lockedBefore = !At<QCheckBox>("chkOn").isEnabled();
        At<QPushButton>("cmdEsc").click();
    });
    At<QPushButton>("cmdDefault").click();
    EXPECT_EQ(starts, 1);
    EXPECT_TRUE(stop);
    EXPECT_TRUE(lockedBefore) << "what a handler locks is locked before events are let in";
}

TEST_F(BinderTest, AnExceptionOfAHandlerBecomesAMessage) {
    form.chkOn.onClick = [] { throw std::runtime_error("Overflow"); };
    Open();
    At<QCheckBox>("chkOn").click();
    ASSERT_EQ(desk.boxes.size(), 1U);
    EXPECT_EQ(desk.boxes[0].text, "Overflow");
    EXPECT_EQ(desk.boxes[0].title, "Execution not possible");
}

TEST_F(BinderTest, AFormMayCloseItselfInAHandler) {
    form.cmdEsc.onClick = [this] {
        binder->Detach();
        window.release()->deleteLater();
    };
    Open();
    At<QPushButton>("cmdEsc").click();
    Settle();
    EXPECT_EQ(form.txtNumber.text, "");
}

} // namespace
} // namespace zorvant
