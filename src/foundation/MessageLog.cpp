#include "foundation/MessageLog.h"

#include <fmt/format.h>

#include <algorithm>

#include "foundation/DataDecoder.h"
#include "foundation/DataEncoder.h"
#include "foundation/DecodeError.h"
#include "foundation/TextFormats.h"
#include "platform/AtomicFile.h"

namespace tarvel {
namespace {

constexpr double kSaveDelay = 60.0;  // seconds
constexpr std::int64_t kFileVersion = 1;

std::vector<LogMessage> decodeMessages(ByteView file) {
  DataDecoder decoder(file);
  decoder.getInt();  // the version: there is only one form so far
  // Not `getCount`: the file is the application's own, and one that was damaged on the disk, so that it
  // claims a count below zero, must not end the program at every start.
  const std::int64_t count = decoder.getInt();
  std::vector<LogMessage> messages;
  for (std::int64_t i = 0; i < count; ++i) {
    const Instant timeStamp{decoder.getDouble()};
    messages.push_back({timeStamp, decoder.getString()});
  }
  return messages;
}

}  // namespace

std::shared_ptr<MessageLog> MessageLog::create(const Services& services, Path fileURL, std::string name,
                                               std::int64_t maxMessages, std::uint16_t permissions) {
  return std::shared_ptr<MessageLog>(
      new MessageLog(services, std::move(fileURL), std::move(name), maxMessages, permissions));
}

MessageLog::MessageLog(const Services& services, Path fileURL, std::string name, std::int64_t maxMessages,
                       std::uint16_t permissions)
    : services_(services),
      fileURL_(std::move(fileURL)),
      name_(std::move(name)),
      maxMessages_(maxMessages),
      permissions_(permissions) {}

void MessageLog::load() {
  if (fileLoaded_) return;
  fileLoaded_ = true;
  const Result<Bytes> file = services_.files.read(fileURL_);
  if (!file) return;
  fileSize_ = static_cast<std::int64_t>(file->size());
  try {
    logMessages_ = decodeMessages(*file);
  } catch (const DecodeError&) {
    // As good as no file; the next save replaces it.
  }
}

void MessageLog::addMessage(const std::string& text) {
  load();
  LogMessage message{services_.clock.now(), text};
  const auto room = static_cast<std::size_t>(std::max<std::int64_t>(maxMessages_ - 1, 0));
  if (logMessages_.size() > room) {
    const auto surplus = static_cast<std::ptrdiff_t>(logMessages_.size() - room);
    logMessages_.erase(logMessages_.begin(), logMessages_.begin() + surplus);
  }
  services_.console.printLine(fmt::format(
      "{} {}: {}", name_, dateAndTimeText(message.timeStamp, services_.clock.machineZone()), message.msg));
  logMessages_.push_back(std::move(message));
  noteChange();
}

const std::vector<LogMessage>& MessageLog::logMessages() {
  load();
  return logMessages_;
}

void MessageLog::clear() {
  load();
  logMessages_.clear();
  noteChange();
}

void MessageLog::noteChange() {
  logChanged = true;
  if (delegate != nullptr) delegate->messageLogChanged();
  services_.notifications.postNotification(kMessageLogChanged, shared_from_this());
  if (saveTimer_) return;
  saveTimer_ = services_.mainLoop.after(kSaveDelay, [this] {
    if (logChanged && save()) logChanged = false;
    saveTimer_.reset();
  });
}

bool MessageLog::save() {
  load();  // a log that nothing has touched must not replace its file by an empty one
  DataEncoder encoder = DataEncoder::withCapacity(fileSize_ + fileSize_ / 100);
  encoder.putInt(kFileVersion);
  encoder.putInt(static_cast<std::int64_t>(logMessages_.size()));
  for (const LogMessage& message : logMessages_) {
    encoder.putDouble(message.timeStamp.seconds);
    encoder.putString(message.msg);
  }
  const FileAttributes attributes{.modificationDate = std::nullopt, .permissions = permissions_};
  const Status written = writeAtomically(services_.files, fileURL_, encoder.data(), attributes);
  if (!written) {
    services_.console.printLine(
        fmt::format("Unable to write file: {} -- {}", fileURL_, written.error().description));
    return false;
  }
  services_.console.printLine("File written: " + fileURL_);
  return true;
}

}  // namespace tarvel
