#include "platform/fileidentity.h"

#include <algorithm>

namespace jx {

bool IsSameFile(const std::string& a, const std::string& b) {
  TFileIdentity first, second;
  return GetFileIdentity(a, first) && GetFileIdentity(b, second) && first == second;
}

bool TWalkPath::Enter(const std::string& dir) {
  TFileIdentity identity;
  if (!GetFileIdentity(dir.empty() ? "." : dir, identity)) {
    path_.emplace_back();
    return true;
  }
  if (std::find(path_.begin(), path_.end(), std::optional(identity)) != path_.end()) return false;
  path_.emplace_back(identity);
  return true;
}

void TWalkPath::Leave() { path_.pop_back(); }

}  // namespace jx
