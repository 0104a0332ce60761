#include "fuzz/Checks.h"

#include <gtest/gtest.h>

#include "fuzz/RinkRows.h"
#include "platform/FatalError.h"

namespace tarvel::fuzz {
namespace {

using Codec = Bytes (*)(ByteView);

Bytes copied(ByteView file) {
  if (file.empty()) throw DecodeError("nothing");
  return {file.begin(), file.end()};
}
Bytes shortened(ByteView file) {
  return copied(file.first(file.size() - 1));
}
Bytes nothing(ByteView) {
  return {};
}
template <int extra>
Bytes greedy(ByteView file) {
  const Bytes taken(allowance(file) / 2);
  return Bytes(allowance(file) / 2 + extra);
}

TEST(FuzzChecksDeathTest, AFaultyReaderOrWriterEndsTheProgram) {
  const Bytes input(64, 7);
  const struct {
    const char* name;
    Codec decode, encode;
    const char* promise;
  } cases[] = {
      {"more memory than allowed", greedy<4096>, copied, "memory in proportion to the input"},
      {"a writer that writes nothing", copied, nothing, "what was written can be read"},
      {"a writer that loses a byte", copied, shortened, "what was written is read as it was"},
      {"a reader that loses a byte", shortened, copied, "what was written is read as it was"},
  };
  for (const auto& c : cases)
    EXPECT_DEATH(roundTrip(input, c.decode, c.encode), std::string("Broken promise: .*") + c.promise)
        << c.name;
  RinkListFile rinks;
  rinks.rinks.resize(2);
  rinks.rinks[0].rinkID = 1;
  EXPECT_DEATH(requireOrder(rinks), "Broken promise: rinks ascend by their ids");
}

TEST(FuzzChecksTest, WhatIsInOrderOrRefusedPasses) {
  EXPECT_EQ(roundTrip(Bytes(64, 7), copied, copied), Bytes(64, 7));
  EXPECT_TRUE(decoded(Bytes(64, 7), greedy<-4096>));
  EXPECT_FALSE(roundTrip(Bytes(), copied, copied));
}

TEST(FuzzChecksTest, OnlyTwoReasonsMayStopTheProgram) {
  const auto stopping = [](const char* reason) {
    return decoded(Bytes(1), [reason](ByteView) -> Bytes { fatalError(reason); });
  };
  EXPECT_FALSE(stopping("negative count"));
  EXPECT_FALSE(stopping("unknown session kind in a week file"));
  EXPECT_THROW(stopping("anything else"), ProgramStop);
}

}  // namespace
}  // namespace tarvel::fuzz
