#include "platform/qt/tray/tray_icon.h"

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
  if (inTray_) inTray_->setIcon(icon);
}

void TrayIcon::SetTip(const QString& tip) {
  tip_ = tip;
  if (inTray_) inTray_->setToolTip(tip);
  if (standIn_) standIn_->setToolTip(tip.toHtmlEscaped());
}

QRect TrayIcon::Geometry() const {
  if (standIn_) return {standIn_->mapToGlobal(QPoint()), standIn_->size()};
  return road_ == Road::Xembed ? inTray_->geometry() : QRect();
}

void TrayIcon::LookForTrays() {
  connect(&statusNotifier_.emplace(), &StatusNotifierWatch::Changed, this, &TrayIcon::Follow);
  connect(&xembed_.emplace(), &XembedWatch::Changed, this, &TrayIcon::Follow);
  Follow();
}

void TrayIcon::Follow() {
  if (statusNotifier_->State() == StatusNotifierWatch::Host::Asking) return;
  const Road road = BestRoad();
  if (road == road_) return;
  road_ = road;
  standIn_.reset();
  inTray_.reset();
  menu_.reset();
  if (road == Road::StandIn) {
    ShowStandIn();
  } else {
    ShowInTray(road);
  }
}

TrayIcon::Road TrayIcon::BestRoad() const {
  // The toolkit asks once in a process which kind of tray there is, and keeps to it. It waits for
  // the answer, so it must not be made to ask somebody who doesn't give one.
  static Road toolkitRoad = Road::None;
  using Host = StatusNotifierWatch::Host;
  const Host host = statusNotifier_->State();
  Road road = Road::StandIn;
  if (host == Host::Present && toolkitRoad != Road::Xembed) {
    road = Road::StatusNotifier;
  } else if (xembed_->TrayPresent() && toolkitRoad != Road::StatusNotifier &&
             (host != Host::Silent || toolkitRoad == Road::Xembed)) {
    road = Road::Xembed;
  }
  if (road == Road::StandIn || !QSystemTrayIcon::isSystemTrayAvailable()) return Road::StandIn;
  toolkitRoad = road;
  return road;
}

void TrayIcon::ShowInTray(Road road) {
  inTray_ = std::make_unique<QSystemTrayIcon>(icon_);
  inTray_->setToolTip(tip_);
  // A StatusNotifierItem host may draw the menu itself, and some show no icon without one. With an
  // embedded icon the toolkit would pop up a menu of its own beside ours.
  if (road == Road::StatusNotifier) {
    menu_ = makeMenu_();
    inTray_->setContextMenu(menu_.get());
  }
  connect(inTray_.get(), &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Context) emit ContextRequested();
          });
  inTray_->show();
}

void TrayIcon::ShowStandIn() {
  standIn_ = std::make_unique<StandInIcon>(icon_, window_);
  standIn_->setToolTip(tip_.toHtmlEscaped());
  connect(standIn_.get(), &StandInIcon::ContextRequested, this, &TrayIcon::ContextRequested);
}

}  // namespace kestrava
