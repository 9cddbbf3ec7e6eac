#pragma once

namespace kestrava {

/// The program's name as people read it. The system keeps the program's settings under it.
inline constexpr const char* kProgramTitle = "Kestrava";

/// Its name as systems know it: of its file, its desktop entry and its icon.
inline constexpr const char* kProgramName = "kestrava";

}  // namespace kestrava
