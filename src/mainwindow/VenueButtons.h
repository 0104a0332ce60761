#pragma once
#include <QScrollArea>
#include <cstdint>
#include <string>
#include <vector>

class QAbstractButton;

namespace tarvel {

/// A venue to choose, and whether it is chosen.
struct VenueChoice {
  std::string title;
  std::int64_t venueID = 0;
  bool on = false;
};

enum class VenueButtonKind {
  radio,    ///< one of them is on
  checkBox  ///< any number are
};

/// The venues of a rink, a button under the other, which scroll where there is no room for all. A title that
/// is too long ends in an ellipsis, and can be read in full in the tooltip. Main thread.
class VenueButtons : public QScrollArea {
  Q_OBJECT
 public:
  explicit VenueButtons(QWidget* parent);

  /// In the order in which they are to stand. Buttons that show the same venues already stay, and with them
  /// the keyboard's focus.
  void setVenues(const std::vector<VenueChoice>& venues, VenueButtonKind kind);
  /// Of the widest button, with its whole title.
  int widestButton() const;
  /// Where each button stands in the width of the area. Less if the bar takes some of the room.
  void placeButtons(int x, int width);
  const std::vector<QAbstractButton*>& buttons() const { return buttons_; }

 signals:
  /// The user has clicked the venue's button, which is on or off now.
  void venueToggled(std::int64_t venueID, bool on);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool shows(const std::vector<VenueChoice>& venues, VenueButtonKind kind) const;
  void makeButtons(const std::vector<VenueChoice>& venues, VenueButtonKind kind);
  QAbstractButton* makeButton(const VenueChoice& venue);
  void noteNeededWidth(const QObject* button);
  void setStates(const std::vector<VenueChoice>& venues);

  VenueButtonKind kind_ = VenueButtonKind::radio;
  std::vector<VenueChoice> venues_;
  std::vector<QAbstractButton*> buttons_;
  std::vector<int> neededWidths_;
};

}  // namespace tarvel
