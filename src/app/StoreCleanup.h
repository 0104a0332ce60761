#pragma once
#include "platform/Console.h"
#include "platform/FileSystem.h"

namespace tarvel {

/// Deletes from the application's folder what this version doesn't use, with a line on the console for each:
/// that is also how the layouts of older versions go. Hidden entries are left alone. The first error, of a
/// listing or of a removal, ends it without a report; what is left then goes at the next quit.
void cleanUpStore(FileSystem& files, const Path& supportFolder, Console& console);

/// Removes the temporary files that a crash left in the application's folder and in the folders below it.
void removeLeftoversOfCrash(FileSystem& files, const Path& supportFolder);

}  // namespace tarvel
