#include "platform/qt/native_controls.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <limits>

#include "platform/flex_grid.h"
#include "platform/qt/check_box_look.h"
#include "platform/qt/check_list_model.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/native_labels.h"
#include "platform/qt/text.h"
#include "platform/qt/wrapping_button.h"

namespace kestrava {

namespace {

constexpr QSize kPictureSize(128, 128);

/// Shows the control's state by `widget`, and what is its own by `show`, now and after each change,
/// until `link` goes.
template <typename Show>
void Mirror(Control& control, Link& link, QWidget* widget, Show show) {
  const auto showAll = [=, &control] {
    widget->setEnabled(control.Enabled());
    widget->setVisible(control.Visible());
    show();
  };
  showAll();
  link.Keep(control.Observe(showAll));
}

void Mirror(Control& control, Link& link, QWidget* widget) {
  Mirror(control, link, widget, [] {});
}

QWidget* MakeButton(Button& button, Link& link, QWidget* parent) {
  auto* widget = new WrappingButton(parent);
  widget->setText(ToShown(button.Spec().caption));
  // Enter presses the button that has the focus, in a main window too.
  widget->setAutoDefault(true);
  QObject::connect(widget, &QPushButton::clicked, link.Context(), [&button] { button.Press(); });
  Mirror(button, link, widget);
  return widget;
}

QWidget* MakeLabel(Label& label, Link& link, QWidget* parent) {
  auto* widget = new NativeLabel(label, parent);
  QObject::connect(widget, &QLabel::linkActivated, link.Context(),
                   [&label] { label.Click.Raise(); });
  Mirror(label, link, widget, [widget] { widget->ShowLabel(); });
  return widget;
}

/// The program's icon, as large as the place allows.
QWidget* MakePicture(Control& picture, Link& link, QWidget* parent) {
  auto* widget = new QLabel(parent);
  widget->setPixmap(QApplication::windowIcon().pixmap(kPictureSize));
  widget->setScaledContents(true);
  widget->setMinimumSize(1, 1);
  Mirror(picture, link, widget);
  return widget;
}

QWidget* MakeCheckList(CheckList& list, Link& link, QWidget* parent) {
  auto* widget = new QListView(parent);
  auto* model = new CheckListModel(list, widget);
  widget->setModel(model);
  widget->setItemDelegate(new CheckEntryDelegate(widget));
  widget->setUniformItemSizes(true);
  QObject::connect(link.Context(), &QObject::destroyed, model, &CheckListModel::Detach);
  Mirror(list, link, widget, [model] { model->NoteChange(); });
  return widget;
}

QWidget* MakeTextBox(TextBox& textBox, Link& link, QWidget* parent) {
  auto* widget = new QLineEdit(parent);
  widget->setMaxLength(std::numeric_limits<int>::max());
  // Only what the user edits is written back, so that the program's own bytes stay as they are.
  QObject::connect(widget, &QLineEdit::textEdited, link.Context(),
                   [&textBox](const QString& text) { textBox.SetText(LineToBytes(text)); });
  Mirror(textBox, link, widget, [widget, &textBox] {
    // What the user is typing stays as typed.
    if (LineToBytes(widget->text()) != textBox.Text()) widget->setText(ToShownLine(textBox.Text()));
  });
  return widget;
}

QWidget* MakeCheckBox(CheckBox& checkBox, Link& link, QWidget* parent) {
  auto* widget = new VisibleCheckBox(ToShown(checkBox.Spec().caption), parent);
  QObject::connect(widget, &QCheckBox::toggled, link.Context(),
                   [&checkBox](bool checked) { checkBox.SetChecked(checked); });
  Mirror(checkBox, link, widget, [widget, &checkBox] { widget->setChecked(checkBox.Checked()); });
  return widget;
}

QWidget* MakeGrid(MSFlexGrid& grid, Link& link, QWidget* parent) {
  auto* widget = new GridView(grid, parent);
  widget->setAccessibleName("Connections");
  QObject::connect(link.Context(), &QObject::destroyed, widget, &GridView::Detach);
  Mirror(grid, link, widget);
  return widget;
}

QWidget* MakeWidget(Control& control, Link& link, QWidget* parent) {
  switch (control.Spec().kind) {
    case ControlKind::Grid:
      return MakeGrid(static_cast<MSFlexGrid&>(control), link, parent);
    case ControlKind::Button:
      return MakeButton(static_cast<Button&>(control), link, parent);
    case ControlKind::Label:
      return MakeLabel(static_cast<Label&>(control), link, parent);
    case ControlKind::TextBox:
      return MakeTextBox(static_cast<TextBox&>(control), link, parent);
    case ControlKind::CheckBox:
      return MakeCheckBox(static_cast<CheckBox&>(control), link, parent);
    case ControlKind::CheckList:
      return MakeCheckList(static_cast<CheckList&>(control), link, parent);
    case ControlKind::Picture:
      return MakePicture(control, link, parent);
    case ControlKind::RemoteDesktop:
      break;
  }
  return nullptr;
}

}  // namespace

QWidget* MakeNativeControl(Control& control, Link& link, QWidget* parent) {
  QWidget* widget = MakeWidget(control, link, parent);
  if (widget) widget->setObjectName(control.Spec().name);
  return widget;
}

bool HasRoomForColumns(QWidget& widget, const ControlSpec& spec, const TwipScale& scale) {
  auto* grid = qobject_cast<GridView*>(&widget);
  return !grid || grid->HasRoom(scale, scale.PlaceOf(spec).width);
}

bool FitsInto(const QWidget& widget, const QSize& least, const QSize& size) {
  const int height =
      widget.hasHeightForWidth() ? widget.heightForWidth(size.width()) : least.height();
  return least.width() <= size.width() && height <= size.height();
}

void PlaceNativeControl(QWidget& widget, const ControlSpec& spec, const TwipScale& scale) {
  const PixelPlace place = scale.PlaceOf(spec);
  widget.setGeometry(place.left, place.top, place.width, place.height);
  if (auto* grid = qobject_cast<GridView*>(&widget)) grid->SetScale(scale);
}

}  // namespace kestrava
