#pragma once

#include <QDBusArgument>
#include <QDBusMetaType>

namespace kestrava {

/// Writes a structure of these fields, and reads one.
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

/// Makes a type known to the bus layer that is sent, and never read. `qDBusRegisterMetaType` wants
/// the code to read it, too.
template <typename Sent>
void RegisterSentType() {
  const auto write = [](QDBusArgument& argument, const void* value) {
    argument << *static_cast<const Sent*>(value);
  };
  const auto readNothing = [](const QDBusArgument&, void*) {};
  QDBusMetaType::registerMarshallOperators(QMetaType::fromType<Sent>(), write, readNothing);
}

}  // namespace kestrava
