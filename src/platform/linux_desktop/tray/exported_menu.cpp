#include "platform/linux_desktop/tray/exported_menu.h"

#include <QAction>
#include <QDBusConnection>
#include <QDBusMetaType>

#include "platform/linux_desktop/session_bus.h"

namespace kestrava {

namespace {

constexpr int kRoot = 0;

/// Desktops keep the kind of an entry that they have seen, so one with a check mark is another.
constexpr int kCheckable = 1000;

/// The access key follows "_" here. The program's captions have no "_" or "&" of their own.
QString Label(QString caption) { return caption.replace('&', '_'); }

}  // namespace

ExportedMenu::ExportedMenu(const QMenu& menu) : menu_(menu) {
  RegisterSentType<ExportedEntry>();
  RegisterSentType<ExportedProperties>();
  RegisterSentType<QList<ExportedProperties>>();
  qDBusRegisterMetaType<ExportedEvent>();
  qDBusRegisterMetaType<QList<ExportedEvent>>();
  SessionBus().registerObject(
      kPath, this,
      QDBusConnection::ExportScriptableContents | QDBusConnection::ExportAllProperties);
  change_.setSingleShot(true);
  connect(&change_, &QTimer::timeout, this, [this] { emit LayoutUpdated(++revision_, kRoot); });
  for (const QAction* action : menu_.actions()) {
    connect(action, &QAction::changed, &change_, qOverload<>(&QTimer::start));
  }
}

ExportedMenu::~ExportedMenu() { SessionBus().unregisterObject(kPath); }

uint ExportedMenu::GetLayout(int parent, int depth, const QStringList&,
                             ExportedEntry& layout) const {
  layout = {parent, {}, {}};
  if (parent != kRoot) return revision_;
  layout.properties = {{"children-display", "submenu"}};
  if (depth == 0) return revision_;
  const auto actions = menu_.actions();
  for (qsizetype place = 0; place < actions.size(); ++place) {
    layout.children.push_back(
        QVariant::fromValue(ExportedEntry{IdOf(place), PropertiesOf(*actions[place]), {}}));
  }
  return revision_;
}

QList<ExportedProperties> ExportedMenu::GetGroupProperties(const QList<int>& ids,
                                                           const QStringList&) const {
  QList<ExportedProperties> all;
  const auto actions = menu_.actions();
  for (qsizetype place = 0; place < actions.size(); ++place) {
    const int id = IdOf(place);
    if (ids.isEmpty() || ids.contains(id)) all.push_back({id, PropertiesOf(*actions[place])});
  }
  return all;
}

QDBusVariant ExportedMenu::GetProperty(int id, const QString& name) const {
  const QAction* action = Find(id);
  const QVariant value = action ? PropertiesOf(*action).value(name) : QVariant();
  return QDBusVariant(value.isValid() ? value : QString());
}

void ExportedMenu::Event(int id, const QString& kind, const QDBusVariant&, uint) {
  QAction* action = Find(id);
  if (!action || kind != "clicked") return;
  // The command may open a dialog, and the desktop wants its answer now.
  QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

QList<int> ExportedMenu::EventGroup(const QList<ExportedEvent>& events) {
  QList<int> unknown;
  for (const ExportedEvent& event : events) {
    if (event.id != kRoot && !Find(event.id)) unknown.push_back(event.id);
    Event(event.id, event.kind, event.data, event.time);
  }
  return unknown;
}

int ExportedMenu::IdOf(qsizetype place) const {
  const int number = static_cast<int>(place) + 1;
  return menu_.actions()[place]->isCheckable() ? number + kCheckable : number;
}

QAction* ExportedMenu::Find(int id) const {
  const auto actions = menu_.actions();
  for (qsizetype place = 0; place < actions.size(); ++place) {
    if (IdOf(place) == id) return actions[place];
  }
  return nullptr;
}

QVariantMap ExportedMenu::PropertiesOf(const QAction& action) {
  QVariantMap properties = {{"visible", action.isVisible()}, {"enabled", action.isEnabled()}};
  if (action.isSeparator()) {
    properties["type"] = "separator";
  } else {
    properties["label"] = Label(action.text());
  }
  if (action.isCheckable()) {
    properties["toggle-type"] = "checkmark";
    properties["toggle-state"] = action.isChecked() ? 1 : 0;
  }
  return properties;
}

}  // namespace kestrava
