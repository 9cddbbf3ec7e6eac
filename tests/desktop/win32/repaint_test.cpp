#include "desktop/desktop.h"
#include "desktop/win32/handles.h"
#include "platform/win32/grid_view.h"

namespace kestrava::test {

TEST(GridView, PaintsARowInSightAgainWhenItChangesAndNothingElse) {
  Desktop desktop;
  desktop.grid.SetRows(301);
  HWND table = ListOf(desktop.window);
  const auto catchUp = [table] { SendMessageW(table, WM_TIMER, GridView::kFrameTimer, 0); };
  catchUp();
  for (const int item : {0, 150, 299}) {
    SendMessageW(table, LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
    for (const int changed : {item, 75}) {
      ValidateRect(table, nullptr);
      desktop.grid.SetRow(changed + 1);
      desktop.grid.SetCol(kStatusColumn);
      desktop.grid.SetText("changed at " + std::to_string(item));
      catchUp();
      RECT painted{};
      GetUpdateRect(table, &painted, FALSE);
      RECT row{};
      row.left = LVIR_BOUNDS;
      SendMessageW(table, LVM_GETITEMRECT, static_cast<WPARAM>(item),
                   reinterpret_cast<LPARAM>(&row));
      EXPECT_EQ(painted.top == row.top && painted.bottom >= row.bottom, changed == item) << item;
    }
  }
}

}  // namespace kestrava::test
