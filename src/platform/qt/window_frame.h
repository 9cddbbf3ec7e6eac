#pragma once

#include <QMargins>
#include <QWidget>

#include "platform/form.h"

namespace kestrava {

/// A window, unseen, with the title bar of its style, around `area`, which stands below the menu
/// bar. `owner` is the window that it belongs to, or nullptr.
QWidget* MakeWindow(FormStyle style, QWidget* owner, QWidget* area);

/// What the window manager has put around a window. Nothing where the window has not been shown.
QMargins FrameOf(const QWidget& window);

}  // namespace kestrava
