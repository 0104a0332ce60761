#include "platform/qt/QtImageDecoder.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "platform/qt/QtImage.h"

namespace tarvel {

namespace {

constexpr int kLargestSide = 16'384;
constexpr std::int64_t kLargestDecoded = std::int64_t{128} << 20;
constexpr int kBytesPerPixel = 4;
constexpr int kBitsPerByte = 8;

bool hasAllowedSize(const QImageReader& reader) {
  const QSize size = reader.size();
  if (size.width() < 1 || size.height() < 1) return false;
  if (size.width() > kLargestSide || size.height() > kLargestSide) return false;
  const int depth = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel() / kBitsPerByte;
  const std::int64_t pixels = std::int64_t{size.width()} * size.height();
  return pixels * std::max(depth, kBytesPerPixel) <= kLargestDecoded;
}

/// The reader fills what a cut JPEG file lacks with grey and calls it a success. A whole one has its end
/// marker behind the start of its last scan, and the data of a scan never looks like either marker.
bool isWholeJpeg(ByteView file) {
  constexpr std::array<std::uint8_t, 2> kScan{0xFF, 0xDA};
  constexpr std::array<std::uint8_t, 2> kEnd{0xFF, 0xD9};
  const auto scan = std::find_end(file.begin(), file.end(), kScan.begin(), kScan.end());
  return std::search(scan, file.end(), kEnd.begin(), kEnd.end()) != file.end();
}

/// Has the reader give no more than that many pixels, which costs it less than all of them.
void limitSize(QImageReader& reader, Size largest) {
  const auto side = [](double pixels) {
    return static_cast<int>(std::clamp(std::ceil(pixels), 1.0, double{kLargestSide}));
  };
  QSize limit(side(largest.width), side(largest.height));
  // The size is that of the file, before the picture is turned upright.
  if (reader.transformation() & QImageIOHandler::TransformationRotate90) limit.transpose();
  const QSize size = reader.size();
  if (size.width() <= limit.width() && size.height() <= limit.height()) return;
  reader.setScaledSize(size.scaled(limit, Qt::KeepAspectRatio).expandedTo({1, 1}));
}

std::shared_ptr<const Image> decoded(ByteView file, std::optional<Size> largest) {
  QByteArray bytes =
      QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()), qsizetype(file.size()));
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::ReadOnly)) return nullptr;
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QByteArray format = reader.format();
  if (format != "png" && format != "jpeg") return nullptr;
  if (!hasAllowedSize(reader) || (format == "jpeg" && !isWholeJpeg(file))) return nullptr;
  if (largest) limitSize(reader, *largest);
  QImage picture = reader.read();
  if (picture.isNull()) return nullptr;
  // The one form that is drawn without a conversion each time.
  const auto drawn = picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return std::make_shared<QtImage>(std::move(picture).convertToFormat(drawn));
}

}  // namespace

std::shared_ptr<const Image> QtImageDecoder::decode(ByteView file) {
  return decoded(file, std::nullopt);
}

std::shared_ptr<const Image> QtImageDecoder::decodeWithin(ByteView file, Size largest) {
  return decoded(file, largest);
}

}  // namespace tarvel
