#include "model/RinkInfo.h"

#include "model/LogoStore.h"

namespace tarvel {

std::shared_ptr<const Image> RinkInfo::logoImage() {
  return logos_.image(*this, LogoKind::normal);
}
std::shared_ptr<const Image> RinkInfo::darkLogoImage() {
  return logos_.image(*this, LogoKind::dark);
}

}  // namespace tarvel
