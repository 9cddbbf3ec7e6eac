#pragma once

namespace kestrava {

/// The program's name as people read it. The system keeps the program's settings under it.
inline constexpr const char* kProgramTitle = "Kestrava";

}  // namespace kestrava
