#pragma once
#include "InputFolder.h"
#include "Records.h"

namespace tarvel::publish {

/// Reads the rink's notices.json, if there is one.
void readNotices(const InputFolder& folder, Rink& rink);

/// Reads the rink's photos.json, if there is one, and the headers of the images it names.
void readPhotos(const InputFolder& folder, Rink& rink);

}  // namespace tarvel::publish
