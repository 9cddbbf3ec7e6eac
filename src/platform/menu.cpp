#include "platform/menu.h"

#include "platform/form.h"

namespace kestrava {

MenuEntry::MenuEntry(Form& form, const char* name)
    : spec_(form.SpecOfMenuEntry(name)), visible_(spec_.visible) {
  form.Join(*this);
}

}  // namespace kestrava
