#pragma once

#include <QDBusVariant>
#include <QMenu>
#include <QObject>
#include <QTimer>

#include "platform/linux_desktop/tray/bus_structure.h"

namespace kestrava {

/// An entry with those below it.
struct ExportedEntry {
  int id;
  QVariantMap properties;
  QVariantList children;

  friend QDBusArgument& operator<<(QDBusArgument& argument, const ExportedEntry& value) {
    return WriteStructure(argument, value.id, value.properties, value.children);
  }
};

struct ExportedProperties {
  int id;
  QVariantMap properties;

  friend QDBusArgument& operator<<(QDBusArgument& argument, const ExportedProperties& value) {
    return WriteStructure(argument, value.id, value.properties);
  }
};

struct ExportedEvent {
  int id;
  QString kind;
  QDBusVariant data;
  uint time;

  friend QDBusArgument& operator<<(QDBusArgument& argument, const ExportedEvent& value) {
    return WriteStructure(argument, value.id, value.kind, value.data, value.time);
  }
  friend const QDBusArgument& operator>>(const QDBusArgument& argument, ExportedEvent& value) {
    return ReadStructure(argument, value.id, value.kind, value.data, value.time);
  }
};

/// A flat menu on the session bus for a desktop that draws it: com.canonical.dbusmenu, version 3,
/// as its description in libdbusmenu has it. It follows the menu's actions.
class ExportedMenu final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
  Q_PROPERTY(uint Version READ Version)
  Q_PROPERTY(QString TextDirection READ TextDirection)
  Q_PROPERTY(QString Status READ Status)
  Q_PROPERTY(QStringList IconThemePath READ IconThemePath)

 public:
  static constexpr const char* kPath = "/StatusNotifierItem/Menu";

  /// `menu` must outlive this, and keeps its actions.
  explicit ExportedMenu(const QMenu& menu);
  ~ExportedMenu() override;

  uint Version() const { return 3; }
  QString TextDirection() const { return "ltr"; }
  QString Status() const { return "normal"; }
  QStringList IconThemePath() const { return {}; }

 public slots:
  // The types are written out as the bus layer finds them by these very names.
  Q_SCRIPTABLE uint GetLayout(int parent, int depth, const QStringList& names,
                              kestrava::ExportedEntry& layout) const;
  Q_SCRIPTABLE QList<kestrava::ExportedProperties> GetGroupProperties(
      const QList<int>& ids, const QStringList& names) const;
  Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString& name) const;
  Q_SCRIPTABLE void Event(int id, const QString& kind, const QDBusVariant& data, uint time);
  Q_SCRIPTABLE QList<int> EventGroup(const QList<kestrava::ExportedEvent>& events);
  Q_SCRIPTABLE bool AboutToShow(int) { return false; }
  Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int>&, QList<int>&) { return {}; }

 signals:
  Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);

 private:
  int IdOf(qsizetype place) const;
  QAction* Find(int id) const;
  static QVariantMap PropertiesOf(const QAction& action);

  const QMenu& menu_;
  uint revision_ = 1;
  QTimer change_;  ///< gathers the changes of one turn of the event loop
};

}  // namespace kestrava
