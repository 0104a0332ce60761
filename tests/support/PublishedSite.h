#pragma once
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/RinkRecord.h"
#include "model/ScheduleFiles.h"
#include "platform/Color.h"
#include "simulation/ports/ScriptedHttpClient.h"

namespace tarvel {

/// A file's own date and, for a server whose index is out of step, the one that the index lists.
struct PublishedDate {
  Instant actual;
  std::optional<Instant> promised;
  Instant listed() const { return promised.value_or(actual); }
  /// A new version of the file; its fraction of a second is no round number.
  void publishAnew() { *this = {actual + 1000.015625, std::nullopt}; }
};

struct PublishedWeek {
  PackedDate weekOf = kNoDate;
  PublishedDate date;
  std::vector<ScheduleItemRecord> items;
};

struct PublishedVenue {
  VenueRecord record;
  PublishedDate schedulesDate;
  std::vector<PublishedWeek> weeks;

  std::string schedulesName() const;
  std::string weekName(const PublishedWeek& week) const;
};

struct PublishedRink {
  RinkRecord record;
  PublishedDate mainDate;
  PackedDate firstWeek = kNoDate;
  PackedDate lastWeek = kNoDate;
  std::vector<PublishedVenue> venues;
  std::vector<FileRecord> otherFiles;  ///< listed in main.b1 behind the venues' files
  std::string photosFolder = "photos";

  std::string url(const std::string& name) const {
    return record.serverUrl + "/" + record.dataPath + "/" + name;
  }
  Bytes master() const;
  Bytes main() const;
  static Bytes schedules(const PublishedVenue& venue);
  static Bytes week(const PublishedWeek& week);
};

struct PublishedSession {
  std::string name;
  Color color;
};

/// What the servers publish: the catalogue and each rink's data, as a description from which the files'
/// bytes follow.
struct PublishedSite {
  std::string server = "http://catalogue.test";  ///< of the catalogue
  std::int64_t minimumVersion = 0;
  std::string applicationWebsiteURL = "https://tarvel.test";
  PublishedDate defsDate;
  PublishedDate rinksDate;
  std::vector<PublishedSession> sessions;
  std::vector<PublishedRink> rinks;    ///< ascending by id
  std::map<std::string, Bytes> logos;  ///< by file name, such as "7-dark.png"

  Bytes root() const;
  Bytes defs() const;
  Bytes rinkList() const;
  /// Every file there is, by its URL.
  std::map<std::string, Bytes> files() const;
  /// What its servers answer: 404 for what it doesn't have.
  HttpResponse answer(const std::string& url) const;
  /// Lets every URL that begins so answer with the site as it is at that moment. The site outlives the
  /// client's use.
  void serveOn(ScriptedHttpClient& http, const std::string& prefix = "http://") const;

  /// Rinks 7 (two venues, two weeks each side of 2026-03-08, America/Denver) and 12 (one venue).
  static PublishedSite sample();
};

}  // namespace tarvel
