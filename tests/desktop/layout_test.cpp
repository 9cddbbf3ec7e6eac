#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOptionButton>
#include <gtest/gtest.h>

#include "desktop/desktop.h"

namespace kestrava::test {
/// Compares the room that a text has with what the text takes, broken into lines where it may be.
static void ExpectFits(const QWidget* widget, const QString& text, const QSize& room,
                       int flags = 0) {
  flags |= Qt::TextShowMnemonic;
  const QRect taken = widget->fontMetrics().boundingRect(0, 0, room.width(), 9999, flags, text);
  EXPECT_LE(taken.width(), room.width()) << text.toStdString();
  EXPECT_LE(taken.height(), room.height()) << text.toStdString();
}

static void ExpectReadable(const QWidget* window) {
  const auto parts = window->findChild<QPushButton*>()->parentWidget()->findChildren<QWidget*>(
      QString(), Qt::FindDirectChildrenOnly);
  for (const QWidget* part : parts) {
    if (const auto* button = qobject_cast<const QPushButton*>(part)) {
      QStyleOptionButton option;
      option.initFrom(button);
      const QRect room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option);
      ExpectFits(button, button->text(), room.size(), Qt::TextWordWrap);
    } else if (const auto* label = qobject_cast<const QLabel*>(part)) {
      ExpectFits(label, label->text(), label->size());
    } else if (const auto* view = qobject_cast<const GridView*>(part)) {
      const QHeaderView* heading = view->horizontalHeader();
      for (int column = 0; column < 5; ++column) {
        const QSize room(view->columnWidth(column) - 4, heading->height());
        ExpectFits(heading, heading->model()->headerData(column, Qt::Horizontal).toString(), room);
      }
    }
    for (const QWidget* other : parts) {
      EXPECT_TRUE(part == other || !part->geometry().intersects(other->geometry()));
    }
  }
}

TEST(Layout, HoldsEveryTextAtAnyFontSizeAndAfterAChangeOfIt) {
  const QFont before = QApplication::font();
  for (const int points : {6, 9, 11, 20, 32}) {
    SCOPED_TRACE(points);
    QApplication::setFont(QFont(before.family(), points));
    Desktop desktop;
    frmNewConn dialog(desktop.windows, desktop.boxes);
    desktop.windows.Load(dialog);
    for (const int later : {points, points + 5}) {
      QApplication::setFont(QFont(before.family(), later));
      desktop.Settle();
      ExpectReadable(desktop.window);
      ExpectReadable(Widget("frmNewConn"));
      const auto* bar = desktop.window->findChild<QMenuBar*>();
      for (QAction* menu : bar->actions()) {
        ExpectFits(bar, menu->text(), (bar->actionGeometry(menu) & bar->rect()).size());
      }
    }
    EXPECT_NEAR(1.0 * desktop.view->width() / desktop.view->height(), 9810.0 / 5355, 0.01);
    desktop.windows.Unload(dialog);
  }
  QApplication::setFont(before);
}

}  // namespace kestrava::test
