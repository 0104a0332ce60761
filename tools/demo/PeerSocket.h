#pragma once
#include <optional>

namespace tarvel::demo {

/// The descriptor of this process's connected socket between two ports of the loopback interface. The HTTP
/// library doesn't tell a handler which connection it answers, and a server that is to misbehave has to know.
std::optional<int> socketOfPeer(int localPort, int peerPort);

/// Ends the connection in order, at once, whatever is still to be written.
void hangUp(int socket);
/// Aborts the connection: the other side sees a reset.
void abortConnection(int socket);

}  // namespace tarvel::demo
