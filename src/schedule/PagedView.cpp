#include "schedule/PagedView.h"

#include "schedule/PagingView.h"

namespace tarvel {

// The paging view gives its pages their size itself, so there is nothing of it to be observed.
void PagedView::setPagingView(PagingView* pagingView) {
  pagingView_ = pagingView;
}

PagingView* PagedView::pagingView() const {
  return pagingView_;
}

}  // namespace tarvel
