#pragma once
#include "foundation/NotificationCenter.h"
#include "foundation/PretendTime.h"
#include "platform/Clock.h"
#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/HttpClient.h"
#include "platform/ImageDecoder.h"
#include "platform/RunLoop.h"
#include "platform/Threads.h"

namespace tarvel {

/// All that the core takes from outside, handed in at construction. The members outlive whoever holds the
/// record.
struct Services {
  RunLoop& mainLoop;
  const Clock& clock;
  PretendTime& pretendTime;
  FileSystem& files;
  HttpClient& http;
  ImageDecoder& images;
  Threads& threads;
  Console& console;
  NotificationCenter& notifications;
};

}  // namespace tarvel
