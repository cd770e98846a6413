#include "shell/qt/binder.h"

#include "platform/host.h"
#include "shell/qt/layout_properties.h"
#include "shell/qt/qt_text.h"
#include "shell/qt/widget_looks.h"

#include <QtWidgets>

#include <stdexcept>

namespace zorvant {
namespace {

/// A handler may lead to further pushes (a focus event runs a handler); past this many rounds two
/// handlers chase each other.
constexpr int kPushRounds = 8;

struct Traffic {
    std::vector<Binder*> open;
    std::vector<const Control*> running; ///< controls whose handler is under way
    bool pushing = false;
    bool pushAgain = false;
};

Traffic& traffic() {
    static Traffic theTraffic;
    return theTraffic;
}

bool IsInput(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QPlainTextEdit*>(&widget) ||
           qobject_cast<const QTextEdit*>(&widget) ||
           qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) ||
           qobject_cast<const QTabWidget*>(&widget);
}

/// Widgets that the toolkit makes inside of others.
bool IsPartOfAnother(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    return widget.objectName().isEmpty() || widget.objectName().startsWith(u"qt_") ||
           qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
           qobject_cast<const QAbstractItemView*>(parent);
}

/// What an option shows: its own contents within what its group allows.
CommonContents ContentsOf(const Control& group, const Option& option) {
    CommonContents contents = group;
    contents.text = option.text;
    if (!option.toolTip.empty())
        contents.toolTip = option.toolTip;
    contents.visible = group.visible && option.visible;
    contents.enabled = group.enabled && option.enabled;
    contents.bold = group.bold || option.bold;
    return contents;
}

} // namespace

Binder::Binder(Form& form, QWidget& root) : QObject(&root), form_(form), root_(root) {
    for (Control* control : form.controls)
        Bind(*control);
    CheckInputs();
    if (!faults_.empty())
        throw std::runtime_error(form.name + ": " + faults_);
    if (qobject_cast<QMainWindow*>(&root) == nullptr)
        BindEscape();
    root.installEventFilter(this);
    traffic().open.push_back(this);
    PushAll();
}

Binder::~Binder() {
    detached_ = true;
    std::erase(traffic().open, this);
}

void Binder::Detach() {
    detached_ = true;
    std::erase(traffic().open, this);
    for (QObject* widget : root_.findChildren<QObject*>())
        widget->disconnect(this);
    for (QObject* own : children()) // timers, groups
        own->disconnect(this);
}

bool Binder::IsRunning(const Control* control) {
    return control != nullptr &&
           std::ranges::find(traffic().running, control) != traffic().running.end();
}

void Binder::Run(const Control* control, const Handler& handler) {
    if (IsRunning(control))
        return;
    if (handler) {
        std::vector<const Control*>& running = traffic().running;
        const std::size_t depth = running.size();
        running.push_back(control);
        try {
            handler();
        } catch (const std::exception& failure) {
            ShowMessage(failure.what(), "Execution not possible", Icon::Critical);
        }
        running.resize(depth);
    }
    PushAll();
}

void Binder::PushAll() {
    Traffic& t = traffic();
    if (t.pushing) {
        t.pushAgain = true;
        return;
    }
    t.pushing = true;
    for (int round = 0; round < kPushRounds; ++round) {
        t.pushAgain = false;
        for (std::size_t i = 0; i < t.open.size(); ++i) // a handler may open or close forms
            t.open[i]->Push();
        if (!t.pushAgain)
            break;
    }
    t.pushing = false;
}

void Binder::Push() {
    if (detached_)
        return;
    if (form_.onRefresh)
        form_.onRefresh();
    PushWindow();
    for (Link& link : links_)
        PushLooks(link);
    for (const auto& push : pushes_)
        push();
    PushFocus();
    if (onPushed)
        onPushed();
}

void Binder::PushWindow() {
    if (const QString title = ToQt(form_.caption).trimmed(); root_.windowTitle() != title)
        root_.setWindowTitle(title);
    if (root_.isEnabled() != form_.enabled)
        root_.setEnabled(form_.enabled);
}

void Binder::PushLooks(Link& link) {
    const auto show = [&link](const CommonContents& wanted) {
        if (link.shown == wanted)
            return;
        ShowCommon(*link.widget, wanted, link.shown);
        link.shown = wanted;
    };
    if (link.option == nullptr)
        show(*link.control);
    else
        show(ContentsOf(*link.control, *link.option));
}

void Binder::PushFocus() {
    const Control* const wanted = std::exchange(form_.setFocus, nullptr);
    if (wanted == nullptr)
        return;
    for (const Link& link : links_) {
        const auto* const radio = qobject_cast<QRadioButton*>(link.widget);
        if (link.control != wanted || (radio != nullptr && !radio->isChecked()))
            continue;
        link.widget->setFocus(Qt::OtherFocusReason);
        return;
    }
}

void Binder::LinkWidget(Control& control, QWidget& widget, const Option* option) {
    ApplyLayoutProperties(widget);
    known_.insert(&widget);
    links_.push_back({&control, option, &widget, std::nullopt});
}

void Binder::CheckInputs() {
    for (const QWidget* widget : root_.findChildren<QWidget*>())
        if (IsInput(*widget) && !IsPartOfAnother(*widget) && !known_.contains(widget))
            faults_ += "the record lacks " + FromQt(widget->objectName()) + " (" +
                       widget->metaObject()->className() + "); ";
}

void Binder::Bind(Control& control) {
    switch (control.kind) {
    case Kind::Label:
        return BindLabel(static_cast<Label&>(control));
    case Kind::Frame:
        return BindFrame(static_cast<Frame&>(control));
    case Kind::TextField:
        return BindTextField(static_cast<TextField&>(control));
    case Kind::Button:
        return BindButton(static_cast<Button&>(control));
    case Kind::CheckBox:
        return BindCheckBox(static_cast<CheckBox&>(control));
    case Kind::OptionGroup:
        return BindOptionGroup(static_cast<OptionGroup&>(control));
    case Kind::ComboBox:
        return BindComboBox(static_cast<ComboBox&>(control));
    case Kind::ListBox:
        return BindListBox(static_cast<ListBox&>(control));
    case Kind::Slider:
        return BindSlider(static_cast<Slider&>(control));
    case Kind::UpDown:
        return BindUpDown(static_cast<UpDown&>(control));
    case Kind::Grid:
        return BindGrid(static_cast<Grid&>(control));
    case Kind::TabPanel:
        return BindTabPanel(static_cast<TabPanel&>(control));
    case Kind::Timer:
        return BindTimer(static_cast<Timer&>(control));
    case Kind::MenuEntry:
        return BindMenuEntry(static_cast<MenuEntry&>(control));
    case Kind::Picture:
        return BindPicture(static_cast<Picture&>(control));
    }
}

} // namespace zorvant
