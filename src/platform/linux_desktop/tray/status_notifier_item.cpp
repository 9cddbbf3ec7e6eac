#include "platform/linux_desktop/tray/status_notifier_item.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QtEndian>

#include "platform/linux_desktop/session_bus.h"

namespace kestrava {

namespace {

// Names from the StatusNotifierItem document of freedesktop.org, as the desktops have them.
constexpr const char* kPath = "/StatusNotifierItem";
/// What stands for no menu.
constexpr const char* kNoMenu = "/NO_DBUSMENU";

/// The sizes in which desktops show such icons, once and twice as fine.
constexpr int kSizes[] = {16, 22, 24, 32, 48};

}  // namespace

StatusNotifierItem::StatusNotifierItem(const QIcon& icon, const QString& tip, const QMenu* menu)
    : icon_(icon), tip_(tip) {
  RegisterSentType<IconImage>();
  RegisterSentType<IconImages>();
  RegisterSentType<IconTip>();
  if (menu) menu_.emplace(*menu);
  SessionBus().registerObject(
      kPath, this,
      QDBusConnection::ExportScriptableContents | QDBusConnection::ExportAllProperties);
  patience_.setSingleShot(true);
  patience_.setInterval(kServicePatience);
  connect(&patience_, &QTimer::timeout, this, &StatusNotifierItem::NotTaken);
  Register();
}

StatusNotifierItem::~StatusNotifierItem() { SessionBus().unregisterObject(kPath); }

void StatusNotifierItem::SetIcon(const QIcon& icon) {
  icon_ = icon;
  emit NewIcon();
}

void StatusNotifierItem::SetTip(const QString& tip) {
  tip_ = tip;
  emit NewToolTip();
}

QString StatusNotifierItem::Title() const { return QGuiApplication::applicationDisplayName(); }

IconImages StatusNotifierItem::IconPixmap() const {
  IconImages images;
  for (const int size : kSizes) {
    const QImage image = icon_.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) continue;
    QByteArray pixels(image.sizeInBytes(), Qt::Uninitialized);
    qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, pixels.data());
    images.push_back({image.width(), image.height(), pixels});
  }
  return images;
}

QDBusObjectPath StatusNotifierItem::Menu() const {
  return QDBusObjectPath(menu_ ? ExportedMenu::kPath : kNoMenu);
}

void StatusNotifierItem::ContextMenu(int, int) { emit ContextRequested(); }

void StatusNotifierItem::Register() {
  QDBusConnection bus = SessionBus();
  QDBusMessage request =
      QDBusMessage::createMethodCall(kStatusNotifierWatcher, kStatusNotifierWatcherPath,
                                     kStatusNotifierWatcher, "RegisterStatusNotifierItem");
  request.setArguments({bus.baseService()});
  request.setAutoStartService(false);
  auto* answer = new QDBusPendingCallWatcher(
      bus.asyncCall(request, static_cast<int>(kLatestAnswer.count())), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
    call->deleteLater();
    patience_.stop();
    if (call->isError()) {
      emit NotTaken();
    } else {
      emit Taken();
    }
  });
  patience_.start();
}

}  // namespace kestrava
