/// The image process's end of the connection: it answers one request after the other with the image engine.
#pragma once

#include "Utilities/Images/ImageMessages.h"

#include <functional>

namespace korvane::ImageServer {

/// Whether the connection is there: a socket of the type that the window's process passes on.
bool isConnected(int socket);

/// The first message, with what the libraries can read and write; it does not claim that the process is
/// isolated.
ImageMessages::Greeting greeting();

using Request = ImageMessages::Received<ImageMessages::Request>;

/// Answers requests until the connection ends, or something is received that is not a request. `before` is
/// called with every request first; the tests' build of the program misbehaves there.
void serve(int socket, const std::function<void(const Request&)>& before = {});

} // namespace korvane::ImageServer
