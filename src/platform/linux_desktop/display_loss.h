#pragma once

#include <functional>

namespace kestrava {

/// What is to be done when the X server or the Wayland compositor dies: the toolkit then ends the
/// process from deep inside itself, and nothing is unloaded. As long as the object lives, its
/// function runs once at such an end, and at any other exit(3). One object at a time, made by the
/// thread of the application object, after all that the function touches.
class DisplayLoss {
 public:
  /// `lost` runs on the same thread, whatever handler that was in, and must neither throw nor wait
  /// for the event loop.
  explicit DisplayLoss(std::function<void()> lost);
  ~DisplayLoss();
  DisplayLoss(const DisplayLoss&) = delete;
  DisplayLoss& operator=(const DisplayLoss&) = delete;
};

}  // namespace kestrava
