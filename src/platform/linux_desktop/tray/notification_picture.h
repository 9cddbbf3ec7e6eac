#pragma once

#include <QIcon>
#include <QVariant>

namespace kestrava {

/// The picture in the form in which a notification has it: the structure (iiibiiay) of the hint
/// "image-data" in the desktop notifications document of freedesktop.org.
QVariant NotificationPicture(const QIcon& icon);

}  // namespace kestrava
