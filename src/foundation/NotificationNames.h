#pragma once
#include <string_view>

namespace tarvel {

/// The name under which a change is announced. Names are equal when their texts are.
struct NotificationName {
  std::string_view text;
  friend constexpr bool operator==(const NotificationName&, const NotificationName&) = default;
};

// Who posts, and what stands in the notification beside the poster as its object:
inline constexpr NotificationName kCurrentDateChanged{"current date changed"};              // RinkData
inline constexpr NotificationName kCurrentTimeOfDayChanged{"current time of day changed"};  // RinkData
inline constexpr NotificationName kTimeZoneChanged{"time zone changed"};                    // RinkData
inline constexpr NotificationName kSelectionChanged{"selection changed"};  // lists and galleries
inline constexpr NotificationName kCalendarSelectionChanged{"CalendarView selection changed"};
inline constexpr NotificationName kSchedulesChanged{"schedules changed"};  // RinkData
inline constexpr NotificationName kWeeklyScheduleChanged{
    "weekly schedule changed"};  // RinkData; venueID, weekOf
inline constexpr NotificationName kRefreshStatusChanged{"refresh status changed"};    // RinkData, DataModel
inline constexpr NotificationName kDateRangeChanged{"date range changed"};            // RinkData
inline constexpr NotificationName kScheduleNamesChanged{"schedule names changed"};    // DataModel
inline constexpr NotificationName kScheduleColorsChanged{"schedule colors changed"};  // DataModel
inline constexpr NotificationName kRinkListChanged{"rink list changed"};              // DataModel
inline constexpr NotificationName kRinkDataRemoved{"rink data removed"};  // DataModel, for the rink that went
inline constexpr NotificationName kRinkInfoChanged{"rink info changed"};  // DataModel; rinkID
inline constexpr NotificationName kRinkLogoChanged{"rink logo changed"};  // DataModel, no object; rinkID
inline constexpr NotificationName kVenuesChanged{"venues changed"};       // RinkData
inline constexpr NotificationName kNoticesChanged{"notices changed"};     // RinkData
inline constexpr NotificationName kCoverPhotoChanged{"cover photo changed"};            // RinkData
inline constexpr NotificationName kPhotoCollectionChanged{"photo collection changed"};  // RinkData
// The next two are observed and nothing posts them yet: the observers stand ready for a later poster.
inline constexpr NotificationName kPhotoAlbumChanged{"photo album changed"};
inline constexpr NotificationName kPhotoChanged{"photo changed"};
inline constexpr NotificationName kPhotoImageChanged{"photo image changed"};  // RinkData; photoID
inline constexpr NotificationName kMessageLogChanged{"message log changed"};  // MessageLog
inline constexpr NotificationName kPerformUpdates{"perform updates"};  // a view or controller, to itself
inline constexpr NotificationName kPerformScroll{"perform scroll"};    // a scrollable view, to itself
inline constexpr NotificationName kCheckObservers{"check observers"};  // the debug report

// Keys of a notification's user info; the values are integers.
inline constexpr std::string_view kRinkIDKey = "rinkID";
inline constexpr std::string_view kVenueIDKey = "venueID";
inline constexpr std::string_view kWeekOfKey = "weekOf";
inline constexpr std::string_view kPhotoIDKey = "photoID";

}  // namespace tarvel
