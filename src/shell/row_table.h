// The rows of the lesson that is being edited, of which the last is never saved.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

inline constexpr std::size_t kTableRows = 101;
/// How many of the rows a save writes.
inline constexpr std::size_t kSavedRows = 100;

/// Rows 0 to 100 without a gap, and how many are taken.
template <class Row>
class RowTable {
public:
    [[nodiscard]] const Row& operator[](std::size_t row) const { return rows_.at(row); }
    /// How many rows are taken.
    [[nodiscard]] std::size_t Count() const { return count_; }
    /// Whether another row would not be saved.
    [[nodiscard]] bool IsFull() const { return count_ >= kSavedRows; }

    /// Takes one more row; false, and nothing changed, when all are taken.
    bool Add(Row row) {
        if (count_ == kTableRows) return false;
        rows_[count_++] = std::move(row);
        return true;
    }
    /// Puts a row in the place of another.
    void Replace(std::size_t row, Row replacement) { rows_.at(row) = std::move(replacement); }
    /// Removes a row: those behind it move up, the last becomes empty.
    void Delete(std::size_t row) {
        if (row >= count_) return;
        std::move(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, rows_.end(),
                  rows_.begin() + static_cast<std::ptrdiff_t>(row));
        rows_.back() = {};
        --count_;
    }

private:
    std::array<Row, kTableRows> rows_;
    std::size_t count_ = 0;
};
