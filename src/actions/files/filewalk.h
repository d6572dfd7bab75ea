// What the recursive file actions (Copy, Touch, Set File Attributes) share
// about the subdirectories they walk into.
#pragma once

#include "platform/attributes.h"
#include "platform/findfile.h"

namespace jx {

// A directory a recursive walk enters: neither hidden nor system, as a search
// that admits plain directories only would find it.
inline bool IsWalkedInto(const TSearchRec& rec) {
  return (rec.Attr & faDirectory) && !(rec.Attr & (faHidden | faSysFile));
}

}  // namespace jx
