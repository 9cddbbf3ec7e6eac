#include "platform/qt/stand_ins.h"

#include <QChar>
#include <QList>

namespace kestrava {

namespace {

constexpr char32_t kZeroWidthNonJoiner = 0x200C;
constexpr char32_t kZeroWidthJoiner = 0x200D;
constexpr char32_t kMongolianVowelSeparator = 0x180E;

/// Signs that stand around the digits after them and are seen, though they count as format
/// characters: the property Prepended_Concatenation_Mark in PropList.txt of Unicode 15.
bool IsSeenFormat(char32_t code) {
  return (code >= 0x600 && code <= 0x605) || code == 0x6DD || code == 0x70F || code == 0x890 ||
         code == 0x891 || code == 0x8E2 || code == 0x110BD || code == 0x110CD;
}

/// Whether a joiner after this character can change what is seen: after a letter, or its marks, of
/// a script that joins its letters, and after an emoji.
bool TakesJoiner(char32_t code) {
  switch (QChar::script(code)) {
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
      return false;
    default:
      return QChar::isLetter(code) || QChar::isMark(code) || QChar::isSymbol(code);
  }
}

bool IsUnseen(char32_t code, char32_t previous) {
  switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    case QChar::Other_Format:
      if (code == kZeroWidthNonJoiner || code == kZeroWidthJoiner ||
          code == kMongolianVowelSeparator) {
        return !TakesJoiner(previous);
      }
      return !IsSeenFormat(code);
    default:
      return false;
  }
}

}  // namespace

QString WithStandIns(const QString& text) {
  QString shown;
  shown.reserve(text.size());
  char32_t previous = 0;
  for (const char32_t code : text.toUcs4()) {
    if (IsUnseen(code, previous)) {
      shown += QStringLiteral("[U+%1]").arg(code, 4, 16, QLatin1Char('0')).toUpper();
    } else {
      shown += QStringView(QChar::fromUcs4(code));
    }
    previous = code;
  }
  return shown;
}

}  // namespace kestrava
