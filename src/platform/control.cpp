#include "platform/control.h"

#include "platform/form.h"

namespace kestrava {

Control::Control(Form& form, const char* name, ControlKind kind)
    : spec_(form.SpecOfControl(name, kind)) {
  form.Join(*this);
}

void CheckList::Clear() {
  entries_.clear();
  Notify();
}

void CheckList::AddItem(std::string text) {
  entries_.push_back({std::move(text)});
  Notify();
}

const std::string& CheckList::List(std::int32_t entry) const {
  return entries_.at(static_cast<std::size_t>(entry)).text;
}

bool CheckList::Selected(std::int32_t entry) const {
  return entries_.at(static_cast<std::size_t>(entry)).selected;
}

void CheckList::SetSelected(std::int32_t entry, bool selected) {
  Change(entries_.at(static_cast<std::size_t>(entry)).selected, selected);
}

}  // namespace kestrava
