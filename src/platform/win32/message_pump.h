#pragma once

struct tagMSG;

namespace kestrava {

class Win32EventLoop;

/// Waits for the thread's next message and serves it, or ends a turn that waits for the last of
/// them. @return false once the program is to end.
bool ServeNextMessage(Win32EventLoop& eventLoop);

/// Serves `message`: as a key of the window in use, or by its window's procedure.
void Serve(tagMSG& message);

}  // namespace kestrava
