#pragma once

struct tagMSG;

namespace kestrava {

/// Waits for the thread's next message and serves it. @return false once the program is to end.
bool ServeNextMessage();

/// Serves `message`: as a key of the window in use, or by its window's procedure.
void Serve(tagMSG& message);

}  // namespace kestrava
