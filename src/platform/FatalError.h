#pragma once
#include <string_view>

namespace tarvel {

/// Stops the program at once: prints "Fatal error" with the file and line of the caller, and `reason` behind
/// them when there is one, to standard error and aborts. For programming errors, and for server files that
/// break a rule whose breach must not be survived (a negative count, an unknown session kind); never for a
/// bad environment.
[[noreturn]] void fatalError(std::string_view reason = {}, const char* file = __builtin_FILE(),
                             int line = __builtin_LINE());

using FatalErrorHandler = void (*)(std::string_view reason);
/// For simulations, in which a program ends many times in one process: called before anything is printed; one
/// that throws keeps the process alive. Null, as at start, for none. Gives the handler of before. Main
/// thread.
FatalErrorHandler setFatalErrorHandler(FatalErrorHandler handler);

}  // namespace tarvel
