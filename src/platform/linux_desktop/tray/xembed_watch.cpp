#include "platform/linux_desktop/tray/xembed_watch.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace kestrava {

namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, Free>;

xcb_atom_t Atom(xcb_connection_t* connection, const std::string& name) {
  const auto cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string ScreenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) != 0) std::free(host);
  return std::to_string(screen);
}

}  // namespace

XembedWatch::XembedWatch() {
  const auto* server = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!server || !server->connection()) return;
  connection_ = server->connection();
  selection_ = Atom(connection_, "_NET_SYSTEM_TRAY_S" + ScreenNumber());
  manager_ = Atom(connection_, "MANAGER");
  qGuiApp->installNativeEventFilter(this);
  FindTray();
}

XembedWatch::~XembedWatch() {
  if (connection_) qGuiApp->removeNativeEventFilter(this);
}

bool XembedWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != "xcb_generic_event_t") return false;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  const int type = event->response_type & ~0x80;
  const bool newTray = type == XCB_CLIENT_MESSAGE &&
                       reinterpret_cast<const xcb_client_message_event_t*>(event)->type == manager_;
  const bool trayGone = type == XCB_DESTROY_NOTIFY &&
                        reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window == tray_;
  // The toolkit follows the tray too: it shall have seen the event when the change is told.
  if (newTray || trayGone)
    QMetaObject::invokeMethod(
        this, [this] { FindTray(); }, Qt::QueuedConnection);
  return false;
}

void XembedWatch::FindTray() {
  const auto cookie = xcb_get_selection_owner(connection_, selection_);
  const ReplyPtr<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, cookie, nullptr));
  const std::uint32_t tray = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (tray == tray_) return;
  tray_ = tray;
  if (tray_ != XCB_WINDOW_NONE) {
    // So that its end is told.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, tray_, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
  }
  emit Changed();
}

}  // namespace kestrava
