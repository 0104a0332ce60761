#include "Manifest.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "FieldParsers.h"
#include "platform/AtomicFile.h"

namespace tarvel::publish {
namespace {

constexpr const char* kName = ".tarvel-publish.json";

}  // namespace

Manifest Manifest::read(FileSystem& files, const Path& tree) {
  Manifest manifest;
  const auto content = files.read(join(tree, kName));
  if (!content) return manifest;
  constexpr bool kNoExceptions = false;
  const auto json = nlohmann::json::parse(content->begin(), content->end(), nullptr, kNoExceptions);
  if (!json.is_object() || !json.contains("lastDate") || !json["lastDate"].is_number()) return manifest;
  if (!json.contains("files") || !json["files"].is_object()) return manifest;
  manifest.lastDate = {json["lastDate"].get<double>()};
  for (const auto& [path, date] : json["files"].items()) {
    if (date.is_number() && isPublishedPath(path)) manifest.files[path] = {date.get<double>()};
  }
  return manifest;
}

Status Manifest::write(FileSystem& fileSystem, const Path& tree) const {
  nlohmann::json json;
  json["lastDate"] = lastDate.seconds;
  json["files"] = nlohmann::json::object();
  for (const auto& [path, date] : files) json["files"][path] = date.seconds;
  const std::string text = json.dump(1) + "\n";
  return writeAtomically(fileSystem, join(tree, kName), Bytes(text.begin(), text.end()));
}

bool isPublishedPath(const std::string& relativePath) {
  if (!isSafePath(relativePath)) return false;
  const std::string extension = extensionOf(fileNameOf(relativePath));
  return extension == "b1" || extension == "png" || extension == "jpg";
}

}  // namespace tarvel::publish
