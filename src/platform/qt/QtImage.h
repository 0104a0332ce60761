#pragma once
#include <QImage>
#include <utility>

#include "platform/ImageDecoder.h"

namespace tarvel {

/// A decoded picture as Qt draws it.
class QtImage final : public Image {
 public:
  explicit QtImage(QImage picture) : picture_(std::move(picture)) {}
  Size pixelSize() const override {
    return {static_cast<double>(picture_.width()), static_cast<double>(picture_.height())};
  }
  const QImage& picture() const { return picture_; }

 private:
  QImage picture_;
};

}  // namespace tarvel
