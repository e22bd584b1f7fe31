// A long list that a window shows. Each change counts the revision up, so that a drawer compares one number
// instead of thousands of rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace kvo {

template <class Row>
class RevisedList {
 public:
  RevisedList() = default;
  ~RevisedList() = default;
  /// There is no moving: it would empty the other list without a new revision.
  RevisedList(const RevisedList& other) = default;
  /// The rows alone: a drawer of this list knows nothing of the other one's revisions.
  RevisedList& operator=(const RevisedList& other) {
    if (this != &other) assign(other.rows_);
    return *this;
  }

  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }

  /// Above 0 and higher after each change.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }

  /// Rows that are as they were are no change.
  void assign(std::vector<Row> rows) {
    if (rows == rows_) return;
    rows_ = std::move(rows);
    ++revision_;
  }

  void append(Row row) {
    rows_.push_back(std::move(row));
    ++revision_;
  }

  /// Another row in the place of one that is there; the same is no change.
  void set(std::size_t index, Row row) {
    if (rows_[index] == row) return;
    rows_[index] = std::move(row);
    ++revision_;
  }

 private:
  std::vector<Row> rows_;
  std::uint64_t revision_ = 1;
};

}  // namespace kvo
