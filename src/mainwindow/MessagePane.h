#pragma once
#include "auxwindows/WindowContext.h"
#include "ui/WindowPane.h"

namespace tarvel {

/// A pane with nothing to show but why: a line in its middle. Main thread.
class MessagePane : public WindowPane {
  Q_OBJECT
 public:
  MessagePane(const WindowContext& context, const std::string& message, QWidget* parent);
};

}  // namespace tarvel
