#pragma once

#include <QGuiApplication>
#include <QWidget>

namespace kestrava {

/// Whether the program's windows belong to a Wayland compositor, which neither lets a program place
/// them nor tells it where they and the pointer are.
inline bool OnWayland() { return QGuiApplication::platformName().startsWith("wayland"); }

/// The title bar that the toolkit draws on Wayland has a maximise button whatever it is told, and a
/// compositor ends a program whose window doesn't take the size that it gets so. So a window of
/// fixed size gives its size up for as long as it is maximised. For a window that has been shown.
void LetMaximize(QWidget& window);

/// Gives a hidden window of fixed size, which may have been maximised, its size again. A compositor
/// knows nothing of the size that such a window had before: GNOME's makes one up.
void TakeOwnSize(QWidget& window);

}  // namespace kestrava
