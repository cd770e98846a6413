// Fields for numbers: which keys they take, where Enter leads, what they remember.
#pragma once

#include "platform/controls.h"

#include <functional>
#include <vector>

namespace zorvant {

/// Fields that Enter leads through, in the order in which they were added.
class FieldWalk {
public:
    void Add(Control& field) { fields_.push_back(&field); }
    /// Asks for the focus for the next field that is visible, enabled and not locked; behind the
    /// last one the first follows.
    void MoveOn(const Control& from) const;

private:
    std::vector<Control*> fields_;
};

using TakeNumber = std::function<void(double)>;

/// Makes a field numeric: it drops what belongs to no number, turns a comma into a point, is
/// selected as a whole when it gets the focus, leads on by Enter, and hands out its number at every
/// change.
/// Given:    walk  the fields that it belongs to, behind those added before; nullptr: none, Enter
///                 then does nothing
///           take  called with the number at the head of the text, 0 for an empty one
void MakeNumeric(TextField& field, FieldWalk* walk, TakeNumber take = {});
void MakeNumeric(ComboBox& box, FieldWalk* walk, TakeNumber take = {});

/// Lets a list remember what stands in its field, for the latest seven different values, and marks
/// it there.
void Remember(ComboBox& box);

} // namespace zorvant
