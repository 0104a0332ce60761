#pragma once
#include <string>

#include "Problems.h"
#include "Records.h"
#include "platform/FileSystem.h"

/// The folder of descriptions, whose form docs/format.md tells:
///
///     catalogue.json                     the application's releases, the kinds of session, the rinks'
///     folders rinks/<folder>/rink.json           the rink's record and venues rinks/<folder>/weeks/*.json
///     its sessions, any number of files rinks/<folder>/notices.json        its notices, if it has any
///     rinks/<folder>/photos.json         its photos and albums, if it has any
namespace tarvel::publish {

struct PublishInput {
  Catalogue catalogue;  ///< to be used only if `problems` has no errors
  Problems problems;
};

/// Reads and checks everything below the folder, image headers included. Nothing is written.
PublishInput readPublishInput(FileSystem& files, const Path& folder);

}  // namespace tarvel::publish
