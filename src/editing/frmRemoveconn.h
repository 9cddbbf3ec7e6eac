#pragma once

#include <cstdint>
#include <vector>

#include "platform/form.h"

namespace kestrava {

/// The dialog in which the user marks connections to remove. The caller loads it, fills the list
/// with one entry for each connection in row order, opens it modally and reads `colIndexes` before
/// it unloads it.
class frmRemoveconn : public Form {
 public:
  frmRemoveconn();

  /// Row numbers of the marked connections, ascending; empty after a cancel.
  std::vector<std::int32_t> colIndexes;

  CheckList lstConnections{*this, "lstConnections"};
  Button cmdDelete{*this, "cmdDelete"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void cmdDelete_Click();
  void cmdCancel_Click();
};

}  // namespace kestrava
