#pragma once
#include <optional>
#include <string>

#include "ImageHeader.h"
#include "InputNode.h"
#include "Records.h"
#include "platform/FileSystem.h"

namespace tarvel::publish {

/// A rink's part of the input: where its files are looked up, and where faults go.
struct InputFolder {
  FileSystem& files;
  Path input;        ///< the whole input's folder
  std::string rink;  ///< the rink's folder below it
  Problems& problems;

  /// The file's name as messages have it.
  std::string nameOf(const std::string& fileName) const { return rink + "/" + fileName; }
  /// None if there is no such file, without a message.
  std::optional<InputDocument> optionalDocument(const std::string& fileName) const;
};

/// The image that the node's text names, relative to the rink's folder; none, and an error noted, if it isn't
/// there or has another format.
std::optional<ImageFile> readImage(const InputFolder& folder, const InputNode& node, ImageFormat format);

}  // namespace tarvel::publish
