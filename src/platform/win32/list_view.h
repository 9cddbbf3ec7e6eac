#pragma once

#include <optional>
#include <string>

#include "platform/win32/native_control.h"

namespace kestrava {

/// The system's list view, in lines and columns, which asks for what it shows. Items count from 0.
class ListView : public NativeControl {
 public:
  ListView(Control& control, HWND window, int id, DWORD style, DWORD extendedStyle);
  ~ListView() override;

  LRESULT TakeNotification(NMHDR& note) final;

 protected:
  /// A message to the list view itself; nothing leaves it to the system.
  virtual std::optional<LRESULT> Serve(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  /// Fills in what the system asks for.
  virtual void Describe(LVITEMW& item) const = 0;
  /// Any other of its notifications.
  virtual LRESULT TakeOther(NMHDR&) { return 0; }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(Handle(), message, wParam, lParam);
  }
  template <typename Record>
  LRESULT SendRecord(UINT message, WPARAM wParam, Record& record) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(&record));
  }

  void SetCount(int items);
  /// -1 without one, as for the next.
  int FocusedItem() const;
  int SelectedItem() const;
  /// Gives the focus of the keys to that item and selects it.
  void FocusItem(int item);
  void Deselect();
  /// The place of the mouse in a message about it.
  static POINT PositionOf(LPARAM lParam);
  /// What is there, nothing beside the items.
  std::optional<LVHITTESTINFO> HitTest(POINT position) const;
  /// The text that the system takes from `item`, which it gives room for.
  static void Put(const std::wstring& text, LVITEMW& item);

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam,
                                    UINT_PTR id, DWORD_PTR view);
};

}  // namespace kestrava
