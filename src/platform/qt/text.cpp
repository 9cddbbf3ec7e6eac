#include "platform/qt/text.h"

#include <QStringDecoder>
#include <array>

namespace kestrava {

namespace {

/// Code points of the bytes 0x80 to 0x9F in Windows-1252, from the Unicode mapping table
/// CP1252.TXT. The five bytes that the table leaves open stand for the control characters of the
/// same number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString FromWindows1252(QByteArrayView bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code >= 0x80 && code < 0xA0) character = kWindows1252[code - 0x80U];
  }
  return text;
}

}  // namespace

QString ToShown(std::string_view bytes) {
  const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  QString text = decoder.decode(view);
  return decoder.hasError() ? FromWindows1252(view) : text;
}

std::string ToBytes(const QString& text) { return text.toStdString(); }

std::string LineToBytes(QString text) {
  return ToBytes(text.replace('\r', ' ').replace('\n', ' '));
}

}  // namespace kestrava
