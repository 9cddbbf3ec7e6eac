#pragma once

#include <QObject>
#include <utility>
#include <vector>

#include "platform/event.h"

namespace kestrava {

/// What joins the widgets of a window with its form: connections, whose context it gives, and
/// observations. All of them end with it, ahead of the widgets.
class Link {
 public:
  QObject* Context() { return &context_; }
  void Keep(Observation<> observation) { observations_.push_back(std::move(observation)); }

 private:
  QObject context_;
  std::vector<Observation<>> observations_;
};

}  // namespace kestrava
