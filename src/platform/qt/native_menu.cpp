#include "platform/qt/native_menu.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

void Show(const MenuEntry& entry, QAction& action) {
  action.setVisible(entry.Visible());
  action.setCheckable(entry.Checked());
  action.setChecked(entry.Checked());
}

void Mirror(MenuEntry& entry, Link& link, QAction& action) {
  action.setObjectName(entry.Spec().name);
  Show(entry, action);
  link.Keep(entry.Observe([&entry, &action] { Show(entry, action); }));
  QObject::connect(&action, &QAction::triggered, link.Context(), [&entry, &action] {
    // The toolkit has flipped the check mark already, but the mark is the program's to set.
    Show(entry, action);
    entry.Click.Raise();
  });
}

}  // namespace

void BuildMenu(const Form& form, Link& link, QMenuBar& bar, QActionGroup& commands) {
  commands.setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
  // The toolkit opens menus by Alt alone.
  new QShortcut(Qt::Key_F10, &bar, [&bar] { bar.setActiveAction(bar.actions().value(0)); });
  QMenu* menu = nullptr;
  for (MenuEntry* entry : form.Menu()) {
    const MenuSpec& spec = entry->Spec();
    const QString caption = ToShown(spec.caption);
    if (spec.kind == MenuKind::Menu) {
      menu = bar.addMenu(caption);
      Mirror(*entry, link, *menu->menuAction());
    } else if (menu) {
      QAction* action = menu->addAction(caption);
      if (spec.kind == MenuKind::Entry) commands.addAction(action);
      action->setSeparator(spec.kind == MenuKind::Separator);
      action->setShortcut(QKeySequence(ToShown(spec.shortcut)));
      Mirror(*entry, link, *action);
    }
  }
}

}  // namespace kestrava
