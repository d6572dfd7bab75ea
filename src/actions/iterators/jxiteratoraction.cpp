#include "actions/iterators/jxiteratoraction.h"

#include <exception>

#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/sysutils.h"


namespace jx {

// Runs before every pass: the first pass of a loop builds the list, each pass
// hands its item to the variables.
bool TIteratorAction::Execute() {
  const std::string missing = MissingVariableMessage();
  if (!missing.empty()) {
    SendMessage(missing);
    return false;
  }
  if (!TWhileAction::Execute()) return false;
  if (!populated_) {
    items_.Clear();
    const TListResult built = BuildList(items_);
    if (built == TListResult::Failed) return false;
    if (built == TListResult::SkipPass) return true;
    finished_ = items_.Count() == 0;
    populated_ = true;
  }
  if (items_.Count() > 0 && items_.Count() > index_) return StoreCurrent();
  finished_ = true;
  return true;
}

bool TIteratorAction::StoreCurrent() {
  try {
    StoreItem(items_[index_]);
    return true;
  } catch (const std::exception& e) {
    if (store_failure_ == TStoreFailure::OneLine) {
      SendMessage(std::string("Error Setting Variable: ") + e.what());
      return false;
    }
    SendMessage("Error Setting Variable");
    SendMessage(std::string("--> ") + e.what());
    if (store_failure_ == TStoreFailure::TwoLinesAndFailed) SetActionStatus(TJXActionStatus::asFailed);
    return false;
  }
}

void TIteratorAction::ResetBuildStatus() {
  TWhileAction::ResetBuildStatus();
  Reset();
}

void TIteratorAction::Reset() {
  items_.Clear();
  index_ = 0;
  finished_ = false;
  populated_ = false;
}

void TIteratorAction::GetNextActionSource(int state, int& next) {
  if (state == nssAfterExecute) {
    if (finished_) {
      next = naLeave;
      Reset();
    } else {
      next = naRunChildren;
      ++index_;
    }
    // The pass that uses the last item already knows it is the last.
    finished_ = items_.Count() <= index_;
  } else if (state == nssAfterChildren) {
    if (finished_) {
      Reset();
      next = naLeave;
    } else {
      next = naRepeat;
    }
  }
}

void TIteratorAction::RaiseSearchError(const TFindMatches& matches) {
  if (matches.Error() == 0) return;
  const auto code = static_cast<uint32_t>(matches.Error());
  throw EOSError(code, SysErrorMessage(code));
}

}  // namespace jx
