#pragma once

#include <memory>

#include "platform/win32/windows_api.h"

namespace kestrava {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// A handle of the system, closed at the end of its life.
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

/// None for the value that stands for a file that couldn't be opened.
inline OwnedHandle OwnedFile(HANDLE handle) {
  return OwnedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace kestrava
