#pragma once

#include <QDBusArgument>

namespace kestrava {

/// Writes a structure of these fields, and reads one. Every type that goes over the bus wants both.
template <typename... Fields>
QDBusArgument& WriteStructure(QDBusArgument& argument, const Fields&... fields) {
  argument.beginStructure();
  (argument << ... << fields);
  argument.endStructure();
  return argument;
}

template <typename... Fields>
const QDBusArgument& ReadStructure(const QDBusArgument& argument, Fields&... fields) {
  argument.beginStructure();
  (argument >> ... >> fields);
  argument.endStructure();
  return argument;
}

}  // namespace kestrava
