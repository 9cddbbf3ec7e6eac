#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <cstdint>

struct xcb_connection_t;

namespace kestrava {

/// Tells whether an X server has a tray that embeds windows, and tells when that may have changed.
/// See the System Tray Protocol of freedesktop.org.
class XembedWatch final : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  XembedWatch();
  ~XembedWatch() override;

  bool TrayPresent() const { return tray_ != 0; }

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 signals:
  void Changed();

 private:
  void FindTray();

  xcb_connection_t* connection_ = nullptr;  ///< nullptr where there is no X server
  std::uint32_t selection_ = 0;             ///< the atom whose owner is the tray
  std::uint32_t manager_ = 0;               ///< the atom by which a new tray makes itself known
  std::uint32_t tray_ = 0;                  ///< the tray's window; 0 for none
};

}  // namespace kestrava
