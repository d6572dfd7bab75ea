// Drives a loop action through the host's loop protocol, as the engine does:
// Execute, ask with state 0, run the children, ask with state 1, Execute
// again... until the action answers "leave" or its Execute fails.
#pragma once

#include <functional>
#include <vector>

#include "framework/jxaction.h"

namespace jx::test {

struct LoopRun {
  bool Result = true;        // false when an Execute failed
  int ChildPasses = 0;       // how often the children ran
  std::vector<int> Answers;  // every answer of GetNextActionSource, in order
};

// `children` stands for the loop's child actions; a loop that has not left
// after `max_passes` passes fails the current test.
LoopRun RunLoop(TCustomJXAction& loop, const std::function<void()>& children, int max_passes = 100);

}  // namespace jx::test
