#pragma once
#include <QPointer>

#include "ui/DataLoadingView.h"

namespace tarvel {

class PagingView;

/// A page: a view that fills the place it is given and may want to be taller, and that is one of several
/// which take turns at being in view. Whoever holds the pages gives them their size and closes them.
class PagedView : public DataLoadingView {
  Q_OBJECT
 public:
  using DataLoadingView::DataLoadingView;

  /// The view that turns this page; null for a page that stands alone.
  virtual void setPagingView(PagingView* pagingView);
  virtual PagingView* pagingView() const;
  /// Among the pages of one paging view the one with the highest order lies on top.
  int stackingOrder = 0;

  /// How the page gets the keyboard while it is in view; those out of sight never get it.
  virtual Qt::FocusPolicy focusPolicyInView() const { return Qt::NoFocus; }
  /// The height that the page wants where `height` is to be had.
  virtual double heightForAvailableHeight(double height) const { return height; }
  /// Computes the layout anew from the page's size; it doesn't change the size, unlike the toolkit's
  /// operation of this name.
  virtual void adjustSize() = 0;
  /// A setting of the owner has changed: reads it again and lays out anew.
  virtual void pageDidChangeSettings() = 0;
  /// The page has come into view: brings itself up to date and draws at once.
  virtual void pageDidBecomeCurrent() = 0;
  /// Stops observing, lets go of the owner and ignores whatever comes. Not the toolkit's operation of this
  /// name.
  virtual void close() = 0;

 private:
  QPointer<PagingView> pagingView_;
};

}  // namespace tarvel
