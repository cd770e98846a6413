// The table of measured values as the editor of lists sees it: its rows, what undo keeps beside
// them, and changes that were made elsewhere.
#include "data/exp_data.h"
#include "dialogs/common/time_unit_change.h"
#include "dialogs/data/frm_datedit.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

using Extent = ListState::Extent;

/// Stored columns behind the values.
constexpr int kExclude = kExpColumns, kReserved3 = kExclude + 1;

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

/// Whether a table is another one in a new time unit and nothing else.
bool IsUnitChange(const Workspace& ps, const TableSnapshot& from, int fromUnit,
                  const ListState& now) {
    const TableSnapshot& to = now.table;
    const int unit = TimeUnitIndex(now.timeUnit);
    if (unit == fromUnit || from.rows != to.rows || from.columns.size() != to.columns.size())
        return false;
    for (std::size_t column = 0; column < to.columns.size(); ++column)
        for (std::size_t row = 0; row < to.rows; ++row) {
            const double before = from.At(row, column);
            if (to.At(row, column) !=
                (column == kExpTime ? TimeColumnIn(ps, before, unit, fromUnit) : before))
                return false;
        }
    return true;
}

bool HasTimes(const TableSnapshot& table) {
    for (std::size_t row = 0; row < table.rows; ++row)
        if (table.At(row, kExpTime) != 0)
            return true;
    return false;
}

/// A unit change made elsewhere becomes a step; other changes that came from elsewhere can't be
/// taken back here.
/// Returned: whether there were any.
bool NoteChanges(frmDatedit& form, const ListState& now) {
    const std::string unitBefore = std::exchange(form.knownUnit, now.timeUnit);
    if (now.table == form.known && (unitBefore == now.timeUnit || !HasTimes(now.table)))
        return false;
    if (IsUnitChange(form.ps, form.known, TimeUnitIndex(unitBefore), now)) {
        ListState before = now, after = now;
        before.table = form.known;
        before.timeUnit = unitBefore;
        before.extent = after.extent = Extent::Unit;
        form.history.Note("unit change", std::move(before), std::move(after));
    } else {
        form.history.Clear();
    }
    form.known = now.table;
    if (!form.ps.ExpDataChanged)
        form.saved = form.known;
    ShowHistory(form);
    return true;
}

bool HoldsFile(const ListState& state) {
    return state.extent == Extent::File || state.extent == Extent::Data;
}

} // namespace

double frmDatedit::Value(int row, int column) const {
    const ExpPoint& point = ps.ExpData[Index(row)];
    if (column < kExpColumns)
        return ExpValue(point, column);
    return column == kExclude ? point.exclude
                              : static_cast<double>(column == kReserved3 ? point.res3 : point.res4);
}

void frmDatedit::SetValue(int row, int column, double value) {
    ExpPoint& point = ps.ExpData[Index(row)];
    if (column < kExpColumns)
        SetExpValue(point, column, value);
    else if (column == kExclude)
        point.exclude = static_cast<std::int16_t>(value);
    else
        (column == kReserved3 ? point.res3 : point.res4) = static_cast<float>(value);
}

std::string frmDatedit::CellText(int row, int column) const {
    return ExpCellText(ps.ExpData[Index(row)], column);
}

void frmDatedit::Resize(int rows) {
    ps.ExpData.resize(Index(std::min(rows, ps.ExpPointCount)) + 1); // rows behind are old ones
    ps.ExpData.resize(std::max<std::size_t>(Index(rows) + 1, 2));
    ps.ExpPointCount = rows;
}

void frmDatedit::Arrange(const std::vector<int>& order) {
    std::vector<ExpPoint> rows(1);
    for (const int row : order)
        rows.push_back(ps.ExpData[Index(row)]);
    rows.resize(std::max<std::size_t>(rows.size(), 2));
    ps.ExpData = std::move(rows);
    ps.ExpPointCount = static_cast<int>(order.size());
}

void frmDatedit::Keep(ListState& state) const {
    state.timeUnit = ps.TimeUnitText;
    state.comment = ps.ExpComment;
    state.lambdaInf = ps.LambdaInf;
    state.path = ps.DataFilePath;
    state.title = ps.DataFileTitle;
}

void frmDatedit::BringBack(const ListState& state, const ListState& other) {
    const int unit = TimeUnitIndex(state.timeUnit), from = TimeUnitIndex(ps.TimeUnitText);
    if (state.extent == Extent::Unit)
        ChangeTimeUnit(ps, unit, from);
    if (state.extent == Extent::File && from == TimeUnitIndex(other.timeUnit)) {
        TakeUnitOfRows(ps, state.timeUnit);
        TellUnitOfData(ps);
    }
    if (!HoldsFile(state))
        return;
    ps.ExpComment = state.comment;
    ps.LambdaInf = state.lambdaInf;
    ps.DataFilePath = state.path;
    ps.DataFileTitle = state.title;
}

void frmDatedit::RowsBroughtBack(const ListState& state) {
    // The numbers are as they were to the last digit, which converting back would not give; where
    // the unit went on without this list, its times follow.
    const int unit = TimeUnitIndex(state.timeUnit), present = TimeUnitIndex(ps.TimeUnitText);
    for (int row = 1; present != unit && row <= ps.ExpPointCount; ++row)
        ps.ExpData[Index(row)].t = TimeColumnIn(ps, ps.ExpData[Index(row)].t, present, unit);
    knownUnit = ps.TimeUnitText;
    ShowTexts(*this);
    if (HoldsFile(state)) // as a load counts its rows
        FuCheckExpData(ps);
}

void frmDatedit::NoteForeignChanges(const ListState& now) {
    NoteChanges(*this, now);
}

void frmDatedit::TakeForeignChanges() {
    if (changing || !NoteChanges(*this, StateOf(*this, Extent::Rows)))
        return;
    ShowTexts(*this);
    FillGrid(*this);
    SetEditMode(*this, ps.ExpPointCount > 0);
    SetHeading(*this, EditMode ? kHeadingEditing : kHeadingInput);
}

bool frmDatedit::MayTakeInputLine() const {
    double sum = 0;
    for (const TextField* box : boxes)
        sum += Val(box->text);
    return sum > 0;
}

std::vector<int> frmDatedit::ColumnsForPaste(int first, std::size_t count) const {
    if (IsEnzymeModel(ps.ModelId) && ps.RcSMode && first == kExpTime && count == 2)
        return {kExpTime, 2}; // r(P) and c(S), which stand beside each other in people's sheets
    return ListEditor::ColumnsForPaste(first, count);
}

} // namespace zorvant
