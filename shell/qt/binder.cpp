#include "shell/qt/binder.h"

#include "platform/host.h"
#include "shell/qt/key_filter.h"
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

bool IsRunning(const Control* control) {
    return control != nullptr &&
           std::ranges::find(traffic().running, control) != traffic().running.end();
}

/// Lines in records end in CR LF, in widgets in LF.
QString ToLines(const std::string& text) {
    return ToQt(text).remove(u'\r');
}
std::string FromLines(QString text) {
    return FromQt(text.replace(u'\n', QStringLiteral("\r\n")));
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
    if (const QString title = ToQt(form_.caption).trimmed(); root_.windowTitle() != title)
        root_.setWindowTitle(title);
    if (root_.isEnabled() != form_.enabled)
        root_.setEnabled(form_.enabled);
    for (Link& link : links_) {
        if (link.option == nullptr) {
            if (link.shown == static_cast<const CommonContents&>(*link.control))
                continue;
            ShowCommon(*link.widget, *link.control, link.shown);
            link.shown = *link.control;
            continue;
        }
        CommonContents wanted = *link.control;
        wanted.text = link.option->text;
        if (!link.option->toolTip.empty())
            wanted.toolTip = link.option->toolTip;
        wanted.visible = wanted.visible && link.option->visible;
        wanted.enabled = wanted.enabled && link.option->enabled;
        wanted.bold = wanted.bold || link.option->bold;
        if (link.shown == wanted)
            continue;
        ShowCommon(*link.widget, wanted, link.shown);
        link.shown = std::move(wanted);
    }
    for (const auto& push : pushes_)
        push();
    PushFocus();
    if (onPushed)
        onPushed();
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
    if (!widget.property("collapses").toBool()) {
        QSizePolicy policy = widget.sizePolicy();
        policy.setRetainSizeWhenHidden(true); // else showing a control later squeezes the others
        widget.setSizePolicy(policy);
    }
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

void Binder::BindLabel(Label& label) {
    auto* const widget = qobject_cast<QLabel*>(Require<QLabel>(label.name, "label"));
    if (widget == nullptr)
        return;
    LinkWidget(label, *widget);
    widget->setTextFormat(Qt::PlainText);
    widget->installEventFilter(this);
    pushes_.emplace_back([&label, widget] {
        const QString text = widget->buddy() == nullptr ? ToLines(label.text)
                                                        : WithMnemonic(label.text).remove(u'\r');
        if (widget->text() != text)
            widget->setText(text);
    });
}

void Binder::BindFrame(Frame& frame) {
    QWidget* const widget = Require<QGroupBox, QFrame, QWidget>(frame.name, "frame");
    if (widget == nullptr)
        return;
    LinkWidget(frame, *widget);
    if (auto* const box = qobject_cast<QGroupBox*>(widget))
        pushes_.emplace_back([&frame, box] {
            if (const QString text = WithMnemonic(frame.text).trimmed(); box->title() != text)
                box->setTitle(text);
        });
}

KeyFilter* Binder::FilterKeys(QWidget& editor, Control& control, const KeyHandler& handler) {
    auto filter = [this, &control, &handler](int& key) {
        if (detached_ || !handler)
            return;
        if (IsRunning(&control)) {
            key = 0;
            return;
        }
        Run(&control, [&] { handler(key); });
    };
    return new KeyFilter(editor, filter);
}

namespace {

/// Text into a field without moving the cursor of who is typing there.
void ShowText(QLineEdit& line, const QString& text) {
    if (line.text() == text)
        return;
    const QSignalBlocker quiet(&line);
    const int cursor = line.hasFocus() ? line.cursorPosition() : 0;
    line.setText(text);
    line.setCursorPosition(cursor);
}

/// A mouse press that follows the focus would take a selection away again, so it is made after it.
void SelectAll(QLineEdit& line) {
    line.selectAll();
    QTimer::singleShot(0, &line, [&line] {
        if (line.hasFocus())
            line.selectAll();
    });
}

} // namespace

void Binder::BindTextField(TextField& field) {
    QWidget* const widget = Require<QLineEdit, QPlainTextEdit>(field.name, "text field");
    if (widget == nullptr)
        return;
    LinkWidget(field, *widget);
    widget->installEventFilter(this);
    KeyFilter* const keys = FilterKeys(*widget, field, field.onKeyPress);

    if (auto* const line = qobject_cast<QLineEdit*>(widget)) {
        connect(line, &QLineEdit::textEdited, this, [this, &field, keys](const QString& text) {
            keys->NoteEdited();
            field.text = FromQt(text);
            Run(&field, field.onChange);
        });
        pushes_.emplace_back([&field, line] {
            ShowText(*line, ToQt(field.text));
            if (line->isReadOnly() != field.locked)
                line->setReadOnly(field.locked);
            if (field.maxLength > 0 && line->maxLength() != field.maxLength)
                line->setMaxLength(field.maxLength);
            if (std::exchange(field.selectAll, false))
                SelectAll(*line);
        });
        return;
    }

    auto* const edit = qobject_cast<QPlainTextEdit*>(widget);
    edit->setTabChangesFocus(true);
    // Texts may be long: what is shown is remembered, not read back at each push.
    auto shown = std::make_shared<std::optional<std::string>>();
    connect(edit, &QPlainTextEdit::textChanged, this, [this, &field, keys, edit, shown] {
        keys->NoteEdited();
        field.text = FromLines(edit->toPlainText());
        *shown = field.text;
        Run(&field, field.onChange);
    });
    pushes_.emplace_back([&field, edit, shown] {
        if (*shown != field.text) {
            const QSignalBlocker quiet(edit);
            *shown = field.text;
            if (const QString text = ToLines(field.text); edit->toPlainText() != text) {
                const int position = edit->textCursor().position();
                edit->setPlainText(text);
                if (edit->hasFocus()) {
                    QTextCursor cursor = edit->textCursor();
                    cursor.setPosition(std::min(position, static_cast<int>(text.size())));
                    edit->setTextCursor(cursor);
                }
            }
        }
        if (edit->isReadOnly() != field.locked)
            edit->setReadOnly(field.locked);
        if (std::exchange(field.selectAll, false))
            edit->selectAll();
    });
}

void Binder::BindButton(Button& button) {
    auto* const widget =
        qobject_cast<QAbstractButton*>(Require<QPushButton, QToolButton>(button.name, "button"));
    if (widget == nullptr)
        return;
    LinkWidget(button, *widget);
    connect(widget, &QAbstractButton::clicked, this,
            [this, &button] { Run(&button, button.onClick); });
    auto* const push = qobject_cast<QPushButton*>(widget);
    if (push != nullptr)
        push->setAutoDefault(true); // Enter presses the button that has the focus
    if (!button.shortcut.empty()) {
        auto* const key = new QShortcut(QKeySequence(ToQt(button.shortcut)), &root_);
        key->setContext(Qt::WidgetWithChildrenShortcut);
        connect(key, &QShortcut::activated, widget, &QAbstractButton::click);
    }
    pushes_.emplace_back([&button, widget, push] {
        if (const QString text = WithMnemonic(button.text); widget->text() != text)
            widget->setText(text);
        if (push != nullptr && push->isDefault() != button.isDefault)
            push->setDefault(button.isDefault);
    });
}

void Binder::BindCheckBox(CheckBox& box) {
    auto* const widget = qobject_cast<QCheckBox*>(Require<QCheckBox>(box.name, "check box"));
    if (widget == nullptr)
        return;
    LinkWidget(box, *widget);
    connect(widget, &QCheckBox::clicked, this, [this, &box](bool checked) {
        box.checked = checked;
        Run(&box, box.onClick);
    });
    pushes_.emplace_back([&box, widget] {
        if (const QString text = WithMnemonic(box.text); widget->text() != text)
            widget->setText(text);
        if (widget->isChecked() != box.checked)
            widget->setChecked(box.checked);
    });
}

void Binder::BindOptionGroup(OptionGroup& group) {
    auto* const buttons = new QButtonGroup(this);
    for (std::size_t i = 0; i < group.options.size(); ++i) {
        const int index = group.first + static_cast<int>(i);
        const std::string name = group.name + "_" + std::to_string(index);
        auto* const radio = qobject_cast<QRadioButton*>(Require<QRadioButton>(name, "option"));
        if (radio == nullptr)
            continue;
        buttons->addButton(radio, index);
        LinkWidget(group, *radio, &group.options[i]);
        pushes_.emplace_back([&option = group.options[i], radio] {
            if (const QString text = WithMnemonic(option.text); radio->text() != text)
                radio->setText(text);
        });
    }
    connect(buttons, &QButtonGroup::idClicked, this, [this, &group](int index) {
        if (std::exchange(group.selected, index) == index)
            return;
        Run(&group, [&] {
            if (group.onClick)
                group.onClick(index);
        });
    });
    pushes_.emplace_back([&group, buttons] {
        if (buttons->checkedId() == group.selected)
            return;
        if (QAbstractButton* const chosen = buttons->button(group.selected)) {
            chosen->setChecked(true);
            return;
        }
        buttons->setExclusive(false);
        for (QAbstractButton* radio : buttons->buttons())
            radio->setChecked(false);
        buttons->setExclusive(true);
    });
}

void Binder::BindComboBox(ComboBox& box) {
    auto* const widget = qobject_cast<QComboBox*>(Require<QComboBox>(box.name, "combo box"));
    if (widget == nullptr)
        return;
    LinkWidget(box, *widget);
    widget->installEventFilter(this);
    widget->setFocusPolicy(Qt::StrongFocus);
    if (widget->isEditable() != box.editable)
        widget->setEditable(box.editable);
    connect(widget, &QComboBox::activated, this, [this, &box](int index) {
        if (index < 0 || static_cast<std::size_t>(index) >= box.items.size())
            return;
        box.index = index;
        box.text = box.items[static_cast<std::size_t>(index)];
        Run(&box, [&] {
            if (box.onClick)
                box.onClick();
            if (box.editable && box.onChange)
                box.onChange();
        });
    });
    if (QLineEdit* const line = widget->lineEdit()) {
        widget->setInsertPolicy(
            QComboBox::NoInsert);      // what is remembered is the handler's business
        widget->setCompleter(nullptr); // "1" is not meant as "1.5"
        disconnect(line, &QLineEdit::returnPressed, nullptr, nullptr); // Enter chooses no entry
        line->installEventFilter(this);
        KeyFilter* const keys = FilterKeys(*line, box, box.onKeyPress);
        connect(line, &QLineEdit::textEdited, this, [this, &box, keys](const QString& text) {
            keys->NoteEdited();
            box.text = FromQt(text);
            box.index = -1;
            Run(&box, box.onChange);
        });
    }
    pushes_.emplace_back([&box, widget, shown = std::vector<std::string>()]() mutable {
        const QSignalBlocker quiet(widget);
        if (shown != box.items) {
            shown = box.items;
            widget->clear();
            for (const std::string& item : shown)
                widget->addItem(ToQt(item));
        }
        if (QLineEdit* const line = widget->lineEdit()) {
            ShowText(*line, ToQt(box.text));
            if (std::exchange(box.selectAll, false))
                SelectAll(*line);
        } else if (widget->currentIndex() != box.index) {
            widget->setCurrentIndex(box.index);
        }
    });
}

void Binder::BindListBox(ListBox& box) {
    auto* const widget = qobject_cast<QListWidget*>(Require<QListWidget>(box.name, "list"));
    if (widget == nullptr)
        return;
    LinkWidget(box, *widget);
    widget->installEventFilter(this);
    connect(widget, &QListWidget::currentRowChanged, this, [this, &box](int row) {
        box.index = row;
        Run(&box, box.onClick);
    });
    connect(widget, &QListWidget::itemDoubleClicked, this,
            [this, &box] { Run(&box, box.onDoubleClick); });
    pushes_.emplace_back([&box, widget, shown = std::vector<std::string>()]() mutable {
        const QSignalBlocker quiet(widget);
        if (shown != box.items) {
            shown = box.items;
            widget->clear();
            for (const std::string& item : shown)
                widget->addItem(ToQt(item));
        }
        if (widget->currentRow() != box.index)
            widget->setCurrentRow(box.index);
    });
}

namespace {

/// Writes the range and the value of a slider or a number field where they differ.
template <class Widget> void ShowRange(Widget& widget, const RangeContents& range) {
    const QSignalBlocker quiet(&widget);
    if (widget.minimum() != range.minimum || widget.maximum() != range.maximum)
        widget.setRange(range.minimum, range.maximum);
    if (widget.singleStep() != range.step)
        widget.setSingleStep(range.step);
    if (widget.value() != range.value)
        widget.setValue(range.value);
}

} // namespace

void Binder::BindSlider(Slider& slider) {
    auto* const widget =
        qobject_cast<QAbstractSlider*>(Require<QAbstractSlider>(slider.name, "slider"));
    if (widget == nullptr)
        return;
    LinkWidget(slider, *widget);
    widget->installEventFilter(this);
    connect(widget, &QAbstractSlider::valueChanged, this, [this, &slider](int value) {
        slider.value = value;
        Run(&slider, slider.onChange);
    });
    pushes_.emplace_back([&slider, widget] { ShowRange(*widget, slider); });
}

void Binder::BindUpDown(UpDown& upDown) {
    auto* const widget = qobject_cast<QSpinBox*>(Require<QSpinBox>(upDown.name, "number field"));
    if (widget == nullptr)
        return;
    LinkWidget(upDown, *widget);
    widget->installEventFilter(this);
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->setKeyboardTracking(false); // a number counts when it is complete
    connect(widget, &QSpinBox::valueChanged, this, [this, &upDown](int value) {
        upDown.value = value;
        Run(&upDown, upDown.onChange);
    });
    pushes_.emplace_back([&upDown, widget] { ShowRange(*widget, upDown); });
}

void Binder::BindTabPanel(TabPanel& panel) {
    auto* const widget = qobject_cast<QTabWidget*>(Require<QTabWidget>(panel.name, "tab panel"));
    if (widget == nullptr)
        return;
    if (widget->count() != static_cast<int>(panel.pages.size())) {
        faults_ += panel.name + " has " + std::to_string(widget->count()) +
                   " pages in the window, " + std::to_string(panel.pages.size()) +
                   " in the record; ";
        return;
    }
    LinkWidget(panel, *widget);
    connect(widget, &QTabWidget::currentChanged, this, [this, &panel](int index) {
        panel.selected = index;
        Run(&panel, [&] {
            if (panel.onClick)
                panel.onClick(index);
        });
    });
    pushes_.emplace_back([&panel, widget] {
        const QSignalBlocker quiet(widget);
        for (int i = 0; i < widget->count(); ++i) {
            const TabPage& page = panel.pages[static_cast<std::size_t>(i)];
            if (const QString text = WithMnemonic(page.text); widget->tabText(i) != text)
                widget->setTabText(i, text);
            if (widget->isTabVisible(i) != page.visible)
                widget->setTabVisible(i, page.visible);
            if (widget->isTabEnabled(i) != page.enabled)
                widget->setTabEnabled(i, page.enabled);
        }
        if (widget->currentIndex() != panel.selected)
            widget->setCurrentIndex(panel.selected);
    });
}

void Binder::BindTimer(Timer& timer) {
    auto* const clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, [this, &timer] { Run(&timer, timer.onTick); });
    pushes_.emplace_back([&timer, clock] {
        const bool on = timer.enabled && timer.interval > 0;
        if (on && (!clock->isActive() || clock->interval() != timer.interval))
            clock->start(timer.interval);
        else if (!on)
            clock->stop();
    });
}

