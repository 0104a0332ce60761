#include "mainwindow/RinkInfoText.h"

#include "model/PhoneNumber.h"

namespace tarvel {

std::string joinedTexts(const std::string& a, const std::string& b, const std::string& separator) {
  return a.empty() || b.empty() ? a + b : a + separator + b;
}

std::string rinkInfoText(const RinkRecord& rink) {
  const std::string cityLine = joinedTexts(joinedTexts(rink.city, rink.state, ", "), rink.zip, "  ");
  const std::string address = joinedTexts(rink.street, cityLine, "\n");
  const std::string text = joinedTexts(rink.name, address, "\n");
  return rink.phone == 0 ? text : joinedTexts(text, formattedPhone(rink.phone), "\n\n");
}

bool hasWebsite(const RinkRecord& rink) {
  return !rink.websiteUrl.empty();
}

bool hasLocation(const RinkRecord& rink) {
  return rink.latitude != 0.0 && rink.longitude != 0.0 && !rink.street.empty();
}

}  // namespace tarvel
