#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/DefsFile.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const DefsFile& defs) {
  DataEncoder out;
  out.putDouble(defs.fileDate.seconds);
  std::size_t row = 0;
  putList(out, defs.colors, [&](const Color& color) {
    for (const double part : {color.red, color.green, color.blue, color.alpha}) out.putDouble(part);
    out.putString(defs.names[row++]);
  });
  return out.data();
}

}  // namespace

void defsFile(ByteView input) {
  const auto defs = roundTrip(input, decodeDefsFile, encode);
  require(!defs || defs->names.size() == defs->colors.size(), "each kind has a name and a colour");
}

}  // namespace tarvel::fuzz
