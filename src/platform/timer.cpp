#include "platform/timer.h"

#include "platform/form.h"

namespace kestrava {

Timer::Timer(Form& form, const char* name)
    : spec_(form.SpecOfTimer(name)), interval_(spec_.interval), enabled_(spec_.enabled) {
  form.Join(*this);
}

}  // namespace kestrava
