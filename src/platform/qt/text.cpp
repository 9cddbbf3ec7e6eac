#include "platform/qt/text.h"

#include "platform/text/decoding.h"
#include "platform/text/shown_text.h"

namespace kestrava {

namespace {

/// As it is: `QString::fromUtf16` takes a mark of the byte order off.
QString FromUtf16(const std::u16string& text) { return QStringView(text).toString(); }

}  // namespace

QString ToShown(std::string_view bytes) { return FromUtf16(Decoded(bytes)); }

QString ToShownLine(std::string_view bytes) { return FromUtf16(ShownLine(bytes)); }

QString ToShownField(std::string_view field) { return FromUtf16(ShownField(field)); }

std::string ToBytes(const QString& text) { return text.toStdString(); }

std::string LineToBytes(const QString& text) { return AsOneLine(ToBytes(text)); }

}  // namespace kestrava
