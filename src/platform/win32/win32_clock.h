#pragma once

#include "platform/clock.h"

namespace kestrava {

/// The system's clock in the user's time zone.
class Win32Clock final : public Clock {
 public:
  std::chrono::local_seconds Now() const override { return InMinutes(0); }
  std::chrono::local_seconds InMinutes(std::int32_t minutes) const override;
  /// As the user has set it in Windows, in UTF-8.
  std::string GeneralDateText(std::chrono::local_seconds moment) const override;
};

}  // namespace kestrava
