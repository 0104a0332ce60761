#include "platform/PropertyList.h"

#include "Checks.h"
#include "Targets.h"

namespace tarvel::fuzz {

void propertyList(ByteView input) {
  const auto list = decoded(input, [](ByteView file) { return PropertyList::parse(file); });
  if (!*list) return;
  const Result<Bytes> xml = (*list)->xml();
  require(xml.ok(), "what was read can be written");
  const auto again = PropertyList::parse(*xml);
  require(again.has_value(), "what was written can be read");
  const Result<Bytes> rewritten = again->xml();
  require(rewritten.ok() && *rewritten == *xml, "what was written is read as it was");
  // A number that is none differs from itself.
  const PropertyList& read = **list;
  require(*again == read || !(read == read), "and equals what it was written from");
}

}  // namespace tarvel::fuzz
