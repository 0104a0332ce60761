#pragma once
#include "mainwindow/NoticeBannerView.h"

namespace tarvel {

/// The strip across the top of a main window that tells of notices which the user hasn't dismissed: the
/// banner's view with the button that takes it away. It is shown and hidden by `applyRule`; the window's
/// layout gives it the place and takes that back. Main thread.
class NoticeBanner : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kHeight = static_cast<int>(BannerLayout::kHeight);

  /// Hidden at the start.
  explicit NoticeBanner(const WindowContext& context, QWidget* parent = nullptr);

  /// Whether the banner occupies its strip.
  bool bannerVisible() const { return bannerVisible_; }
  /// Shows or hides the banner as the chosen rink, or none, asks for it.
  void applyRule(const std::shared_ptr<RinkData>& rinkData);
  /// Goes back to the first notice in any case. A banner on show keeps the rink that it has, unless
  /// that has left the catalogue.
  void showNoticeBanner(const std::shared_ptr<RinkData>& rinkData);
  /// Dismisses the notice on show. With others left the banner returns with the next choice of a rink or
  /// change of the notices.
  void hideNoticeBanner();

  NoticeBannerView& view() const { return *noticeBannerView_; }
  BannerButton& dismissButton() const { return *dismissBannerButton_; }
  /// The window closes: the notice on show counts as seen. Final; not the toolkit's operation of this name.
  void close();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  NoticeBannerView* noticeBannerView_;  ///< a child
  BannerButton* dismissBannerButton_;   ///< a child
  bool bannerVisible_ = true;
};

/// Whether a window on that rink, or null for none, is to show the banner: there are notices, and the user
/// hasn't dismissed all of them. Reads the notices if they weren't yet.
bool bannerWanted(RinkData* rinkData);

}  // namespace tarvel
