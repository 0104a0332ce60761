#include "simulation/ports/NotificationRecorder.h"

#include <algorithm>

namespace tarvel {

namespace {
const std::vector<NotificationName> kAllNames{kCurrentDateChanged,
                                              kCurrentTimeOfDayChanged,
                                              kTimeZoneChanged,
                                              kSelectionChanged,
                                              kCalendarSelectionChanged,
                                              kSchedulesChanged,
                                              kWeeklyScheduleChanged,
                                              kRefreshStatusChanged,
                                              kDateRangeChanged,
                                              kScheduleNamesChanged,
                                              kScheduleColorsChanged,
                                              kRinkListChanged,
                                              kRinkDataRemoved,
                                              kRinkInfoChanged,
                                              kRinkLogoChanged,
                                              kVenuesChanged,
                                              kNoticesChanged,
                                              kCoverPhotoChanged,
                                              kPhotoCollectionChanged,
                                              kPhotoAlbumChanged,
                                              kPhotoChanged,
                                              kPhotoImageChanged,
                                              kMessageLogChanged,
                                              kPerformUpdates,
                                              kPerformScroll,
                                              kCheckObservers};
}

NotificationRecorder::NotificationRecorder(NotificationCenter& center, const SimWorld& world)
    : NotificationRecorder(center, world, kAllNames) {}

NotificationRecorder::NotificationRecorder(NotificationCenter& center, const SimWorld& world,
                                           const std::vector<NotificationName>& names) {
  for (const NotificationName name : names) {
    observations_.push_back(center.observe(name, [this, &world](const Notification& notification) {
      deliveries_.push_back(
          {notification.name.text, notification.object.identity(), notification.userInfo, world.seconds()});
    }));
  }
}

std::vector<std::string_view> NotificationRecorder::names() const {
  std::vector<std::string_view> names;
  for (const Delivery& delivery : deliveries_) names.push_back(delivery.name);
  return names;
}

std::size_t NotificationRecorder::count(NotificationName name, const void* object) const {
  return static_cast<std::size_t>(
      std::count_if(deliveries_.begin(), deliveries_.end(), [&](const Delivery& delivery) {
        return delivery.name == name.text && (!object || delivery.object == object);
      }));
}

}  // namespace tarvel
