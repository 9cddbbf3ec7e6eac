// Linked into a Qt program, ends it with status 0 as soon as its first window has been painted.

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <cstdlib>

namespace {

class FirstPaintWatch : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* target, QEvent* event) override {
    if (event->type() == QEvent::Paint && target->isWidgetType()) {
      // Every widget of the window is painted within this turn of the event loop and the picture
      // handed to the display at its end; the timer comes in the turn after it.
      QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
      QCoreApplication::instance()->removeEventFilter(this);
    }
    return false;
  }
};

void WatchForFirstPaint() {
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new FirstPaintWatch(application));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchForFirstPaint)
