#include "platform/qt/tray/notify_icon_text.h"

#include <QStringList>

#include "platform/qt/stand_ins.h"
#include "platform/qt/text.h"

namespace kestrava {

QString NotifyIconText(std::string_view field) {
  const std::size_t end = field.find('\0');
  const QString text =
      ToShown(end == std::string_view::npos ? WithoutCutCharacter(field) : field.substr(0, end));
  QStringList lines = text.split('\n');
  for (QString& line : lines) {
    if (line.endsWith('\r')) line.chop(1);
    line = WithStandIns(line);
  }
  return lines.join('\n');
}

}  // namespace kestrava
