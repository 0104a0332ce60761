#pragma once
#include "auxwindows/ApplicationProtocol.h"
#include "foundation/ObserverCensus.h"
#include "model/DataModel.h"
#include "platform/SoundPlayer.h"
#include "platform/Workspace.h"

namespace tarvel {

/// What a window controller is given at its making; the members outlive it.
struct WindowContext {
  Services services;
  DataModel& dataModel;
  MessageLog& errorLog;
  ClockTimer& clockTimer;
  Workspace& workspace;
  ObserverCensus& observerCensus;
  ApplicationProtocol& application;
  SoundPlayer& sounds;
};

}  // namespace tarvel
