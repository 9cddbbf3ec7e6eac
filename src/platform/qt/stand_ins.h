#pragma once

#include <QString>

namespace kestrava {

/// Puts a visible mark in the place of every character of `text` that nobody sees, or that turns
/// the characters after it around: "[U+202E]", say. Few fonts have the symbols that Unicode keeps
/// for some of them. Joiners stay where a script or an emoji needs them.
QString WithStandIns(const QString& text);

}  // namespace kestrava
