#include "platform/qt/frame_place.h"

#include <QWindow>

namespace kestrava {

QPoint FramePlaceOf(const QWidget& window) { return window.windowHandle()->framePosition(); }

void PutFrameAt(QWidget& window, QPoint place) {
  // The toolkit alone would give the place inside the frame, which not all window managers
  // understand, unless its widget is there already.
  window.setGeometry({place, window.size()});
  window.windowHandle()->setFramePosition(place);
}

}  // namespace kestrava
