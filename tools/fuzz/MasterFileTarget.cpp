#include "Checks.h"
#include "Targets.h"
#include "foundation/DataEncoder.h"
#include "refresh/RootFile.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const MasterFile& master) {
  DataEncoder out;
  out.putString(master.mainFileName);
  out.putDouble(master.mainFileDate.seconds);
  return out.data();
}

}  // namespace

void masterFile(ByteView input) {
  (void)roundTrip(input, decodeMasterFile, encode);
}

}  // namespace tarvel::fuzz
