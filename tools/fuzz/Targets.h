#pragma once
#include <array>
#include <string_view>

#include "platform/Bytes.h"

/// What is fuzzed: each function takes any bytes whatever, as a server, a disk or another program may hand
/// them over, and ends the program where the code under it breaks a promise.
namespace tarvel::fuzz {

void rootFile(ByteView input);
void defsFile(ByteView input);
void rinksFile(ByteView input);
void masterFile(ByteView input);
void mainFile(ByteView input);
void schedulesFile(ByteView input);
void weekFile(ByteView input);
void noticesFile(ByteView input);
void photoCollectionFile(ByteView input);
void errorLog(ByteView input);
void fileNames(ByteView input);
void phoneNumber(ByteView input);
void propertyList(ByteView input);
void oldRinkList(ByteView input);
void stateFile(ByteView input);

struct Target {
  std::string_view name;
  void (*check)(ByteView input);
};

inline constexpr std::array<Target, 15> kTargets = {{
    {"rootFile", rootFile},
    {"defsFile", defsFile},
    {"rinksFile", rinksFile},
    {"masterFile", masterFile},
    {"mainFile", mainFile},
    {"schedulesFile", schedulesFile},
    {"weekFile", weekFile},
    {"noticesFile", noticesFile},
    {"photoCollectionFile", photoCollectionFile},
    {"errorLog", errorLog},
    {"fileNames", fileNames},
    {"phoneNumber", phoneNumber},
    {"propertyList", propertyList},
    {"oldRinkList", oldRinkList},
    {"stateFile", stateFile},
}};

}  // namespace tarvel::fuzz
