#pragma once

#include <QDBusObjectPath>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QTimer>
#include <optional>

#include "platform/linux_desktop/tray/bus_structure.h"
#include "platform/linux_desktop/tray/exported_menu.h"
#include "platform/program_title.h"

namespace kestrava {

/// One size of an icon: the bytes of its pixels from the top left, each alpha, red, green, blue.
struct IconImage {
  int width;
  int height;
  QByteArray pixels;

  friend QDBusArgument& operator<<(QDBusArgument& argument, const IconImage& value) {
    return WriteStructure(argument, value.width, value.height, value.pixels);
  }
};
using IconImages = QList<IconImage>;

struct IconTip {
  QString iconName;
  IconImages images;
  QString title;
  QString text;  ///< with some markup

  friend QDBusArgument& operator<<(QDBusArgument& argument, const IconTip& value) {
    return WriteStructure(argument, value.iconName, value.images, value.title, value.text);
  }
};

/// An icon on the session bus: org.kde.StatusNotifierItem, which freedesktop.org describes under
/// "StatusNotifierItem". `StatusNotifierWatch` tells when there is somebody to show it. The
/// toolkit's own icon of this kind waits for the desktop's answers, this one doesn't.
class StatusNotifierItem final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
  Q_PROPERTY(QString Category READ Category)
  Q_PROPERTY(QString Id READ Id)
  Q_PROPERTY(QString Title READ Title)
  Q_PROPERTY(QString Status READ Status)
  Q_PROPERTY(int WindowId READ WindowId)
  Q_PROPERTY(QString IconName READ IconName)
  Q_PROPERTY(kestrava::IconImages IconPixmap READ IconPixmap)
  Q_PROPERTY(kestrava::IconTip ToolTip READ ToolTip)
  Q_PROPERTY(bool ItemIsMenu READ ItemIsMenu)
  Q_PROPERTY(QDBusObjectPath Menu READ Menu)

 public:
  /// @param menu drawn by desktops that draw it themselves; may be nullptr.
  StatusNotifierItem(const QIcon& icon, const QString& tip, const QMenu* menu);
  ~StatusNotifierItem() override;

  void SetIcon(const QIcon& icon);
  void SetTip(const QString& tip);

  QString Category() const { return "ApplicationStatus"; }
  QString Id() const { return kProgramName; }
  QString Title() const;
  QString Status() const { return "Active"; }
  int WindowId() const { return 0; }
  QString IconName() const { return {}; }
  IconImages IconPixmap() const;
  IconTip ToolTip() const { return {{}, {}, tip_.toHtmlEscaped(), {}}; }
  bool ItemIsMenu() const { return false; }
  QDBusObjectPath Menu() const;

 public slots:
  Q_SCRIPTABLE void ContextMenu(int x, int y);
  // A plain click on the icon does nothing.
  Q_SCRIPTABLE void Activate(int, int) {}
  Q_SCRIPTABLE void SecondaryActivate(int, int) {}
  Q_SCRIPTABLE void Scroll(int, const QString&) {}

 signals:
  Q_SCRIPTABLE void NewIcon();
  Q_SCRIPTABLE void NewToolTip();

  /// The user has asked for the icon's menu, and nobody else shows it.
  void ContextRequested();
  /// The desktop has taken the icon; or hasn't done so for a while, or will not.
  void Taken();
  void NotTaken();

 private:
  void Register();

  QIcon icon_;
  QString tip_;
  std::optional<ExportedMenu> menu_;
  QTimer patience_;
};

}  // namespace kestrava
