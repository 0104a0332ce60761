#pragma once
#include "DemoContent.h"
#include "platform/FileSystem.h"

namespace tarvel::demo {

/// Writes the content as a folder of descriptions, ready to be published: the same form that a rink would
/// write. The pictures are drawn at the first writing and kept. Fails when the disk does.
Status writeInput(FileSystem& files, const Path& folder, const DemoContent& content);

}  // namespace tarvel::demo
