#include "model/SessionKind.h"

namespace tarvel {

const std::array<SessionStyle, kSessionKindCount> kBuiltInSessions = {{
    {"Resurface", {1.0, 1.0, 1.0}},
    {"Public Session", {0.5384, 0.9809, 0.566}},
    {"Private", {0.949, 0.4824, 0.9804}},
    {"Rental", {0.7647, 0.498, 1.0}},
    {"Freestyle", {0.9804, 0.9961, 0.498}},
    {"Skating School", {0.9699, 0.803, 0.3779}},
    {"Hockey Game", {0.4314, 0.6118, 1.0}},
    {"Hockey Practice", {0.6118, 0.8196, 1.0}},
    {"Stick Time", {0.3686, 0.9373, 1.0}},
    {"Pickup Hockey", {0.3686, 0.9373, 1.0}},
    {"Other", {0.7961, 0.7961, 0.7961}},
    {"Synchronized", {1.0, 0.5451, 0.3922}},
    {"Private Training", {0.6898, 0.4023, 0.9688}},
    {"Special Event", {1.0, 0.3, 0.3}},
    {"Group Exercise Class", {0.5685, 0.975, 0.4748}},
    {"Class", {0.9961, 1.0, 0.4824}},
    {"Party", {0.0729, 0.9529, 0.9448}},
    {"Meeting", {0.4937, 0.6353, 0.9793}},
    {"Broomball", {1.0, 0.15, 0.15}},
}};

std::string_view builtInName(SessionKind kind) {
  return kBuiltInSessions[static_cast<std::size_t>(kind)].name;
}

}  // namespace tarvel
