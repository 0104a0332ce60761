#pragma once
#include <vector>

#include "platform/Console.h"
#include "platform/FileSystem.h"

namespace tarvel {

/// Deletes from the application's folder what this version doesn't use, with a line on the console for each:
/// that is also how the layouts of older versions go. Hidden entries are left alone. The first error, of a
/// listing or of a removal, ends it without a report; what is left then goes at the next quit.
void cleanUpStore(FileSystem& files, const Path& supportFolder, Console& console);

/// Removes the temporary files that a crash left in the application's folder and in the folders below it.
void removeLeftoversOfCrash(FileSystem& files, const Path& supportFolder);

/// Removes what stands in the place of the store's own files and folders and can't serve as such: a folder
/// where a file belongs, and a file or a link where a folder belongs. Left there, it would keep the file from
/// ever being stored, or lead writing and clean-up out of the store. A link where a file belongs serves: it
/// can be read, and goes when the file is next written. For the start; the paths of what was removed.
std::vector<Path> clearStorePlaces(FileSystem& files, const Path& supportFolder);

}  // namespace tarvel
