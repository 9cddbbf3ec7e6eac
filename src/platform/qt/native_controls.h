#pragma once

#include <QWidget>

#include "platform/control.h"
#include "platform/qt/link.h"
#include "platform/twips.h"

namespace kestrava {

/// Makes the widget of `control`, which shows the control's state for as long as `link` lives and
/// feeds the user's input back to it. Gives nullptr for a control that is never shown.
QWidget* MakeNativeControl(Control& control, Link& link, QWidget* parent);

/// Whether nothing that the widget shows at all times is cut when it has this size.
/// @param least its `minimumSizeHint()`, which takes long to measure and is the same at each size.
bool FitsInto(const QWidget& widget, const QSize& least, const QSize& size);

/// Whether the columns of a table have room side by side in its place. True of any other widget.
bool HasRoomForColumns(QWidget& widget, const ControlSpec& spec, const TwipScale& scale);

/// Puts the widget in its place.
void PlaceNativeControl(QWidget& widget, const ControlSpec& spec, const TwipScale& scale);

}  // namespace kestrava
