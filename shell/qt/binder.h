// Connects the record of a form with the widgets of its window, both ways, by object name.
//
// From widget to record: what the user does is written into the record, then the control's handler
// runs. From record to widget: after every handler each open form is pushed, and only what differs
// is written; writing raises no events. So a handler sees and writes records alone.
//
// The widget of a control carries its name; option i of a group is called name_i (counted from the
// group's first index). Which widget a kind of control may be:
//
//   Label         QLabel                         Slider       QSlider, QScrollBar, QDial
//   Frame         QGroupBox, QFrame, QWidget     UpDown       QSpinBox
//   TextField     QLineEdit, QPlainTextEdit      Grid         QTableView
//   Button        QPushButton, QToolButton       TabPanel     QTabWidget
//   CheckBox      QCheckBox                      Timer        none
//   OptionGroup   QRadioButton for each option   MenuEntry    QAction (see menus.h)
//   ComboBox      QComboBox                      Picture      any; QLabel where it has a file
//   ListBox       QListWidget
//
// A hidden control keeps its room, unless its layout says otherwise (layout_properties.h).
#pragma once

#include "platform/controls.h"

#include <QObject>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QAbstractButton;
class QComboBox;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QMouseEvent;
class QPlainTextEdit;
class QTableView;
class QTabWidget;

namespace zorvant {

class KeyFilter;

class Binder : public QObject {
public:
    /// Binds and pushes once; lives as long as the window.
    /// Errors: std::runtime_error that names each control without a widget and each input widget
    ///         without a control.
    Binder(Form& form, QWidget& root);
    ~Binder() override;

    /// Ends the connection before the window goes: no event reaches the record any more.
    void Detach();
    /// Records to widgets, of this form / of all open ones.
    void Push();
    static void PushAll();
    /// Runs a handler for a control: nothing when the control's handler is already under way (an
    /// event that came in while it let events happen); an exception becomes a message box; then all
    /// open forms are pushed. With no handler just the latter.
    static void Run(const Control* control, const Handler& handler);

    Form& form() const { return form_; }
    /// Called after each push of this form.
    std::function<void()> onPushed;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// One control (or one option of a group) and what shows it.
    struct Link {
        Control* control;
        const Option* option;
        QWidget* widget;
        std::optional<CommonContents> shown;
    };

    /// The widget of a name and one of these classes; the lack of it is a fault.
    template <class... Widgets> QWidget* Require(const std::string& name, const char* what) {
        for (QWidget* candidate : root_.findChildren<QWidget*>(QString::fromStdString(name)))
            if ((qobject_cast<Widgets*>(candidate) || ...))
                return candidate;
        faults_ += "the window lacks " + name + " (" + what + "); ";
        return nullptr;
    }
    void LinkWidget(Control& control, QWidget& widget, const Option* option = nullptr);
    void CheckInputs();
    void Bind(Control& control);
    void BindLabel(Label& label);
    void BindFrame(Frame& frame);
    void BindTextField(TextField& field);
    void BindButton(Button& button);
    void BindCheckBox(CheckBox& box);
    void BindOptionGroup(OptionGroup& group);
    void BindComboBox(ComboBox& box);
    void BindListBox(ListBox& box);
    void BindSlider(Slider& slider);
    void BindUpDown(UpDown& upDown);
    void BindGrid(Grid& grid);
    void BindTabPanel(TabPanel& panel);
    void BindTimer(Timer& timer);
    void BindMenuEntry(MenuEntry& entry);
    void BindPicture(Picture& picture);
    void BindEscape();

    void BindLine(TextField& field, QLineEdit& line);
    void BindLines(TextField& field, QPlainTextEdit& edit);
    void BindLineOf(ComboBox& box, QComboBox& widget);
    KeyFilter* FilterKeys(QWidget& editor, Control& control, const KeyHandler& handler);
    void Edited(Control& control, bool announced, const KeyHandler& announce,
                const Handler& onChange);
    void TakeFromGrid(Grid& grid, QTableView& view, const std::shared_ptr<bool>& pushing);
    void TakeFromPanel(TabPanel& panel, QTabWidget& widget);

    void PushWindow();
    static void PushLooks(Link& link);
    void PushFocus();

    static bool IsRunning(const Control* control);
    const Link* LinkOf(const QObject* watched) const;
    QAbstractButton* UsableButton(bool ButtonContents::*role) const;
    bool RootEvent(QEvent& event);
    void FocusMoved(const QObject* watched, const QFocusEvent& event);
    bool KeyPressed(const QObject* watched, QKeyEvent& event);
    void Clicked(const QObject* watched, const QMouseEvent& event);
    bool KeyOnList(Control& control, QWidget& widget, QKeyEvent& event);

    Form& form_;
    QWidget& root_;
    std::vector<Link> links_;
    /// The contents that a kind of control has of its own.
    std::vector<std::function<void()>> pushes_;
    std::set<const QObject*> known_; ///< widgets that have a record
    std::string faults_;             ///< collected while binding
    bool detached_ = false;
};

} // namespace zorvant
