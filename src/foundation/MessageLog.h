#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/InstanceCounter.h"
#include "foundation/Services.h"

namespace tarvel {

struct LogMessage {
  Instant timeStamp;
  std::string msg;
  friend bool operator==(const LogMessage&, const LogMessage&) = default;
};

class MessageLogDelegate {
 public:
  virtual ~MessageLogDelegate() = default;
  /// A line came or the log was cleared: the state wants saving.
  virtual void messageLogChanged() = 0;
};

/// A bounded list of time-stamped lines, kept in a small `.b1` file. It loads itself at first use, posts
/// "message log changed", and saves itself a minute after a burst of messages. Main thread only.
class MessageLog : public std::enable_shared_from_this<MessageLog>, Counted<MessageLog> {
 public:
  using Counted<MessageLog>::liveCount;

  /// `maxMessages` is 1 or more; `permissions` are the file's POSIX mode bits.
  static std::shared_ptr<MessageLog> create(const Services& services, Path fileURL, std::string name,
                                            std::int64_t maxMessages, std::uint16_t permissions);

  /// Not owned; null for none.
  MessageLogDelegate* delegate = nullptr;

  /// Adds a line stamped with the wall clock's now, pushing out the oldest ones beyond `maxMessages`.
  void addMessage(const std::string& text);
  /// Oldest first.
  const std::vector<LogMessage>& logMessages();
  void clear();
  /// Writes the file; false, with a line on the console, on failure. Doesn't touch `logChanged`.
  bool save();

  bool logChanged = false;
  bool savePending() const { return saveTimer_ != nullptr; }
  const std::string& name() const { return name_; }
  const Path& fileURL() const { return fileURL_; }

 private:
  MessageLog(const Services& services, Path fileURL, std::string name, std::int64_t maxMessages,
             std::uint16_t permissions);
  void load();
  void noteChange();

  Services services_;
  Path fileURL_;
  std::string name_;
  std::int64_t maxMessages_;
  std::uint16_t permissions_;
  std::vector<LogMessage> logMessages_;
  bool fileLoaded_ = false;
  std::int64_t fileSize_ = 0;         ///< bytes, as last read
  std::unique_ptr<Timer> saveTimer_;  ///< stands while a save is pending
};

}  // namespace tarvel
