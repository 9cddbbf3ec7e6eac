#include "platform/win32/session_end.h"

#include <utility>

#include "platform/win32/windows_api.h"

namespace kestrava {

SessionEnd::SessionEnd(std::function<void()> ended)
    : window_(MessageWindow::Kind::TopLevel,
              [ended = std::move(ended)](unsigned message, std::uintptr_t ends, std::intptr_t) {
                // Another program may have kept the session from ending.
                if (message != WM_ENDSESSION || ends == 0) return false;
                ended();
                return true;
              }) {}

}  // namespace kestrava
