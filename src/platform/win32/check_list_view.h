#pragma once

#include "platform/win32/list_view.h"

namespace kestrava {

/// A list of lines with a check box on each.
class CheckListView final : public ListView {
 public:
  CheckListView(CheckList& list, HWND window, int id);

  void SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) override;

 private:
  std::optional<LRESULT> Serve(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Describe(LVITEMW& item) const override;
  void Show() override;

  void Toggle(int entry);
  /// Makes the one column as wide as there is room.
  void FillWidth();

  int count_ = 0;
  unsigned dotsPerInch_ = 0;
};

}  // namespace kestrava
