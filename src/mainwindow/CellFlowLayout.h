#pragma once
#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Geometry.h"

namespace tarvel {

/// Where the cells of a gallery or an album stand: rows from the top down, each filled from the left with
/// cells as wide as their pictures are at a common height, with captions below. Painting, hits, selection by
/// keys and scrolling read the same places. y grows downwards.
class CellFlowLayout {
 public:
  static constexpr double kInset = 5.0;              ///< around all rows
  static constexpr double kCaptionedFrom = 100.0;    ///< higher pictures have captions
  static constexpr double kCaptionGap = 4.0;         ///< above a caption
  static constexpr double kEmptyProportions = 0.75;  ///< width to height of a cell without a picture
  static constexpr double kLargestSide = 1'000'000.0;

  struct Metrics {
    double width = 0.0;  ///< of the room
    double photoHeight = 200.0;
    double margin = 5.0;  ///< of a cell around its picture
    friend bool operator==(const Metrics&, const Metrics&) = default;
  };
  struct Row {
    double yOffset = 0.0;          ///< its top
    double captionBoundary = 0.0;  ///< where in the row the pictures end
    std::size_t startIndex = 0;    ///< its first cell
    friend bool operator==(const Row&, const Row&) = default;
  };
  /// The pixel size of a cell's picture; none for a cell without one.
  using PictureSize = std::function<std::optional<Size>(std::size_t cell)>;
  /// How high the cell's caption is under a picture of that width; 0 for none.
  using CaptionHeight = std::function<double(std::size_t cell, double pictureWidth)>;

  /// No cells.
  CellFlowLayout();
  CellFlowLayout(const Metrics& metrics, std::size_t cellCount, const PictureSize& pictureSize,
                 const CaptionHeight& captionHeight);

  const Metrics& metrics() const { return metrics_; }
  bool hasCaptions() const { return metrics_.photoHeight > kCaptionedFrom; }
  /// One more than there are rows: the last is the bottom of the content, and its first cell is none.
  const std::vector<Row>& rows() const { return rows_; }
  const std::vector<Rect>& rects() const { return rects_; }
  /// At least as high as the room around it.
  double viewHeight(double roomHeight) const;

  /// The row at that height, and the cell there; none beside the cells. What ends there counts as well as
  /// what begins.
  std::optional<std::size_t> rowAt(double y) const;
  std::optional<std::size_t> cellAt(Point point) const;
  /// The rows that meet the band from `top` to `bottom`: the first, and the one behind the last.
  std::pair<std::size_t, std::size_t> rowsBetween(double top, double bottom) const;

  Rect pictureBox(std::size_t cell) const;
  double captionTop(std::size_t cell) const;

  enum class Way { previous, next };
  /// The cell to select after `selected`; with none selected the last or the first. None if there is none
  /// that way.
  std::optional<std::size_t> neighbour(std::optional<std::size_t> selected, Way way) const;

  /// A size that a picture can have: what servers say of sizes may be anything.
  static bool isUsable(Size pixels);

 private:
  double pictureWidth(std::optional<Size> pixels, double& height) const;
  void closeRow(double pictures, double caption);
  const Row& rowOf(std::size_t cell) const;

  Metrics metrics_;
  std::vector<Row> rows_;
  std::vector<Rect> rects_;
  double y_ = kInset;
};

}  // namespace tarvel
