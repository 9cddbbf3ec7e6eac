#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyleOptionButton>

#include "desktop/desktop.h"
#include "desktop/qt/widgets.h"
#include "editing/frmNewConn.h"

namespace kestrava::test {
/// Compares the room that a text has with what the text takes, broken into lines.
static void ExpectFits(const QWidget* widget, const QString& text, const QSize& room) {
  const int flags = Qt::TextShowMnemonic | Qt::TextWordWrap;
  const QRect taken = widget->fontMetrics().boundingRect(0, 0, room.width(), 9999, flags, text);
  EXPECT_TRUE(taken.width() <= room.width() && taken.height() <= room.height())
      << text.toStdString();
}

static void ExpectReadable(const QWidget* window) {
  const auto parts = window->findChild<QPushButton*>()->parentWidget()->findChildren<QWidget*>(
      QString(), Qt::FindDirectChildrenOnly);
  for (const QWidget* part : parts) {
    if (const auto* button = qobject_cast<const QPushButton*>(part)) {
      QStyleOptionButton option;
      option.initFrom(button);
      const QRect room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option);
      ExpectFits(button, button->text(), room.size());
    } else if (const auto* label = qobject_cast<const QLabel*>(part)) {
      ExpectFits(label, label->text(), label->size());
    }
    for (const QWidget* other : parts) {
      EXPECT_TRUE(part == other || !part->geometry().intersects(other->geometry()));
    }
  }
}

TEST(Layout, HoldsEveryTextAtAnyFontSizeAndAfterAChangeOfIt) {
  const QFont before = QApplication::font();
  Desktop desktop;
  frmNewConn dialog(desktop.real.windows, desktop.real.messageBoxes);
  desktop.real.windows.Load(dialog);
  for (const int points : {6, 9, 11, 20, 32, 9}) {
    SCOPED_TRACE(points);
    QApplication::setFont(QFont(before.family(), points));
    Settle();
    ExpectReadable(MainWindow());
    ExpectReadable(WidgetOf(Find("frmNewConn")));
    const QHeaderView* heading = Table()->horizontalHeader();
    for (int column = 0; column < 5; ++column) {
      const QSize room(Table()->columnWidth(column) - 4, heading->height());
      ExpectFits(heading, heading->model()->headerData(column, Qt::Horizontal).toString(), room);
    }
    EXPECT_NEAR(1.0 * Table()->width() / Table()->height(), 9810.0 / 5355, 0.01);
  }
  desktop.real.windows.Unload(dialog);
  QApplication::setFont(before);
}

}  // namespace kestrava::test
