#pragma once
#include <cstddef>
#include <optional>
#include <vector>

#include "platform/Geometry.h"

namespace tarvel {

/// How high the texts of one notice are in the width that the layout gives them. None for a text that the
/// notice lacks.
struct NoticeHeights {
  std::optional<double> summary;
  std::optional<double> detail;
  double dateLine = 0.0;
};

/// Where the rows of a list of notices stand: one below the other, each as high as its texts. Painting, hits
/// and scrolling read the same places. y grows downwards.
class NoticeLayout {
 public:
  static constexpr double kTextInset = 20.0;  ///< of texts at either side
  static constexpr double kLineInset = 10.0;  ///< of the lines below the rows
  static constexpr double kRowMargin = 10.0;  ///< above and below a row's texts, and below the last row
  static constexpr double kTextGap = 6.0;

  /// The width of the texts in a list of that width; more than 0.
  static double textWidth(double width);

  /// No rows.
  NoticeLayout() : NoticeLayout(std::vector<NoticeHeights>()) {}
  explicit NoticeLayout(const std::vector<NoticeHeights>& rows);

  std::size_t rowCount() const { return rows_.size(); }
  /// The top of every row, and the bottom of the last.
  const std::vector<double>& offsets() const { return offsets_; }
  /// At least as high as the room around it.
  double viewHeight(double roomHeight) const;
  Rect rowRect(std::size_t row, double width) const;
  /// The row at that height; one that ends there counts as well as the one that begins. None below the rows.
  std::optional<std::size_t> rowAt(double y) const;

  /// The places of a row's texts in a list of that width.
  struct Texts {
    std::optional<Rect> summary;
    std::optional<Rect> detail;
    Rect dateLine;
  };
  Texts textsOf(std::size_t row, double width) const;

 private:
  std::vector<NoticeHeights> rows_;
  std::vector<double> offsets_;
};

}  // namespace tarvel
