#include "platform/qt/qt_settings_store.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVariant>

namespace kestrava {

namespace {

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
    : settings_(QSettings::NativeFormat, QSettings::UserScope, "Kestrava", "Kestrava") {
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
  settings_.setValue(StoredName(section, key), StoredValue(value));
  settings_.sync();
}

}  // namespace kestrava
