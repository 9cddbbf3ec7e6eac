#include "platform/form.h"

#include <algorithm>
#include <string>

#include "platform/runtime_error.h"

namespace kestrava {

void Form::SetLeft(int left) {
  left_ = left;
  leftSet_ = true;
  Notify();
}

void Form::SetTop(int top) {
  top_ = top;
  topSet_ = true;
  Notify();
}

const ControlSpec& Form::SpecOfControl(std::string_view name, ControlKind kind) const {
  const auto found = std::ranges::find_if(spec_.controls, [&](const ControlSpec& line) {
    return line.name == name && line.kind == kind;
  });
  if (found == spec_.controls.end()) {
    throw RuntimeError(kErrorInvalidCall, "no such control: " + std::string(name));
  }
  return *found;
}

const MenuSpec& Form::SpecOfMenuEntry(std::string_view name) const {
  const auto found = std::ranges::find(spec_.menu, name, &MenuSpec::name);
  if (found == spec_.menu.end()) {
    throw RuntimeError(kErrorInvalidCall, "no such menu entry: " + std::string(name));
  }
  return *found;
}

}  // namespace kestrava
