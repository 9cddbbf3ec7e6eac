#include "platform/qt/qt_settings_store.h"

#include <QByteArray>
#include <QFile>
#include <QLockFile>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <chrono>

#include "platform/program_title.h"

namespace kestrava {

namespace {

/// The toolkit locks the settings for the moment of writing. A lock that is older was left behind
/// by a program that isn't any more; the toolkit itself waits half a minute for one of another
/// host.
constexpr std::chrono::milliseconds kLongestLock(500);

QString StoredName(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + '/' + QString::fromStdString(key);
}

/// Text that people can read in the file, and raw bytes only where no text stands for exactly them.
QVariant StoredValue(const std::string& value) {
  const QString text = QString::fromStdString(value);
  if (text.toStdString() == value) return text;
  return QByteArray::fromStdString(value);
}

}  // namespace

QtSettingsStore::QtSettingsStore()
    : settings_(QSettings::NativeFormat, QSettings::UserScope, kProgramTitle, kProgramTitle) {
  settings_.setFallbacksEnabled(false);
}

std::string QtSettingsStore::ReadSetting(const std::string& section, const std::string& key,
                                         const std::string& defaultValue) {
  const QVariant stored = settings_.value(StoredName(section, key));
  switch (stored.typeId()) {
    case QMetaType::QByteArray:
      return stored.toByteArray().toStdString();
    case QMetaType::QString:
      return stored.toString().toStdString();
    default:
      // A missing key, or a file that somebody edited into a value of another kind.
      return defaultValue;
  }
}

void QtSettingsStore::WriteSetting(const std::string& section, const std::string& key,
                                   const std::string& value) {
  BreakOldLock();
  settings_.setValue(StoredName(section, key), StoredValue(value));
  settings_.sync();
}

void QtSettingsStore::BreakOldLock() const {
  const QString name = settings_.fileName() + ".lock";
  QLockFile lock(name);
  lock.setStaleLockTime(static_cast<int>(kLongestLock.count()));
  // Not even a program that has stopped in the midst of writing is waited for: the new file takes
  // the old one's place at one stroke, whoever else does the same.
  if (!lock.tryLock(static_cast<int>(kLongestLock.count()))) QFile::remove(name);
}

}  // namespace kestrava
