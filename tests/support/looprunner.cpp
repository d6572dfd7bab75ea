#include "support/looprunner.h"

#include <gtest/gtest.h>

namespace jx::test {

LoopRun RunLoop(TCustomJXAction& loop, const std::function<void()>& children, int max_passes) {
  LoopRun run;
  for (int pass = 0; pass < max_passes; ++pass) {
    if (!loop.Execute()) {
      run.Result = false;
      return run;
    }
    int next = naNone;
    loop.GetNextActionSource(nssAfterExecute, next);
    run.Answers.push_back(next);
    if (next != naRunChildren) return run;
    children();
    ++run.ChildPasses;
    next = naNone;
    loop.GetNextActionSource(nssAfterChildren, next);
    run.Answers.push_back(next);
    if (next != naRepeat) return run;
  }
  ADD_FAILURE() << "the loop did not end after " << max_passes << " passes";
  return run;
}

}  // namespace jx::test
