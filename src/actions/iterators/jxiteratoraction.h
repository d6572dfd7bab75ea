// The loop every iterator runs: its first Execute of a loop builds the list of
// items, each Execute hands the current item to its variables, and its answers
// to GetNextActionSource walk the list. An iterator says only what differs:
// which variables must be named, how the list is built and what the
// variables get.
#pragma once

#include <cstdint>
#include <string>

#include "framework/jxwhileaction.h"
#include "rtl/stringlist.h"

namespace jx {

class TFindMatches;

class TIteratorAction : public TWhileAction {
 public:
  bool Execute() override;
  void ResetBuildStatus() override;
  // State 0 (after Execute): 1 runs the children and advances, 3 leaves;
  // state 1 (after the children): 2 runs the iterator again, 3 leaves.
  // Leaving resets, so the next loop builds its list again.
  void GetNextActionSource(int state, int& next) override;

  // Forgets the list and the position; also offered to scripts.
  void Reset();
  int32_t ItemCount() const { return items_.Count(); }
  // One more than the internal index: the children see it one higher than
  // the iterator's own Execute did, since the index advances as they start.
  int32_t ItemIndex() const { return index_ + 1; }

 protected:
  // How a variable the host refuses is logged: "Error Setting Variable" and a
  // "--> " line with the error, the same with the action marked failed, or
  // "Error Setting Variable: " and the error on one line.
  enum class TStoreFailure { TwoLines, TwoLinesAndFailed, OneLine };
  explicit TIteratorAction(TStoreFailure store_failure) : store_failure_(store_failure) {}

  // The line to log when a variable the iterator sets is not named, else "".
  virtual std::string MissingVariableMessage() const = 0;

  enum class TListResult {
    Built,     // the list is ready (possibly empty)
    Failed,    // logged; the pass fails
    SkipPass,  // logged; the pass succeeds without an item, so the children
               // run once with the variables as they were, and the loop ends
  };
  // Fills the empty `items` for a new loop, logging as it goes.
  virtual TListResult BuildList(TStrings& items) = 0;

  // Hands `item` to the iterator's variables; may raise.
  virtual void StoreItem(const std::string& item) = 0;

  // Raises the OS error that ended a search early (an unreadable directory,
  // a link that loops), so the list is not built from part of a tree.
  static void RaiseSearchError(const TFindMatches& matches);

 private:
  bool StoreCurrent();

  TStoreFailure store_failure_;
  TStringList items_;
  int32_t index_ = 0;
  bool populated_ = false;  // the list is built for this loop
  bool finished_ = false;   // no item is left
};

}  // namespace jx
