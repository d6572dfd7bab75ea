// The per-loop state every iterator keeps, and its answers to the host's
// loop protocol: the items found at the start of the loop, the index of the
// current one, whether the list is built for this loop and whether no item
// is left.
#pragma once

#include <cstdint>
#include <string>

#include "rtl/stringlist.h"

namespace jx {

class TCustomJXAction;

class TIteratorState {
 public:
  TStringList Items;
  int32_t Index = 0;
  bool Populated = false;
  bool Finished = false;

  // Forgets the items, so the next pass builds the list again.
  void Reset();
  // The list is built for this loop; an empty one finishes it at once.
  void MarkPopulated();
  // True when an item is left for this pass; otherwise the loop is finished.
  bool HasCurrent();
  const std::string& Current() const { return Items[Index]; }
  // Sets the variable `name` to the current item as text; when the host
  // refuses, logs why and marks `action` failed.
  bool StoreCurrent(TCustomJXAction& action, const std::string& name) const;
  // The answer to GetNextActionSource. State 0 (after the iterator's Execute):
  // run the children and advance, or leave; state 1 (after the children): run
  // the iterator again, or leave. Leaving resets, so the next loop searches again.
  void NextActionSource(int state, int& next);
};

}  // namespace jx
