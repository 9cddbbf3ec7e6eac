#pragma once

#include <string_view>

namespace kestrava {

class Form;
class WindowSystem;

/// Centres a loaded window on its screen: first `Left`, then `Top`.
void CenterForm(Form& window, const WindowSystem& windows);

/// True exactly when the text holds three "." characters, whatever stands between them.
bool IsDottedAddress(std::string_view address);

}  // namespace kestrava
