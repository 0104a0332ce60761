#pragma once
#include <QComboBox>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvel {

/// A venue whose changes of session can be heard.
struct ChimeItem {
  std::string title;
  std::int64_t venueID = 0;
};

/// The choice of the venue that chimes; its first item, with id 0, is that none does. The wheel scrolls what
/// lies behind, rather than choose. Main thread.
class ChimePopUpButton : public QComboBox {
  Q_OBJECT
 public:
  explicit ChimePopUpButton(QWidget* parent);

  /// What follows the first item. Retitles the items at hand, and the chosen place in the list stays.
  void setChimeItems(const std::vector<ChimeItem>& items);
  /// Says nothing to anyone. The choice stays as it is if no item has the id.
  void selectChime(std::int64_t venueID);

 signals:
  void chimeChosen(std::int64_t venueID);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace tarvel
