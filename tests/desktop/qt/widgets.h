#pragma once

#include <QWidget>

#include "desktop/driver.h"
#include "platform/qt/grid_view.h"

// The parts as what they are here, for the tests of what is this desktop's own.
namespace kestrava::test {

inline QWidget* WidgetOf(Part part) { return reinterpret_cast<QWidget*>(part); }
inline Part PartOf(QWidget* widget) { return reinterpret_cast<Part>(widget); }
inline QWidget* MainWindow() { return WidgetOf(Find("frmMain")); }
inline GridView* Table() { return MainWindow()->findChild<GridView*>(); }

}  // namespace kestrava::test
