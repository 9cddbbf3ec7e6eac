#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>
#include <optional>

#include "platform/linux_desktop/session_bus.h"
#include "platform/linux_desktop/tray/stand_in_icon.h"
#include "platform/linux_desktop/tray/status_notifier_item.h"
#include "platform/linux_desktop/tray/status_notifier_watch.h"
#include "platform/linux_desktop/tray/xembed_watch.h"

namespace kestrava {

/// An icon in the desktop's tray, whichever kind of tray that is. It follows trays that come and go
/// while the program runs; where there is none, a window in the corner of the screen stands in.
class TrayIcon final : public QObject {
  Q_OBJECT

 public:
  /// Makes the menu for a tray that draws the icon's menu itself; may give nullptr.
  using MakeMenu = std::function<std::unique_ptr<QMenu>()>;

  /// `window` is the one that the icon stands for.
  TrayIcon(MakeMenu makeMenu, const QWidget& window);

  void SetIcon(const QIcon& icon);
  const QIcon& Icon() const { return icon_; }
  void SetTip(const QString& tip);

  /// Where the icon is on the screen; empty where nobody knows.
  QRect Geometry() const;

 signals:
  /// The user has asked for the icon's menu, and nobody else shows it.
  void ContextRequested();

 private:
  enum class TrayKind { None, StatusNotifier, Xembed, StandIn };

  void LookForTrays();
  void LookOnBus();
  void Follow();
  TrayKind BestKind() const;
  void ShowOnBus();
  void ShowEmbedded();
  void ShowStandIn();

  MakeMenu makeMenu_;
  const QWidget& window_;
  QIcon icon_;
  QString tip_;
  TrayKind kind_ = TrayKind::None;
  std::optional<LateSessionBus> lateBus_;
  std::optional<StatusNotifierWatch> statusNotifier_;
  std::optional<XembedWatch> xembed_;
  std::unique_ptr<QMenu> menu_;
  std::unique_ptr<StatusNotifierItem> onBus_;
  std::unique_ptr<QSystemTrayIcon> embedded_;
  std::unique_ptr<StandInIcon> standIn_;
};

}  // namespace kestrava
