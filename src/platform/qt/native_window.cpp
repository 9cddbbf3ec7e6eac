#include "platform/qt/native_window.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/qt/frame_place.h"
#include "platform/qt/native_controls.h"
#include "platform/qt/native_menu.h"
#include "platform/qt/native_timer.h"
#include "platform/qt/text.h"
#include "platform/qt/wayland.h"
#include "platform/qt/window_frame.h"

namespace kestrava {

namespace {

/// What isn't there at seven times the size will never fit.
constexpr int kMostSteps = 200;

}  // namespace

NativeWindow::NativeWindow(Form& form, QWidget* owner)
    : form_(&form),
      area_(new QWidget),
      widget_(MakeWindow(form.Spec().style, owner, area_)),
      link_(std::make_unique<Link>()) {
  const FormSpec& spec = form.Spec();
  widget_->layout()->setSizeConstraint(QLayout::SetFixedSize);
  widget_->setObjectName(spec.name);
  widget_->setWindowTitle(ToShown(spec.caption));
  widget_->installEventFilter(this);
  if (auto* window = qobject_cast<QMainWindow*>(widget_); window && !spec.menu.empty()) {
    BuildMenu(form, *link_, *window->menuBar(), commands_);
  }
  BuildControls();
  ChainTabOrder();
  NameForScreenReaders();
  Arrange();
  for (Timer* timer : form.Timers()) new NativeTimer(*timer, link_->Context());
  link_->Keep(form.Observe([this] { ShowForm(); }));
  ShowForm();
}

NativeWindow::~NativeWindow() {
  link_.reset();
  delete widget_;
}

QSize NativeWindow::OuterSize() const {
  QMargins frame;
  if (everShown_) {
    frame = FrameOf(*widget_);
  } else if (const QWidget* owner = widget_->parentWidget()) {
    frame = FrameOf(*owner);
  }
  return widget_->size().grownBy(frame);
}

void NativeWindow::Detach() {
  link_.reset();
  widget_->hide();
}

bool NativeWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!link_) return QObject::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::Close:
      event->ignore();
      emit CloseRequested();
      return true;
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) break;
      LeaveByEscape();
      return true;
    case QEvent::FontChange:
    case QEvent::StyleChange:
      Arrange();
      break;
    case QEvent::Show:
      // On Wayland the buttons of the window's own title bar are all that tells of it.
      if (OnWayland()) {
        connect(widget_->windowHandle(), &QWindow::windowStateChanged, this,
                &NativeWindow::TakeMinimize,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
      }
      break;
    case QEvent::Move:
      TakeFrame();
      break;
    case QEvent::WindowStateChange:
      TakeWindowState();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void NativeWindow::BuildControls() {
  for (Control* control : form_->Controls()) {
    QWidget* widget = MakeNativeControl(*control, *link_, area_);
    if (!widget) continue;
    parts_.push_back({&control->Spec(), widget, {}});
    if (auto* button = qobject_cast<QPushButton*>(widget)) {
      button->setDefault(widget->objectName() == form_->Spec().defaultButton);
    }
  }
  std::ranges::sort(parts_, {}, [](const Part& part) { return part.spec->tabOrder; });
}

void NativeWindow::ChainTabOrder() {
  QWidget* previous = nullptr;
  for (const Part& part : parts_) {
    if (part.widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous) {
      QWidget::setTabOrder(previous, part.widget);
    } else {
      part.widget->setFocus(Qt::TabFocusReason);
    }
    previous = part.widget;
  }
}

void NativeWindow::NameForScreenReaders() {
  QLabel* label = nullptr;
  for (const Part& part : parts_) {
    if (part.spec->kind == ControlKind::Label) {
      label = qobject_cast<QLabel*>(part.widget);
      continue;
    }
    QString name = ToShown(part.spec->caption).remove('&');
    if (name.isEmpty() && label) {
      label->setBuddy(part.widget);
      name = label->text();
    }
    label = nullptr;
    // What nothing names is what its window is about.
    if (name.isEmpty()) name = widget_->windowTitle();
    if (part.widget->accessibleName().isEmpty()) part.widget->setAccessibleName(name);
  }
}

void NativeWindow::Arrange() {
  scale_ = TwipScale::ForFontHeight(widget_->fontMetrics().height());
  for (Part& part : parts_) part.least = part.widget->minimumSizeHint();
  for (int step = 0; step < kMostSteps && !Fits(scale_); ++step) scale_ = scale_.Larger();
  ArrangeColumns();
  for (const Part& part : parts_) PlaceNativeControl(*part.widget, *part.spec, scale_);
  area_->setFixedSize(scale_.ToPixels(form_->Spec().width), scale_.ToPixels(form_->Spec().height));
  // The window must have its size before it shows, to be centred by it.
  widget_->layout()->activate();
}

bool NativeWindow::Fits(const TwipScale& scale) const {
  return std::ranges::all_of(parts_, [&](const Part& part) {
    const PixelPlace place = scale.PlaceOf(*part.spec);
    return FitsInto(*part.widget, part.least, QSize(place.width, place.height));
  });
}

void NativeWindow::ArrangeColumns() {
  const int most = widget_->screen()->availableSize().width();
  for (TwipScale scale = scale_; scale.ToPixels(form_->Spec().width) <= most;
       scale = scale.Larger()) {
    const bool enough = std::ranges::all_of(parts_, [&](const Part& part) {
      return HasRoomForColumns(*part.widget, *part.spec, scale);
    });
    if (!enough) continue;
    scale_ = scale;
    return;
  }
}

void NativeWindow::ShowForm() {
  MoveToPlace();
  if (form_->Pointer() == MousePointer::Busy) {
    widget_->setCursor(Qt::BusyCursor);
  } else {
    widget_->unsetCursor();
  }
  ShowWindowState();
  ShowVisibility();
}

void NativeWindow::ShowWindowState() {
  const bool minimized = form_->WindowState() == WindowState::Minimized;
  if (widget_->isMinimized() == minimized) return;
  widget_->setWindowState(widget_->windowState().setFlag(Qt::WindowMinimized, minimized));
}

void NativeWindow::ShowVisibility() {
  // A dialog may be off the screen with its main window and wait all the same.
  if (shown_ == form_->Visible()) return;
  shown_ = form_->Visible();
  if (!shown_) {
    if (widget_->windowHandle()) hiddenAt_ = FramePlaceOf(*widget_);
    widget_->hide();
    emit Hidden();
    return;
  }
  if (hiddenAt_) {
    TakeOwnSize(*widget_);
    PutFrameAt(*widget_, *hiddenAt_);
  } else {
    // Its tables have got their columns meanwhile.
    Arrange();
    KeepCentre();
  }
  const bool shownBefore = std::exchange(everShown_, true);
  widget_->show();
  if (!shownBefore) LetMaximize(*widget_);
  if (hiddenAt_) {
    // It comes back in front.
    widget_->raise();
    widget_->activateWindow();
  }
  emit Shown();
}

void NativeWindow::TakeWindowState() {
  SetWindowState(widget_->isMinimized() ? WindowState::Minimized : WindowState::Normal);
}

void NativeWindow::TakeMinimize(Qt::WindowState state) {
  if (link_ && state == Qt::WindowMinimized) SetWindowState(WindowState::Minimized);
}

void NativeWindow::SetWindowState(WindowState state) {
  if (form_->WindowState() == state) return;
  form_->SetWindowState(state);
  form_->Resize.Raise();
}

void NativeWindow::MoveToPlace() {
  const std::pair place(form_->Left(), form_->Top());
  if (!form_->Placed() || (placed_ && place_ == place)) return;
  // Later changes of other state must not take back a move of the user's.
  place_ = place;
  placed_ = true;
  outer_ = OuterSize();
  corner_ = widget_->screen()->geometry().topLeft() +
            QPoint(scale_.ToPixels(place.first), scale_.ToPixels(place.second));
  widget_->move(corner_);
}

void NativeWindow::KeepCentre() {
  const QSize grown = OuterSize() - outer_;
  if (!placed_ || grown.isNull()) return;
  outer_ += grown;
  corner_ -= QPoint(grown.width() / 2, grown.height() / 2);
  widget_->move(corner_);
}

void NativeWindow::TakeFrame() {
  if (framed_ || !everShown_ || !placed_ || OnWayland()) return;
  if (FrameOf(*widget_).isNull()) return;
  framed_ = true;
  // A window manager that places windows by itself knows better.
  if (widget_->windowHandle()->framePosition() == corner_) KeepCentre();
}

void NativeWindow::LeaveByEscape() {
  const FormSpec& spec = form_->Spec();
  if (*spec.cancelButton != '\0') {
    widget_->findChild<QPushButton*>(spec.cancelButton)->click();
  } else if (spec.style == FormStyle::ToolWindow) {
    // Not every window manager has a key for the close box.
    emit CloseRequested();
  }
}

}  // namespace kestrava
