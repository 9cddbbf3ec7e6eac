#pragma once

namespace kestrava {

/// Something of this system that happens outside the window system and that the event loop serves.
class EventSource {
 public:
  virtual ~EventSource() = default;

  /// A file descriptor that stays the same for the object's life and polls readable whenever
  /// `Dispatch` has something to do.
  virtual int Descriptor() const = 0;

  /// Does what waits, without blocking.
  virtual void Dispatch() noexcept = 0;

  /// An attempt is under way that somebody waits for by pumping events, so an idle turn of the loop
  /// may rest.
  virtual bool UnderWay() const = 0;
};

}  // namespace kestrava
