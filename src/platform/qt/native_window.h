#pragma once

#include <QActionGroup>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/qt/link.h"
#include "platform/twips.h"

namespace kestrava {

/// The native window of one form. It shows the form's state and feeds the user's input back to it.
/// It owns its widget.
class NativeWindow final : public QObject {
  Q_OBJECT

 public:
  /// Builds the window, unseen. `owner` is the window that it belongs to, or nullptr.
  NativeWindow(Form& form, QWidget* owner);
  ~NativeWindow() override;

  QWidget& Widget() const { return *widget_; }
  const TwipScale& Scale() const { return scale_; }
  /// In pixels, with its frame. A window that has not been shown yet is taken to get the frame of
  /// its owner.
  QSize OuterSize() const;

  /// Does what the user's own minimising does.
  void Minimize() { SetWindowState(WindowState::Minimized); }

  /// Leaves only those commands that go beside a dialog, or all of them again.
  void SetBlocked(bool blocked) { commands_.setDisabled(blocked); }

  /// Takes the window off the screen and leaves the form alone from now on.
  void Detach();

 signals:
  /// The user has pressed the close box. The window itself does nothing about it.
  void CloseRequested();
  /// The form has become visible, or isn't any more.
  void Shown();
  void Hidden();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildControls();
  void ChainTabOrder();
  void NameForScreenReaders();
  /// Sizes everything by the font.
  void Arrange();
  bool Fits(const TwipScale& scale) const;
  /// Gives tables room for their columns, where the screen has room for the window then.
  void ArrangeColumns();
  /// Mirrors the state of the form itself.
  void ShowForm();
  void MoveToPlace();
  /// Keeps the middle of the window where the form put it when the window turns out to be larger
  /// than it was taken for.
  void KeepCentre();
  void TakeFrame();
  void ShowVisibility();
  void ShowWindowState();
  /// The user has minimised the window or brought it back.
  void TakeWindowState();
  void TakeMinimize(Qt::WindowState state);
  void SetWindowState(WindowState state);
  /// Presses the cancel button, or the close box of a dialog that has no such button.
  void LeaveByEscape();

  struct Part {
    const ControlSpec* spec;
    QWidget* widget;
    QSize least;  ///< the widget's, at the present font
  };

  Form* form_;
  QWidget* area_;
  QPointer<QWidget> widget_;  ///< nullptr once the widget that it belongs to has taken it along
  std::vector<Part> parts_;   ///< in tab order
  TwipScale scale_;
  std::pair<int, int> place_;  ///< where the form was last put, in its twips
  bool placed_ = false;
  QPoint corner_;       ///< of the frame, as it was last put
  QSize outer_;         ///< of the window, as it was taken for then
  bool shown_ = false;  ///< as the form had it last
  bool everShown_ = false;
  bool framed_ = false;             ///< the frame is known and reckoned with
  std::optional<QPoint> hiddenAt_;  ///< where the frame was when the window was hidden
  QActionGroup commands_{nullptr};  ///< those that must not run beside a dialog
  std::unique_ptr<Link> link_;      ///< of form and widgets; nullptr once they are apart
};

}  // namespace kestrava
