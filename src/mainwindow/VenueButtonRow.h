#pragma once
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "model/Venue.h"

class QButtonGroup;
class QPushButton;

namespace tarvel {

/// The venues of a rink as buttons of which one is on, in one row or, where they need them, in several. It
/// hides itself while there is nothing to choose from.
class VenueButtonRow : public QWidget {
  Q_OBJECT
 public:
  explicit VenueButtonRow(QWidget* parent = nullptr);

  /// In the order in which they are to stand.
  void setVenues(const std::vector<std::shared_ptr<Venue>>& venues, std::int64_t chosenVenueID);
  /// Called when the user has chosen another venue.
  std::function<void(std::int64_t venueID)> venueChosen;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeButtons();

  QButtonGroup* group_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace tarvel
