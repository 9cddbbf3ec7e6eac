#include "platform/qt/modal_waits.h"

#include <QEvent>
#include <QEventLoop>
#include <algorithm>

#include "platform/qt/frame_place.h"
#include "platform/qt/wayland.h"

namespace kestrava {

int ModalWaits::Ask(QDialog& dialog) {
  if (eventLoop_.HasEnded()) return QDialog::Rejected;
  // The toolkit's own wait would end as soon as the dialog is hidden.
  QEventLoop answer;
  connect(&dialog, &QDialog::finished, &answer, &QEventLoop::quit);
  connect(&eventLoop_, &QtEventLoop::Ended, &dialog, &QDialog::reject);
  const Wait wait(*this, dialog);
  dialog.show();
  LetMaximize(dialog);
  answer.exec();
  return dialog.result();
}

ModalWaits::Wait::Wait(ModalWaits& waits, QWidget& window) : waits_(waits), window_(window) {
  window.setWindowModality(Qt::WindowModal);
  window.installEventFilter(&waits_);
  waits_.open_.push_back({&window, {}});
  if (waits_.open_.size() == 1) emit waits_.Waiting(true);
}

ModalWaits::Wait::~Wait() {
  window_.removeEventFilter(&waits_);
  std::erase_if(waits_.open_, [this](const Open& open) { return open.window == &window_; });
  // At the end of the program one above may be left, which must not go with this one.
  for (const Open& open : waits_.open_) {
    if (open.window->parentWidget() != &window_) continue;
    open.window->setParent(waits_.mainWindow_, open.window->windowFlags());
  }
  if (waits_.open_.empty()) emit waits_.Waiting(false);
}

void ModalWaits::Hide() {
  // The topmost first, as each belongs to the one below it.
  std::for_each(open_.rbegin(), open_.rend(), [](Open& open) {
    if (!open.window->isVisible()) return;
    open.hiddenAt = FramePlaceOf(*open.window);
    open.window->hide();
  });
}

void ModalWaits::Show() {
  for (const Open& open : open_) {
    QWidget& window = *open.window;
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    if (window.isVisible()) continue;
    if (open.hiddenAt) PutFrameAt(window, *open.hiddenAt);
    window.show();
  }
  BringToFront();
}

void ModalWaits::BringToFront() {
  for (const Open& open : open_) {
    if (open.window->isVisible()) open.window->raise();
  }
  if (!open_.empty() && open_.back().window->isVisible()) open_.back().window->activateWindow();
}

bool ModalWaits::eventFilter(QObject* watched, QEvent* event) {
  const auto* window = static_cast<QWidget*>(watched);
  if (event->type() == QEvent::WindowStateChange && window->isMinimized() && window->isVisible()) {
    Hide();
    emit Minimized();
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace kestrava
