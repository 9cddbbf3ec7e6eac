#pragma once

#include <cstdint>
#include <string>

#include "platform/task.h"

namespace kestrava {

enum class MessageIcon;
class MessageBoxes;
class WindowsSockets;

/// The high byte of a word: the number divided by 256, truncated toward zero, low 8 bits kept.
int WordHighByte(std::int16_t word);
/// The low 8 bits of a word.
int WordLowByte(std::int16_t word);

/// The system's socket layer, up for the length of one echo. Every failure shows its message, waits
/// for the user's answer and has no other effect.
class SocketLayer {
 public:
  SocketLayer(WindowsSockets& sockets, MessageBoxes& messageBoxes)
      : sockets_(sockets), messageBoxes_(messageBoxes) {}

  /// True if the layer is up and good enough: version 1.1 or later, and at least one socket.
  Task<bool> OpenSocketLayer();

  /// True if the layer was closed without complaint.
  Task<bool> CloseSocketLayer();

 private:
  Task<bool> Complain(std::string text, MessageIcon icon);

  WindowsSockets& sockets_;
  MessageBoxes& messageBoxes_;
};

}  // namespace kestrava
