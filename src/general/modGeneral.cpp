#include "general/modGeneral.h"

#include <algorithm>

#include "platform/form.h"
#include "platform/window_system.h"

namespace kestrava {

void CenterForm(Form& window, const WindowSystem& windows) {
  const TwipSize screen = windows.ScreenSize(window);
  const TwipSize outer = windows.OuterSize(window);
  window.SetLeft(screen.width / 2 - outer.width / 2);
  window.SetTop(screen.height / 2 - outer.height / 2);
}

bool IsDottedAddress(std::string_view address) { return std::ranges::count(address, '.') == 3; }

}  // namespace kestrava
