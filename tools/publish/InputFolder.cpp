#include "InputFolder.h"

#include "FieldParsers.h"

namespace tarvel::publish {

std::optional<InputDocument> InputFolder::optionalDocument(const std::string& fileName) const {
  if (!files.info(join(input, nameOf(fileName)))) return std::nullopt;
  return InputDocument::read(files, input, nameOf(fileName), problems);
}

std::optional<ImageFile> readImage(const InputFolder& folder, const InputNode& node, ImageFormat format) {
  const auto name = node.parse(
      [](std::string_view text) {
        return isSafePath(text) ? std::optional(std::string(text)) : std::nullopt;
      },
      "the path of an image below the rink's folder");
  if (!name) return std::nullopt;
  const Path path = join(folder.input, folder.nameOf(*name));
  const Result<Bytes> content = folder.files.read(path);
  if (!content) {
    node.complain("\"" + *name + "\" can't be read: " + content.error().description);
    return std::nullopt;
  }
  const auto header = readImageHeader(*content);
  if (!header || header->format != format) {
    const std::string wanted = format == ImageFormat::png ? "PNG" : "JPEG";
    node.complain("\"" + *name + "\" is no " + wanted + " image");
    return std::nullopt;
  }
  return ImageFile{path, static_cast<std::int64_t>(content->size()), header->width, header->height};
}

}  // namespace tarvel::publish
