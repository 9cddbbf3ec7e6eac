#pragma once

#include <QPoint>
#include <QWidget>

namespace kestrava {

/// The top left corner of the frame of a window that is on the screen.
QPoint FramePlaceOf(const QWidget& window);

/// Puts a window that was hidden back there, for every window manager.
void PutFrameAt(QWidget& window, QPoint place);

}  // namespace kestrava
