#include "platform/linux_desktop/tray/tray_icon.h"

#include <QTimer>
#include <chrono>
#include <utility>

namespace kestrava {

namespace {

/// A window that shows at the start is painted first: the session bus and the tray answer in their
/// own time.
constexpr std::chrono::milliseconds kFirstLook(100);

}  // namespace

TrayIcon::TrayIcon(MakeMenu makeMenu, const QWidget& window)
    : makeMenu_(std::move(makeMenu)), window_(window) {
  QTimer::singleShot(kFirstLook, this, &TrayIcon::LookForTrays);
}

void TrayIcon::SetIcon(const QIcon& icon) {
  icon_ = icon;
  if (onBus_) onBus_->SetIcon(icon);
  if (embedded_) embedded_->setIcon(icon);
}

void TrayIcon::SetTip(const QString& tip) {
  tip_ = tip;
  if (onBus_) onBus_->SetTip(tip);
  if (embedded_) embedded_->setToolTip(tip);
  if (standIn_) standIn_->setToolTip(tip.toHtmlEscaped());
}

QRect TrayIcon::Geometry() const {
  if (standIn_) return {standIn_->mapToGlobal(QPoint()), standIn_->size()};
  return embedded_ ? embedded_->geometry() : QRect();
}

void TrayIcon::LookForTrays() {
  connect(&lateBus_.emplace(), &LateSessionBus::Came, this, &TrayIcon::LookOnBus);
  connect(&xembed_.emplace(), &XembedWatch::Changed, this, &TrayIcon::Follow);
  LookOnBus();
}

void TrayIcon::LookOnBus() {
  connect(&statusNotifier_.emplace(), &StatusNotifierWatch::Changed, this, &TrayIcon::Follow);
  Follow();
}

void TrayIcon::Follow() {
  if (statusNotifier_->State() == StatusNotifierWatch::Host::Asking) return;
  const TrayKind kind = BestKind();
  if (kind == kind_) return;
  kind_ = kind;
  standIn_.reset();
  embedded_.reset();
  onBus_.reset();
  menu_.reset();
  switch (kind) {
    case TrayKind::StatusNotifier:
      return ShowOnBus();
    case TrayKind::Xembed:
      return ShowEmbedded();
    default:
      return ShowStandIn();
  }
}

TrayIcon::TrayKind TrayIcon::BestKind() const {
  using Host = StatusNotifierWatch::Host;
  const Host host = statusNotifier_->State();
  if (host == Host::Present) return TrayKind::StatusNotifier;
  // The toolkit looks for a host by itself and waits for its answer, so it must not be made to ask
  // somebody who doesn't give one.
  const bool mayEmbed = xembed_->TrayPresent() && (host == Host::Absent || embedded_);
  return mayEmbed && QSystemTrayIcon::isSystemTrayAvailable() ? TrayKind::Xembed
                                                              : TrayKind::StandIn;
}

void TrayIcon::ShowOnBus() {
  // A host may draw the menu itself, and some show no icon without one.
  menu_ = makeMenu_();
  onBus_ = std::make_unique<StatusNotifierItem>(icon_, tip_, menu_.get());
  connect(onBus_.get(), &StatusNotifierItem::ContextRequested, this, &TrayIcon::ContextRequested);
  connect(onBus_.get(), &StatusNotifierItem::Taken, this, [this] { standIn_.reset(); });
  connect(onBus_.get(), &StatusNotifierItem::NotTaken, this, &TrayIcon::ShowStandIn);
}

void TrayIcon::ShowEmbedded() {
  embedded_ = std::make_unique<QSystemTrayIcon>(icon_);
  embedded_->setToolTip(tip_);
  connect(embedded_.get(), &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Context) emit ContextRequested();
          });
  embedded_->show();
}

void TrayIcon::ShowStandIn() {
  standIn_ = std::make_unique<StandInIcon>(icon_, window_);
  standIn_->setToolTip(tip_.toHtmlEscaped());
  connect(standIn_.get(), &StandInIcon::ContextRequested, this, &TrayIcon::ContextRequested);
}

}  // namespace kestrava
