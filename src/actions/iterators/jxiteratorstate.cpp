#include "actions/iterators/jxiteratorstate.h"

#include <exception>

#include "framework/jxaction.h"

namespace jx {

void TIteratorState::Reset() {
  Items.Clear();
  Index = 0;
  Finished = false;
  Populated = false;
}

void TIteratorState::MarkPopulated() {
  Finished = Items.Count() == 0;
  Populated = true;
}

bool TIteratorState::HasCurrent() {
  if (Items.Count() > 0 && Items.Count() > Index) return true;
  Finished = true;
  return false;
}

bool TIteratorState::StoreCurrent(TCustomJXAction& action, const std::string& name) const {
  try {
    action.SetVariable(name, Variant(Current()));
    return true;
  } catch (const std::exception& e) {
    action.SendMessage("Error Setting Variable");
    action.SendMessage(std::string("--> ") + e.what());
    action.SetActionStatus(TJXActionStatus::asFailed);
    return false;
  }
}

// The index advances when the children are entered, so they see the item
// number one higher than the iterator's own Execute did.
void TIteratorState::NextActionSource(int state, int& next) {
  if (state == nssAfterExecute) {
    if (Finished) {
      next = naLeave;
      Reset();
    } else {
      next = naRunChildren;
      ++Index;
    }
    // The pass that uses the last item already knows it is the last.
    Finished = Items.Count() <= Index;
  } else if (state == nssAfterChildren) {
    if (Finished) {
      Reset();
      next = naLeave;
    } else {
      next = naRepeat;
    }
  }
}

}  // namespace jx
