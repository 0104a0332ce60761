#pragma once
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "foundation/InstanceCounter.h"
#include "platform/ImageDecoder.h"
#include "ui/NamedColors.h"

namespace tarvel {

/// An image in the middle of the view, whole, and never larger than it is. The view keeps none: it asks for
/// the image each time it is drawn. What the image doesn't cover shows the surface that the view stands on.
/// Main thread.
class ImageDisplayView : public QWidget, Counted<ImageDisplayView> {
  Q_OBJECT
 public:
  using Counted<ImageDisplayView>::liveCount;
  /// Null when there is no image now.
  using ImageProvider = std::function<std::shared_ptr<const Image>()>;

  explicit ImageDisplayView(QWidget* parent = nullptr);

  /// Whoever sets it takes it away, with an empty one, before what it refers to goes. Also what to call when
  /// the image is another one.
  void setImageProvider(ImageProvider provider);
  void setFrameColor(std::optional<ColorSource> color);
  const std::optional<ColorSource>& frameColor() const { return frameColor_; }

  /// The address that belongs to the image; the view itself has no use for it.
  std::optional<std::string> dragURL;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ImageProvider imageProvider_;
  std::optional<ColorSource> frameColor_;
};

}  // namespace tarvel
