// The controls that are pressed, chosen or looked at, and their widgets.
#include "shell/qt/binder.h"
#include "shell/qt/qt_text.h"
#include "shell/qt/widget_looks.h"

#include <QtWidgets>

namespace zorvant {

void Binder::BindLabel(Label& label) {
    auto* const widget = qobject_cast<QLabel*>(Require<QLabel>(label.name, "label"));
    if (widget == nullptr)
        return;
    LinkWidget(label, *widget);
    widget->setTextFormat(Qt::PlainText);
    widget->installEventFilter(this);
    pushes_.emplace_back([&label, widget] {
        const QString text = widget->buddy() == nullptr ? ToQtLines(label.text)
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

void Binder::BindListBox(ListBox& box) {
    auto* const widget = qobject_cast<QListWidget*>(Require<QListWidget>(box.name, "list"));
    if (widget == nullptr)
        return;
    LinkWidget(box, *widget);
    widget->installEventFilter(this);
    // A list that gets the focus makes its first entry the current one; chosen is what is selected.
    connect(widget, &QListWidget::itemSelectionChanged, this, [this, widget, &box] {
        const auto chosen = widget->selectedItems();
        box.index = chosen.isEmpty() ? -1 : widget->row(chosen.front());
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
        if (QListWidgetItem* const item = widget->item(box.index))
            item->setSelected(true);
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
    TakeFromPanel(panel, *widget);
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

void Binder::TakeFromPanel(TabPanel& panel, QTabWidget& widget) {
    connect(&widget, &QTabWidget::currentChanged, this, [&panel](int index) {
        panel.selected = index;
        Run(&panel, [&] {
            if (panel.onClick)
                panel.onClick(index);
        });
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
