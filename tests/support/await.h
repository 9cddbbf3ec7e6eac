#pragma once

#include <optional>

#include "platform/task.h"

namespace kestrava::test {

/// Lets `work` come to its end. `serve` serves whatever it waits for.
template <typename Result, typename Serve>
Result Await(Task<Result> work, Serve serve) {
  std::optional<Result> result;
  const auto take = [](Task<Result> awaited, std::optional<Result>& given) -> Task<> {
    given = co_await std::move(awaited);
  };
  Task<> task = take(std::move(work), result);
  for (task.Start(); task.UnderWay();) serve();
  return std::move(result).value();
}

}  // namespace kestrava::test
