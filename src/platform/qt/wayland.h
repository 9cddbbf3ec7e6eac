#pragma once

#include <QGuiApplication>

namespace kestrava {

/// Whether the program's windows belong to a Wayland compositor, which neither lets a program place
/// them nor tells it where they and the pointer are.
inline bool OnWayland() { return QGuiApplication::platformName().startsWith("wayland"); }

}  // namespace kestrava
