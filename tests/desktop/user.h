#pragma once

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

/// What the user sees and does in the windows of the program.
namespace kestrava::test {

/// The window of this name, or else the widget in the main window.
inline QWidget* Widget(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name) return window;
  }
  return name == "frmMain" ? nullptr : Widget("frmMain")->findChild<QWidget*>(name);
}
/// The names of the windows that are up.
inline QStringList VisibleWindows() {
  QStringList names;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) names.push_back(window->objectName());
  }
  return names;
}
inline void Click(const QString& button) { QTest::mouseClick(Widget(button), Qt::LeftButton); }
inline void Pick(const QString& entry) { Widget("frmMain")->findChild<QAction*>(entry)->trigger(); }

/// What the user does, one after the other, in the dialogs and menus that come up next.
using Acts = std::deque<std::function<void(QWidget* dialog)>>;
inline void InDialogs(Acts acts) {
  QTimer::singleShot(20, [acts = std::move(acts)]() mutable {
    QWidget* dialog = QApplication::activePopupWidget();
    if (!dialog) dialog = QApplication::activeModalWidget();
    if (!dialog) return InDialogs(std::move(acts));
    const auto act = std::move(acts.front());
    acts.pop_front();
    if (!acts.empty()) InDialogs(std::move(acts));
    act(dialog);
  });
}
/// Fills a field, the first for no name, and presses Enter.
inline auto Enter(const QString& text, const QString& field = {}) {
  return [=](QWidget* dialog) {
    auto* edit = dialog->findChild<QLineEdit*>(field);
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
  };
}
inline const auto closeDialog = [](QWidget* dialog) { dialog->close(); };

}  // namespace kestrava::test
