#include "platform/linux_desktop/tray/notification_service.h"

#include <QDBusConnection>
#include <QVariantMap>
#include <chrono>
#include <utility>

#include "platform/linux_desktop/session_bus.h"
#include "platform/linux_desktop/tray/notification_picture.h"
#include "platform/program_title.h"

namespace kestrava {

namespace {

using namespace std::chrono_literals;

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kDefaultAction = "default";

/// Some services, Xfce's for one, tell no click on the text, but show a button for the default
/// action.
constexpr const char* kDefaultLabel = "Show Kestrava";

/// The program closes its notifications itself. This is for one that it leaves behind.
constexpr std::chrono::milliseconds kExpiry = 10s;

/// The token goes into the environment, where other programs get it too.
constexpr qsizetype kLongestToken = 4096;

QDBusMessage Call(const char* method, const QVariantList& arguments) {
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, method);
  call.setArguments(arguments);
  return call;
}

}  // namespace

NotificationService::NotificationService() {
  patience_.setSingleShot(true);
  patience_.setInterval(kServicePatience);
  connect(&patience_, &QTimer::timeout, this, &NotificationService::Fail);
}

void NotificationService::Show(const QString& title, const QString& body, const QIcon& picture) {
  ++requestId_;
  wanted_ = true;
  if (!Connect() || takeReply_) {
    Fail();
    return;
  }
  patience_.start();
  // Another service may have taken the place of the one that showed the last notification.
  Ask("GetCapabilities", {},
      [this, title, body, picture, request = requestId_](const QDBusMessage& answer) {
        if (request == requestId_)
          TakeCapabilities(answer.arguments().value(0).toStringList(), title, body, picture);
      });
}

void NotificationService::Hide() {
  ++requestId_;
  wanted_ = false;
  patience_.stop();
  Close(std::exchange(id_, 0));
}

bool NotificationService::Connect() {
  QDBusConnection bus = SessionBus();
  if (!bus.isConnected()) return false;
  if (watcher_) return true;
  watcher_.emplace(bus, kService);
  connect(&*watcher_, &BusNameWatch::Lost, this, [this] {
    id_ = 0;
    if (wanted_) Fail();
  });
  bus.connect({}, kPath, kService, "ActionInvoked", this,
              SLOT(TakeClick(uint, QString, QDBusMessage)));
  bus.connect({}, kPath, kService, "NotificationClosed", this,
              SLOT(TakeClosed(uint, uint, QDBusMessage)));
  bus.connect({}, kPath, kService, "ActivationToken", this,
              SLOT(TakeActivationToken(uint, QString, QDBusMessage)));
  return true;
}

void NotificationService::Ask(const char* method, const QVariantList& arguments, Take take) {
  takeReply_ = std::move(take);
  // This way answers and signals arrive in their order; a click may come right after the answer.
  const bool asked = SessionBus().callWithCallback(
      Call(method, arguments), this, SLOT(TakeAnswer(QDBusMessage)),
      SLOT(TakeError(QDBusError, QDBusMessage)), static_cast<int>(kLatestAnswer.count()));
  if (!asked) takeReply_ = {};
}

void NotificationService::TakeAnswer(const QDBusMessage& answer) {
  // It may ask anew.
  if (const Take take = std::exchange(takeReply_, {})) take(answer);
}

void NotificationService::TakeError(const QDBusError&, const QDBusMessage& answer) {
  TakeAnswer(answer);
}

void NotificationService::TakeCapabilities(const QStringList& capabilities, const QString& title,
                                           QString body, const QIcon& picture) {
  // An error has no capabilities either.
  if (!capabilities.contains("actions")) {
    Fail();
    return;
  }
  if (capabilities.contains("body-markup")) body = body.toHtmlEscaped();
  QVariantMap hints = {{"desktop-entry", kProgramName}, {"transient", true}};
  if (!picture.isNull()) hints.insert("image-data", NotificationPicture(picture));
  const int expiry = static_cast<int>(kExpiry.count());
  const QVariantList arguments = {kProgramTitle, id_,   kProgramName,
                                  title,         body,  QStringList{kDefaultAction, kDefaultLabel},
                                  hints,         expiry};
  Ask("Notify", arguments, [this, request = requestId_](const QDBusMessage& answer) {
    const uint id = answer.arguments().value(0).toUInt();
    if (request != requestId_) {
      Close(id);
    } else if (id == 0) {
      Fail();
    } else {
      id_ = id;
      shownBy_ = answer.service();
      patience_.stop();
    }
  });
}

bool NotificationService::IsOurs(uint id, const QDBusMessage& signal) const {
  return id != 0 && id == id_ && signal.service() == shownBy_;
}

void NotificationService::TakeClick(uint id, const QString& action, const QDBusMessage& signal) {
  if (IsOurs(id, signal) && action == kDefaultAction) emit Clicked();
}

void NotificationService::TakeClosed(uint id, uint, const QDBusMessage& signal) {
  if (!IsOurs(id, signal)) return;
  id_ = 0;
  wanted_ = false;
}

void NotificationService::TakeActivationToken(uint id, const QString& token,
                                              const QDBusMessage& signal) {
  if (!IsOurs(id, signal) || token.size() > kLongestToken) return;
  qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

void NotificationService::Close(uint id) {
  if (id != 0) SessionBus().send(Call("CloseNotification", {id}));
}

void NotificationService::Fail() {
  Hide();
  emit Failed();
}

}  // namespace kestrava
