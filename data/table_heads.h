// What the headings of imported tables say: the quantity of a column, and the unit of its numbers.
#pragma once

#include <string>

namespace zorvant {

/// The field (ExpColumn) that a heading names: "Time/min", "c(A) [mol/L]", "T".
/// Returned: -1 when it names none.
int FieldOfHead(const std::string& head);

/// The unit in a heading, and how its numbers become those of the table.
struct HeadUnit {
    std::string text;              ///< as written; empty: none
    bool known = true;             ///< false: the numbers are taken as they are
    double factor = 1, offset = 0; ///< in mol/L, K and timeUnit: number * factor + offset
    std::string timeUnit;          ///< word of the time unit in it; empty: none
    int timePower = 0;             ///< 1: a time, -1: per time

    /// The number in the units of a table with another time unit.
    double In(const std::string& tableUnit, double number) const;
    /// Whether numbers change on their way into such a table.
    bool Converts(const std::string& tableUnit) const;
};

/// The unit that a heading gives for a field.
HeadUnit UnitOfHead(const std::string& head, int field);

} // namespace zorvant
