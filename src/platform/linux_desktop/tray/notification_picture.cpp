#include "platform/linux_desktop/tray/notification_picture.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>

namespace kestrava {

namespace {

constexpr int kSize = 64;
constexpr int kBitsPerSample = 8;
constexpr int kChannels = 4;

}  // namespace

QVariant NotificationPicture(const QIcon& icon) {
  const QImage image =
      icon.pixmap(QSize(kSize, kSize), 1).toImage().convertToFormat(QImage::Format_RGBA8888);
  QDBusArgument structure;
  structure.beginStructure();
  structure << image.width() << image.height() << static_cast<int>(image.bytesPerLine())
            << image.hasAlphaChannel() << kBitsPerSample << kChannels
            << QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
  structure.endStructure();
  return QVariant::fromValue(structure);
}

}  // namespace kestrava
