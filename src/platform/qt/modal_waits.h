#pragma once

#include <QDialog>
#include <QObject>
#include <QPoint>
#include <optional>
#include <vector>

#include "platform/qt/qt_event_loop.h"

namespace kestrava {

/// The windows that wait for the user's answer: dialogs, message boxes, prompts and file dialogs.
/// Each stands above the one that was there before it and blocks that and all below, down to the
/// main window, but nothing else: the icon in the tray works on. They come and go with the main
/// window, out of sight and back, without an end to their waits.
class ModalWaits final : public QObject {
  Q_OBJECT

 public:
  explicit ModalWaits(QtEventLoop& eventLoop) : eventLoop_(eventLoop) {}

  /// `window` is the one below all that wait.
  void SetMainWindow(QWidget& window) { mainWindow_ = &window; }

  /// The window that the next one is to belong to; nullptr where there is no main window.
  QWidget* Owner() const { return open_.empty() ? mainWindow_ : open_.back().window; }

  /// Shows a dialog that belongs to `Owner()`, and returns when the user has answered it or the
  /// program ends. @return its result; that of a rejected one at the end of the program.
  int Ask(QDialog& dialog);

  /// A window that belonged to `Owner()` waits for as long as this lives.
  class Wait {
   public:
    Wait(ModalWaits& waits, QWidget& window);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

   private:
    ModalWaits& waits_;
    QWidget& window_;
  };

  /// Takes the windows off the screen; they go on waiting.
  void Hide();
  /// Brings them back, the topmost in front and in use.
  void Show();
  /// The same for those that are on the screen.
  void BringToFront();

 signals:
  /// Whether any window waits.
  void Waiting(bool any);
  /// The user has minimised one of the windows. They are all off the screen already.
  void Minimized();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Open {
    QWidget* window;
    std::optional<QPoint> hiddenAt;  ///< where its frame was when it was hidden
  };

  QtEventLoop& eventLoop_;
  QWidget* mainWindow_ = nullptr;
  std::vector<Open> open_;  ///< from the lowest to the topmost
};

}  // namespace kestrava
