#include "platform/controls.h"

#include "platform/encoding.h"
#include "platform/host.h"

#include <algorithm>

namespace zorvant {

Control::Control(Form& owner, Kind controlKind, std::string controlName, std::string controlText)
    : form(owner), kind(controlKind), name(std::move(controlName)) {
    text = std::move(controlText);
    owner.controls.push_back(this);
}

OptionGroup::OptionGroup(Form& owner, std::string controlName,
                         std::initializer_list<const char*> texts, int firstIndex)
    : ControlOf(owner, std::move(controlName)), first(firstIndex) {
    for (const char* optionText : texts)
        options.push_back({.text = optionText, .toolTip = {}});
}

TabPanel::TabPanel(Form& owner, std::string controlName, std::initializer_list<const char*> texts)
    : ControlOf(owner, std::move(controlName)) {
    for (const char* pageText : texts)
        pages.push_back({.text = pageText});
}

Form::Form(std::string formName, std::string formCaption)
    : name(std::move(formName)), caption(std::move(formCaption)) {}

void Form::Declare() {
    declared_ = true;
    declaredCaption_ = caption;
    for (Control* control : controls)
        control->Declare();
}

void Form::Reset() {
    if (!declared_)
        return;
    caption = declaredCaption_;
    setFocus = nullptr;
    for (Control* control : controls)
        control->Reset();
}

Control* Form::Find(const std::string& controlName) {
    const auto found =
        std::ranges::find_if(controls, [&](const Control* c) { return c->name == controlName; });
    return found == controls.end() ? nullptr : *found;
}

void Form::Omit(Control& control) {
    std::erase(controls, &control);
}

namespace {

void Run(const Handler& handler) {
    if (handler)
        handler();
}

bool Usable(const Control& control) {
    return control.visible && control.enabled && control.available;
}

} // namespace

void ShowForm(Desktop& desktop, Form& form) {
    if (!form.loaded) {
        form.Reset();
        form.loaded = true;
        form.hidden = false;
        if (std::ranges::find(desktop.forms, &form) == desktop.forms.end())
            desktop.forms.push_back(&form);
        Run(form.onLoad);
    }
    if (!form.loaded) // its own load event closed it
        return;
    form.hidden = false;
    std::erase(desktop.order, &form);
    desktop.order.push_back(&form);
    Run(form.onActivate); // before it is shown: a modal form is shown until it is closed
    if (form.loaded && !form.hidden)
        host().showForm(form);
}

bool UnloadForm(Desktop& desktop, Form& form) {
    if (!form.loaded)
        return true;
    bool cancel = false;
    if (form.onQueryUnload)
        form.onQueryUnload(cancel);
    if (cancel)
        return false;
    if (!form.loaded) // the question closed it
        return true;
    Run(form.onUnload);
    form.loaded = false;
    std::erase(desktop.order, &form);
    host().closeForm(form);
    return true;
}

void HideForm(Form& form) {
    if (!form.loaded)
        return;
    form.hidden = true;
    host().hideForm(form);
}

Form* FindForm(const Desktop& desktop, const std::string& formName) {
    const auto found =
        std::ranges::find_if(desktop.forms, [&](const Form* f) { return f->name == formName; });
    return found == desktop.forms.end() ? nullptr : *found;
}

bool IsFormLoaded(const Desktop& desktop, const std::string& formName) {
    const Form* form = FindForm(desktop, formName);
    return form != nullptr && form->loaded;
}

void EnableControl(const Desktop& desktop, const std::string& formName,
                   const std::string& controlName, bool enabled) {
    Form* const form = FindForm(desktop, formName);
    Control* const control = form == nullptr ? nullptr : form->Find(controlName);
    if (control != nullptr)
        control->enabled = enabled;
}

void Press(Button& button) {
    if (Usable(button))
        Run(button.onClick);
}

void Press(MenuEntry& entry) {
    if (Usable(entry))
        Run(entry.onClick);
}

void Press(OptionGroup& group, int index) {
    const Option& option = group(index);
    if (!Usable(group) || !option.visible || !option.enabled)
        return;
    group.selected = index;
    if (group.onClick)
        group.onClick(index);
}

void Press(CheckBox& box, bool checked) {
    if (!Usable(box))
        return;
    box.checked = checked;
    Run(box.onClick);
}

void Choose(ComboBox& box, int index) {
    if (!Usable(box))
        return;
    box.index = index;
    box.text = box.items.at(static_cast<std::size_t>(index));
    Run(box.onClick);
    if (box.editable)
        Run(box.onChange);
}

void Choose(TabPanel& panel, int index) {
    if (!Usable(panel))
        return;
    panel.selected = index;
    if (panel.onClick)
        panel.onClick(index);
}

namespace {

template <class Ranged> void MoveTo(Ranged& control, int value) {
    if (!Usable(control))
        return;
    const int bounded = std::clamp(value, control.minimum, control.maximum);
    if (bounded == control.value)
        return;
    control.value = bounded;
    Run(control.onChange);
}

/// The character at a place of a UTF-8 text; the place moves behind it. A byte that begins none
/// stands for itself.
int NextKey(const std::string& keys, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(keys[at++]);
    const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (at + static_cast<std::size_t>(following) > keys.size())
        return lead;
    int key = following == 0 ? lead : lead & (0x3F >> following);
    for (int i = 0; i < following; ++i)
        key = key << 6 | (static_cast<unsigned char>(keys[at++]) & 0x3F);
    return key;
}

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

void DropLastCharacter(std::string& text) {
    while (text.size() > 1 && ContinuesCharacter(text.back()))
        text.pop_back();
    if (!text.empty())
        text.pop_back();
}

/// What one key does to a text. Returned: whether the text changed.
bool ApplyKey(std::string& text, int key, bool multiLine, int maxLength) {
    constexpr int kBlank = 32;
    if (key == kKeyBackspace) {
        const bool change = !text.empty();
        DropLastCharacter(text);
        return change;
    }
    if (key < kBlank && !(key == kKeyEnter && multiLine))
        return false;
    if (maxLength > 0 && std::ranges::count_if(text, std::not_fn(ContinuesCharacter)) >= maxLength)
        return false;
    AppendUtf8(text, static_cast<unsigned>(key == kKeyEnter ? '\n' : key));
    return true;
}

template <class Typed>
void TypeInto(Typed& field, const std::string& keys, bool multiLine, int maxLength) {
    for (std::size_t at = 0; at < keys.size();) {
        int key = NextKey(keys, at);
        if (field.onKeyPress)
            field.onKeyPress(key);
        if (key != 0 && ApplyKey(field.text, key, multiLine, maxLength))
            Run(field.onChange);
    }
}

} // namespace

void Move(Slider& slider, int value) {
    MoveTo(slider, value);
}

void Move(UpDown& upDown, int value) {
    MoveTo(upDown, value);
}

void Type(TextField& field, const std::string& keys) {
    if (Usable(field) && !field.locked)
        TypeInto(field, keys, field.multiLine, field.maxLength);
}

void Type(ComboBox& box, const std::string& keys) {
    if (Usable(box) && box.editable)
        TypeInto(box, keys, false, 0);
}

void Enter(TextField& field) {
    if (Usable(field))
        Run(field.onGotFocus);
}

void SetText(TextField& field, const std::string& text) {
    if (field.text == text)
        return;
    field.text = text;
    Run(field.onChange);
}

void SetText(ComboBox& box, const std::string& text) {
    if (box.text == text)
        return;
    box.text = text;
    Run(box.onChange);
}

void SetChecked(CheckBox& box, bool checked) {
    if (box.checked == checked)
        return;
    box.checked = checked;
    Run(box.onClick);
}

} // namespace zorvant
