#pragma once
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "foundation/DataDecoder.h"
#include "publish/PublishInput.h"
#include "publish/Publisher.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel::publish {

/// Files that begin as images of that size do; `label` tells two of them apart.
Bytes pngImage(int width, int height, const std::string& label = {});
Bytes jpegImage(int width, int height, const std::string& label = {});

/// A folder of descriptions in memory: two rinks, of which "cedar" (7) has everything and "alder" (2) only
/// what it must. Tests change `json` and `raw` before they read or publish.
class SampleInput {
 public:
  SampleInput();

  std::map<std::string, nlohmann::json> json;  ///< by path below the folder
  std::map<std::string, Bytes> raw;            ///< images, and what is to be no JSON

  /// Puts a value at its place in a file, or a picture; a null takes out what stands there, without a place
  /// the file.
  void put(const std::string& file, const std::string& pointer, const nlohmann::json& value);

  /// Writes the folder anew and reads it.
  PublishInput read();
  /// Reads, expects no errors, and publishes to "/tree".
  Result<PublishReport> publish(Instant now);

  Bytes published(const std::string& path);
  /// Of a `.b1` file's header, and of any file on the disk.
  Instant headerDate(const std::string& path);
  Instant diskDate(const std::string& path);

 private:
  SimWorld world_;

 public:
  MemoryFileSystem disk{world_.clock()};
};

}  // namespace tarvel::publish
