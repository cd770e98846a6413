#include "dialogs/common/numeric_field.h"

#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

/// How many values a list remembers.
constexpr std::size_t kRemembered = 7;

bool IsOpen(const Control& field) {
    const auto* const text = dynamic_cast<const TextField*>(&field);
    return field.visible && field.enabled && field.available && !(text != nullptr && text->locked);
}

/// Copying and pasting pass: what is pasted runs through the change of the field.
void FilterKey(int& key, const FieldWalk* walk, const Control& field) {
    if (key == kKeyCopy || key == kKeyPaste || key == kKeyCut)
        return;
    if (key == kKeyEnter && walk != nullptr)
        walk->MoveOn(field);
    if (key == kKeyEnter || !FilterNumericKey(key))
        key = 0;
}

template <class Field> void Wire(Field& field, FieldWalk* walk, TakeNumber take) {
    if (walk != nullptr)
        walk->Add(field);
    field.onGotFocus = [&field] { field.selectAll = true; };
    field.onKeyPress = [&field, walk](int& key) { FilterKey(key, walk, field); };
    field.onChange = [&field, take = std::move(take)] {
        field.text = CommasToPoints(field.text);
        if (take)
            take(Val(field.text));
    };
}

} // namespace

void FieldWalk::MoveOn(const Control& from) const {
    const auto here = std::find(fields_.begin(), fields_.end(), &from);
    if (here == fields_.end())
        return;
    auto next =
        std::find_if(here + 1, fields_.end(), [](Control* field) { return IsOpen(*field); });
    if (next == fields_.end())
        next = std::find_if(fields_.begin(), here, [](Control* field) { return IsOpen(*field); });
    (*next)->form.setFocus = *next;
}

void MakeNumeric(TextField& field, FieldWalk* walk, TakeNumber take) {
    Wire(field, walk, std::move(take));
}

void MakeNumeric(ComboBox& box, FieldWalk* walk, TakeNumber take) {
    box.editable = true;
    Wire(box, walk, std::move(take));
}

void Remember(ComboBox& box) {
    if (box.text.empty())
        return;
    std::erase_if(box.items,
                  [value = Val(box.text)](const std::string& item) { return Val(item) == value; });
    box.items.push_back(box.text);
    if (box.items.size() > kRemembered)
        box.items.erase(box.items.begin());
    box.index = static_cast<int>(box.items.size()) - 1;
}

} // namespace zorvant
