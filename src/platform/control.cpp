#include "platform/control.h"

#include "platform/form.h"

namespace kestrava {

Control::Control(Form& form, const char* name, ControlKind kind)
    : spec_(form.SpecOfControl(name, kind)) {
  form.Join(*this);
}

}  // namespace kestrava
