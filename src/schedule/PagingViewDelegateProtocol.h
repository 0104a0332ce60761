#pragma once

namespace tarvel {

class PagedView;
class PagingView;

/// Says how many pages lie either way of the one in view, and fills each page. Main thread; outlives its
/// charge.
class PagingViewDelegateProtocol {
 public:
  virtual ~PagingViewDelegateProtocol() = default;
  /// A new, empty page of the kind wanted; the paging view takes it over.
  virtual PagedView* newPagedViewForPagingView(PagingView& pagingView) = 0;
  /// Fills a page made just now: -1 for the page before the current one, 0 for the current, 1 for the one
  /// after.
  virtual void loadView(PagedView& page, PagingView& pagingView, int offset) = 0;
  /// Fills a page anew that stays or comes round.
  virtual void reloadView(PagedView& page, PagingView& pagingView, int offset) = 0;
  virtual bool pagesBeforeCurrent(PagingView& pagingView) = 0;
  virtual bool pagesAfterCurrent(PagingView& pagingView) = 0;
  /// The current page has moved on, or back, by one.
  virtual void pagingViewDidGotoNextPage(PagingView& pagingView) = 0;
  virtual void pagingViewDidGotoPrevPage(PagingView& pagingView) = 0;
};

}  // namespace tarvel
