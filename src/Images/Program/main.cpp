/// The image process: it decodes, transforms and encodes pictures for the window's process, and can do
/// nothing else. That process starts it; it is of no use to anybody else.

#include "Images/Program/Sandbox.h"
#include "Images/Program/Server.h"
#include "Images/Program/WarmUp.h"

int main() {
    using namespace korvane;
    constexpr int socket = ImageMessages::socketNumber;
    if (!ImageServer::isConnected(socket) || !warmUpImageLibraries())
        return 1;
    auto greeting = ImageServer::greeting();
    greeting.isIsolated = Sandbox::close({}) ? 1 : 0;
    if (!ImageMessages::send(socket, greeting) || greeting.isIsolated == 0)
        return 1;
    ImageServer::serve(socket);
    return 0;
}
