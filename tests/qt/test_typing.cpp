// Every field of every dialog takes numbers as a person types them: what is typed is shown and
// recorded, what no number can hold is dropped, an edit can be taken back.
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/data/frm_import_text.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/key_filter.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

/// Brings a widget to light: pages are turned, panels opened.
void Reveal(QWidget& widget) {
    for (QWidget* each = &widget; each != nullptr && !each->isWindow();
         each = each->parentWidget()) {
        if (auto* const tabs = qobject_cast<QTabWidget*>(each))
            for (int page = 0; page < tabs->count(); ++page)
                if (tabs->widget(page)->isAncestorOf(&widget))
                    tabs->setCurrentIndex(page);
        if (auto* const pages = qobject_cast<QStackedWidget*>(each->parentWidget()))
            pages->setCurrentWidget(each);
        else
            each->setVisible(true);
        each->setEnabled(true);
    }
}

/// Whether the field's own filter drops a letter and lets a point pass.
bool IsNumeric(const KeyHandler& filter) {
    if (!filter)
        return false;
    int letter = 'x', point = '.';
    filter(letter);
    filter(point);
    return letter == 0 && point == '.';
}

struct Fields {
    int numbers = 0, texts = 0;
};

void TypeInto(QWidget& widget, const Control& record, bool numeric) {
    QLineEdit* const line = LineOf(widget);
    if (line == nullptr || line->isReadOnly())
        return;
    Reveal(widget);
    widget.setFocus(Qt::TabFocusReason);
    Settle();
    if (QApplication::focusWidget() != &widget)
        return;
    const std::string where = record.form.name + " " + record.name;
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    const bool holds = line->maxLength() >= 4;
    Keys(numeric ? QStringLiteral("0x,05") : QStringLiteral("ab c"));
    const QString typed = numeric ? QStringLiteral("0.05") : QStringLiteral("ab c");
    EXPECT_EQ(line->text().toStdString(), typed.left(holds ? 4 : line->maxLength()).toStdString())
        << where;
    EXPECT_EQ(record.text, line->text().toStdString()) << where << " records what it shows";
    if (QApplication::focusWidget() != &widget || line->text() != typed)
        return;
    Key(Qt::Key_Home);
    Key(Qt::Key_Delete);
    EXPECT_EQ(line->text(), typed.mid(1)) << where;
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line->text(), typed) << where << ": Ctrl+Z after Del";
    EXPECT_EQ(record.text, typed.toStdString()) << where;
}

void TypeIntoAll(Form& form, QWidget& root, Fields& seen) {
    for (Control* control : form.controls) {
        if (!form.loaded)
            return;
        const auto* const field = dynamic_cast<TextField*>(control);
        const auto* const box = dynamic_cast<ComboBox*>(control);
        if ((field == nullptr || field->multiLine || field->locked) &&
            (box == nullptr || !box->editable))
            continue;
        auto* const widget = root.findChild<QWidget*>(QString::fromStdString(control->name));
        ASSERT_NE(widget, nullptr) << control->name;
        const bool numeric = IsNumeric(field != nullptr ? field->onKeyPress : box->onKeyPress);
        ++(numeric ? seen.numbers : seen.texts);
        TypeInto(*widget, *control, numeric);
    }
}

TEST(Typing, EveryFieldOfEveryDialogShowsAndRecordsWhatIsTyped) {
    const ScriptedHost restore;
    Application program;
    host().messageBox = [](const MessageBox&) { return Answer::No; };
    const QTemporaryDir folder;
    host().programDirectory = folder.path().toStdString();
    WriteFileAtomically(folder.path().toStdString() + "/t.csv", "t;c(A)\n1;2\n");
    program.Start("");
    Settle();
    auto& desktop = program.state().desktop;
    auto& model = static_cast<frmZorModel&>(*FindForm(desktop, "frmZorModel"));
    auto& import = static_cast<frmImportText&>(*FindForm(desktop, "frmImportText"));
    Fields seen;
    const auto visit = [&](Form& form) {
        const auto type = [&] {
            if (QWidget* const root = program.windows().WidgetOf(form))
                TypeIntoAll(form, *root, seen);
        };
        import.path = folder.path().toStdString() + "/t.csv"; // else it asks for a file
        if (form.modal)
            QTimer::singleShot(0, qApp, [&] {
                type();
                HideForm(form);
            });
        ShowForm(desktop, form);
        if (!form.modal)
            type();
        UnloadForm(desktop, form);
        Settle();
    };
    for (const int option : {2, 10, 19}) {
        Press(model.optTyp, option);
        for (Form* form : std::vector<Form*>(desktop.forms))
            if (form != &program.record() && form != &model)
                visit(*form);
    }
    EXPECT_GT(seen.numbers, 3 * 20) << "numeric fields were found";
    EXPECT_GT(seen.texts, 3) << "texts too";
}

TEST(Typing, ConstantsOfTheCourseAreTypedInOrderAndEnterMovesOn) {
    const ScriptedHost restore;
    Application program;
    const QTemporaryDir folder;
    host().programDirectory = folder.path().toStdString();
    program.Start("");
    Press(program.record().Entry("mnuctGraph"));
    Settle();
    const Form& form = *FindForm(program.state().desktop, "frmPrepareTimeDiagram");
    QWidget& dialog = *program.windows().WidgetOf(form);
    for (const char* name : {"kCombo_0", "kCombo_1"}) {
        auto& box = Child<QComboBox>(dialog, name);
        box.setFocus(Qt::TabFocusReason);
        Key(Qt::Key_A, Qt::ControlModifier);
        Keys(QStringLiteral("0.05"));
        EXPECT_EQ(box.currentText(), QStringLiteral("0.05")) << name;
        Key(Qt::Key_Return);
        EXPECT_FALSE(box.hasFocus()) << name;
    }
    EXPECT_FALSE(IsFormLoaded(program.state().desktop, "frmZGraph2D")) << "Enter drew nothing";
    Child<QPushButton>(dialog, "cmdDrawctDiagram").click();
    EXPECT_FLOAT_EQ(static_cast<float>(program.state().k[1]), 0.05F);
}

} // namespace
} // namespace zorvant
