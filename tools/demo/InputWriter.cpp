#include "InputWriter.h"

#include <fmt/format.h>

#include <array>
#include <nlohmann/json.hpp>

#include "DemoPictures.h"

namespace tarvel::demo {
namespace {

using nlohmann::json;

struct SessionLook {
  const char* kind;
  const char* name;
  const char* color;
};

constexpr std::array kSessions = {
    SessionLook{"resurface", "Resurface", "#FFFFFF"},
    SessionLook{"publicSession", "Public Session", "#89FA90"},
    SessionLook{"privateSession", "Private", "#F27BFA"},
    SessionLook{"rental", "Rental", "#C37FFF"},
    SessionLook{"freestyle", "Freestyle", "#FAFE7F"},
    SessionLook{"skatingSchool", "Skating School", "#F7CD60"},
    SessionLook{"hockeyGame", "Hockey Game", "#6E9CFF"},
    SessionLook{"hockeyPractice", "Hockey Practice", "#9CD1FF"},
    SessionLook{"hockeyStickTime", "Stick Time", "#5EEFFF"},
    SessionLook{"hockeyPickup", "Pickup Hockey", "#5EEFFF"},
    SessionLook{"other", "Other", "#CBCBCB"},
    SessionLook{"synchro", "Synchronized", "#FF8B64"},
    SessionLook{"privateTraining", "Private Training", "#B067F7"},
    SessionLook{"specialEvent", "Special Event", "#FF4D4D"},
    SessionLook{"groupExerciseClass", "Group Exercise Class", "#91F979"},
    SessionLook{"otherClass", "Class", "#FEFF7B"},
    SessionLook{"party", "Party", "#13F3F1"},
    SessionLook{"meeting", "Meeting", "#7EA2FA"},
    SessionLook{"broomball", "Broomball", "#FF2626"},
};

std::string dateText(PackedDate date) {
  return fmt::format("{}-{:02}-{:02}", yearOf(date), monthOf(date), dayOf(date));
}

std::string timeText(int minutes) {
  return fmt::format("{}:{:02}", minutes / 60, minutes % 60);
}

json release(PackedDate date, const char* version, const std::string& website) {
  return {{"date", dateText(date)},
          {"version", version},
          {"osMinimumVersion", "4.19.0"},
          {"url", fmt::format("{}releases/{}", website, version[0] == '6' ? "6" : "5")}};
}

json catalogue(const DemoContent& content) {
  const std::string website = "https://tarvel.example.org/";
  json sessions = json::array();
  for (const SessionLook& look : kSessions) {
    sessions.push_back({{"kind", look.kind}, {"name", look.name}, {"color", look.color}});
  }
  json folders = json::array();
  for (const DemoRink& rink : content.rinks()) folders.push_back(rink.folder);
  return {{"application",
           {{"website", website},
            {"currentVersion", "6.1.0"},
            {"minimumVersion", "6.0.0"},
            {"releases",
             {release(packedDate(2024, 9, 3), "5.4.2", website),
              release(packedDate(2025, 3, 18), "6.0.0", website),
              release(packedDate(2025, 10, 7), "6.1.0", website)}}}},
          {"serverUrl", content.serverUrl()},
          {"sessions", sessions},
          {"rinks", folders}};
}

json venues(const DemoRink& rink) {
  json list = json::array();
  for (const DemoVenue& venue : rink.venues) {
    json entry = {{"venueID", venue.venueID}, {"kind", venue.kind}};
    if (!venue.name.empty()) entry["name"] = venue.name;
    if (!venue.note.empty()) entry["note"] = venue.note;
    list.push_back(entry);
  }
  return list;
}

json rinkCard(const DemoRink& rink, const DrawnPictures& pictures) {
  json card = {{"rinkID", rink.rinkID},
               {"name", rink.name},
               {"street", rink.street},
               {"city", rink.city},
               {"state", rink.state},
               {"zip", rink.zip},
               {"phone", rink.phone},
               {"latitude", rink.latitude},
               {"longitude", rink.longitude},
               {"timeZone", rink.timeZone},
               {"website", rink.website},
               {"dataPath", "rinks/" + rink.folder},
               {"photosFolder", "photos/" + rink.folder},
               {"logo", pictures.logo},
               {"darkLogo", pictures.darkLogo},
               {"venues", venues(rink)}};
  if (!pictures.photos.empty()) card["coverPhoto"] = pictures.photos.front().photoID;
  return card;
}

json weekFile(const DemoContent& content, const DemoRink& rink, PackedDate weekOf) {
  json schedules = json::array();
  for (const DemoVenue& venue : rink.venues) {
    json sessions = json::array();
    for (const PlannedSession& session : content.week(rink, venue, weekOf)) {
      json entry = {{"kind", session.kind},
                    {"day", weekdayName(session.day)},
                    {"time", timeText(session.time)},
                    {"duration", session.duration}};
      if (!session.subtitle.empty()) entry["subtitle"] = session.subtitle;
      if (!session.note.empty()) entry["note"] = session.note;
      sessions.push_back(entry);
    }
    schedules.push_back({{"venueID", venue.venueID}, {"sessions", sessions}});
  }
  return {{"weekOf", dateText(weekOf)}, {"schedules", schedules}};
}

json notices(const DemoContent& content, const DemoRink& rink) {
  json list = json::array();
  for (const DemoNotice& notice : content.notices(rink.rinkID)) {
    list.push_back({{"noticeID", notice.noticeID},
                    {"date", dateText(notice.date)},
                    {"summary", notice.summary},
                    {"detail", notice.detail}});
  }
  return {{"notices", list}};
}

json photos(const DrawnPictures& pictures) {
  json list = json::array();
  for (const DrawnPhoto& photo : pictures.photos) {
    list.push_back({{"photoID", photo.photoID},
                    {"title", photo.title},
                    {"description", photo.description},
                    {"versions", photo.files}});
  }
  json albums = json::array();
  for (const DrawnAlbum& album : pictures.albums) {
    albums.push_back({{"albumID", album.albumID},
                      {"title", album.title},
                      {"description", album.description},
                      {"photos", album.photoIDs}});
  }
  return {{"photos", list}, {"albums", albums}};
}

Status writeJson(FileSystem& files, const Path& path, const json& content) {
  const std::string text = content.dump(2) + "\n";
  return files.write(path, Bytes(text.begin(), text.end()));
}

Status writeRink(FileSystem& files, const Path& folder, const DemoContent& content, const DemoRink& rink) {
  const Path weeks = join(folder, "weeks");
  // Weeks of an earlier day's run have passed.
  if (files.info(weeks)) {
    if (Status status = files.remove(weeks); !status) return status;
  }
  if (Status status = files.createFolders(weeks); !status) return status;
  const auto pictures = drawPictures(files, folder, rink, content.seed());
  if (!pictures) return pictures.error();
  for (const PackedDate weekOf : content.weeks()) {
    Status status =
        writeJson(files, join(weeks, dateText(weekOf) + ".json"), weekFile(content, rink, weekOf));
    if (!status) return status;
  }
  if (Status status = writeJson(files, join(folder, "notices.json"), notices(content, rink)); !status) {
    return status;
  }
  if (Status status = writeJson(files, join(folder, "photos.json"), photos(*pictures)); !status)
    return status;
  return writeJson(files, join(folder, "rink.json"), rinkCard(rink, *pictures));
}

}  // namespace

Status writeInput(FileSystem& files, const Path& folder, const DemoContent& content) {
  if (Status status = files.createFolders(folder); !status) return status;
  for (const DemoRink& rink : content.rinks()) {
    if (Status status = writeRink(files, join(folder, "rinks/" + rink.folder), content, rink); !status) {
      return status;
    }
  }
  return writeJson(files, join(folder, "catalogue.json"), catalogue(content));
}

}  // namespace tarvel::demo
