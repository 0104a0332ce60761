#pragma once
#include "ui/AccessibleNode.h"

class QWidget;

namespace tarvel {

class AccessibleViewInterface;

/// What a view that draws its own contents is to those who can't see it: a tree of named parts. To be
/// inherited beside the widget, whose accessible name and description stay those of the view as a whole. It
/// costs nothing while nobody listens: the tree is made when it is asked for, and the notices below do
/// nothing before. Main thread.
class AccessibleView {
 public:
  AccessibleView(const AccessibleView&) = delete;
  AccessibleView& operator=(const AccessibleView&) = delete;

  /// The view's role and its parts; name, place and id of the root itself mean nothing. A table's children
  /// are its rows and theirs its cells. Called at any time between the construction and the destruction of
  /// the view, also while it waits for data or after it was closed.
  virtual AccessibleNode accessibleTree() const = 0;
  /// The id of the part that has the focus while the view has the keyboard; empty for the view as a whole.
  virtual QString accessibleFocus() const { return {}; }
  /// Does what a double click on the part does. The id may be that of a part that has gone.
  virtual void pressAccessible(const QString&) {}
  /// Moves the focus within the view to that part, which may have gone.
  virtual void focusAccessible(const QString&) {}

 protected:
  /// The first one has the application tell screen readers of such views.
  AccessibleView();
  virtual ~AccessibleView();

  // Notices of what has changed. They may be given more often than needed.
  void accessibleContentChanged();
  void accessibleFocusChanged();
  void accessibleSelectionChanged();

 private:
  friend class AccessibleViewInterface;
  AccessibleViewInterface* interface_ = nullptr;  ///< once someone has asked
};

}  // namespace tarvel
