// Undo and redo for editors of tables: a named step for each change, with the table as it was
// before and after.
//
// A table is kept as columns in pieces; a piece that did not change is shared with the step before.
// One changed cell of a table of 32767 rows so costs 8 KB, a sorting as much as the columns that
// hold something: a hundred sortings of times and concentrations take 50 MB, and the worst there is
// (a hundred rewritings of a full table with all columns) 300 MB.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zorvant {

/// Steps that can be taken back; what is older is forgotten. More need more memory, see above.
inline constexpr std::size_t kUndoSteps = 100;

/// A table of numbers at one moment.
struct TableSnapshot {
    /// Rows of a piece. Smaller: more administration; larger: one cell copies more.
    static constexpr std::size_t kPiece = 1024;
    using Piece = std::shared_ptr<const std::vector<double>>;

    std::size_t rows = 0;
    std::vector<std::vector<Piece>> columns;

    double At(std::size_t row, std::size_t column) const {
        return (*columns[column][row / kPiece])[row % kPiece];
    }
    bool operator==(const TableSnapshot& other) const {
        const auto same = [](const Piece& a, const Piece& b) { return a == b || *a == *b; };
        if (rows == 0 || rows != other.rows)
            return rows == other.rows;
        return std::ranges::equal(columns, other.columns, [&](const auto& a, const auto& b) {
            return std::ranges::equal(a, b, same);
        });
    }
};

/// Takes a snapshot.
/// Given:    rows, columns; get(row, column) from 0; like: a snapshot whose equal pieces are shared
template <class Get>
TableSnapshot TakeSnapshot(std::size_t rows, std::size_t columns, const Get& get,
                           const TableSnapshot& like) {
    TableSnapshot taken;
    taken.rows = rows;
    taken.columns.resize(columns);
    // Piece by piece: its rows stay in the cache while one column after the other is compared.
    for (std::size_t start = 0; start < rows; start += TableSnapshot::kPiece)
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t size = std::min(TableSnapshot::kPiece, rows - start);
            std::vector<TableSnapshot::Piece>& pieces = taken.columns[column];
            const std::size_t at = pieces.size();
            if (column < like.columns.size() && at < like.columns[column].size()) {
                const TableSnapshot::Piece& known = like.columns[column][at];
                bool same = known->size() == size;
                for (std::size_t i = 0; same && i < size; ++i)
                    same = (*known)[i] == get(start + i, column);
                if (same) { // nothing is copied
                    pieces.push_back(known);
                    continue;
                }
            }
            std::vector<double> piece(size);
            for (std::size_t i = 0; i < size; ++i)
                piece[i] = get(start + i, column);
            pieces.push_back(std::make_shared<const std::vector<double>>(std::move(piece)));
        }
    return taken;
}

/// The steps of an editor. State is what a step brings back; it holds a TableSnapshot.
template <class State> class UndoHistory {
public:
    struct Step {
        std::string name; ///< of the change: "sorting"
        State before, after;
    };

    /// Notes a change that was made; what had been taken back before it is forgotten.
    void Note(std::string name, State before, State after) {
        steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
        steps_.push_back({std::move(name), std::move(before), std::move(after)});
        if (steps_.size() > kUndoSteps)
            steps_.pop_front();
        done_ = steps_.size();
    }
    void Clear() {
        steps_.clear();
        done_ = 0;
    }

    /// The step that undo would take back / redo would make again; null: none.
    const Step* ToUndo() const { return done_ > 0 ? &steps_[done_ - 1] : nullptr; }
    const Step* ToRedo() const { return done_ < steps_.size() ? &steps_[done_] : nullptr; }
    /// Marks it as taken back / made again.
    void Undone() { done_ -= done_ > 0 ? 1 : 0; }
    void Redone() { done_ += done_ < steps_.size() ? 1 : 0; }

private:
    std::deque<Step> steps_;
    std::size_t done_ = 0; ///< steps that stand
};

} // namespace zorvant
