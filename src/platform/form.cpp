#include "platform/form.h"

#include <algorithm>
#include <string>

#include "platform/runtime_error.h"

namespace kestrava {

namespace {

template <typename Spec, typename Condition>
const Spec& LineOf(std::span<const Spec> table, std::string_view name, Condition condition) {
  const auto found = std::ranges::find_if(
      table, [&](const Spec& line) { return line.name == name && condition(line); });
  if (found == table.end()) {
    throw RuntimeError(kErrorInvalidCall, "not in the window's tables: " + std::string(name));
  }
  return *found;
}

template <typename Spec, typename Part>
void CheckTaken(std::span<const Spec> table, const std::vector<Part*>& parts) {
  for (const Spec& line : table) {
    if (std::ranges::none_of(parts, [&](const Part* part) { return &part->Spec() == &line; })) {
      throw RuntimeError(kErrorInvalidCall, "no member takes " + std::string(line.name));
    }
  }
}

template <typename Spec>
const Spec& LineOf(std::span<const Spec> table, std::string_view name) {
  return LineOf(table, name, [](const Spec&) { return true; });
}

}  // namespace

void Form::CheckWhole() const {
  CheckTaken(spec_.controls, controls_);
  CheckTaken(spec_.menu, menu_);
  CheckTaken(spec_.timers, timers_);
}

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
  return LineOf(spec_.controls, name, [&](const ControlSpec& line) { return line.kind == kind; });
}

const MenuSpec& Form::SpecOfMenuEntry(std::string_view name) const {
  return LineOf(spec_.menu, name);
}

const TimerSpec& Form::SpecOfTimer(std::string_view name) const {
  return LineOf(spec_.timers, name);
}

void Form::Join(MenuEntry& entry) {
  const auto place = std::ranges::upper_bound(
      menu_, &entry.Spec(), {}, [](const MenuEntry* other) { return &other->Spec(); });
  menu_.insert(place, &entry);
}

}  // namespace kestrava
