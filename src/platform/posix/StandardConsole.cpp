#include "platform/posix/StandardConsole.h"

#include <cstdio>
#include <string>

namespace tarvel {

void StandardConsole::printLine(std::string_view line) {
  const std::string text = std::string(line) + '\n';
  const std::lock_guard lock(mutex_);
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

}  // namespace tarvel
