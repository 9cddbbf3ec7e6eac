#include "platform/qt/text.h"

#include <QStringDecoder>
#include <array>

#include "platform/qt/stand_ins.h"

namespace kestrava {

namespace {

/// More would take the toolkit seconds to lay out, and nobody reads it.
constexpr std::size_t kMostShownBytes = 2048;

// See RFC 3629, section 3, for how UTF-8 marks the first byte of a character and those behind it.
constexpr unsigned kMostContinuations = 3;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t LengthOf(char firstByte) {
  const auto byte = static_cast<unsigned char>(firstByte);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC0 ? 2 : 1;
}

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

QString ToShownLine(std::string_view bytes) {
  if (bytes.size() <= kMostShownBytes) return WithStandIns(ToShown(bytes));
  const std::string_view begin = WithoutCutCharacter(bytes.substr(0, kMostShownBytes));
  return WithStandIns(ToShown(begin)) + QChar(0x2026);
}

std::string_view WithoutCutCharacter(std::string_view text) {
  std::size_t behind = 0;
  while (behind < text.size() && behind < kMostContinuations &&
         IsContinuation(text[text.size() - 1 - behind])) {
    ++behind;
  }
  if (behind == text.size()) return text;
  const std::size_t start = text.size() - 1 - behind;
  return LengthOf(text[start]) > behind + 1 ? text.substr(0, start) : text;
}

std::string ToBytes(const QString& text) { return text.toStdString(); }

std::string LineToBytes(QString text) {
  return ToBytes(text.replace('\r', ' ').replace('\n', ' '));
}

}  // namespace kestrava