void Binder::BindMenuEntry(MenuEntry& entry) {
    auto* const action = root_.findChild<QAction*>(ToQt(entry.name));
    if (action == nullptr) {
        faults_ += "the window lacks " + entry.name + " (menu entry); ";
        return;
    }
    connect(action, &QAction::triggered, this, [this, &entry] { Run(&entry, entry.onClick); });
    if (action->menu() != nullptr)
        connect(action->menu(), &QMenu::aboutToShow, this,
                [this, &entry] { Run(&entry, entry.onOpen); });
    pushes_.emplace_back([&entry, action, shown = std::optional<CommonContents>()]() mutable {
        if (shown != entry) {
            ShowCommon(*action, entry);
            shown = entry;
        }
        if (entry.checked && !action->isCheckable())
            action->setCheckable(true);
        if (action->isChecked() != entry.checked)
            action->setChecked(entry.checked);
    });
}

void Binder::BindPicture(Picture& picture) {
    QWidget* const widget = Require<QWidget>(picture.name, "picture");
    if (widget == nullptr)
        return;
    LinkWidget(picture, *widget);
    widget->installEventFilter(this);
    auto* const label = qobject_cast<QLabel*>(widget);
    if (label == nullptr)
        return; // painted by its own class
    pushes_.emplace_back([&picture, label, shown = std::string()]() mutable {
        if (std::exchange(shown, picture.file) == picture.file)
            return;
        const QIcon drawing(QStringLiteral(":/pictures/") + ToQt(picture.file));
        label->setPixmap(drawing.pixmap(label->size()));
    });
}

} // namespace zorvant
