// What a layout says by dynamic properties of its widgets and a record need not know:
//
//   collapses   a hidden widget gives its room away; else the room is kept, so that showing it
//               later moves nothing
//   widest      the longest text that a label shows, or several parted by "|": it is never
//               narrower, so that a change of its text moves nothing
//   digits      a field for a number is as wide as that many characters, all of them alike
//   maximizes   on the root of a window: it can fill the whole work area (see form_windows.h)
#pragma once

#include <QWidget>

namespace zorvant {

void ApplyLayoutProperties(QWidget& widget);

} // namespace zorvant
