#pragma once
#include "foundation/Services.h"
#include "simulation/ports/FakeImageDecoder.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/NotificationRecorder.h"
#include "simulation/ports/RecordingConsole.h"
#include "simulation/ports/ScriptedHttpClient.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel {

/// Everything the core takes from outside, simulated. What the test makes of the core goes before this does.
struct SimServices {
  SimServices() = default;
  explicit SimServices(Instant start) : world(start) {}
  SimServices(const SimServices&) = delete;
  SimServices& operator=(const SimServices&) = delete;

  SimWorld world;
  PretendTime pretendTime{world.clock()};
  MemoryFileSystem disk{world.clock()};
  ScriptedHttpClient http{world};
  FakeImageDecoder images;
  RecordingConsole console;
  NotificationCenter notifications{world.mainLoop()};
  Services services{world.mainLoop(), world.clock(), pretendTime, disk,         http,
                    images,           world,         console,     notifications};
};

}  // namespace tarvel
