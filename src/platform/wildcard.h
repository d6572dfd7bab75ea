// A wildcard mask compiled once and matched against many names (every entry
// of a directory search). Private to src/platform; callers use MatchesMask.
#pragma once

#include <string>
#include <string_view>

namespace jx {

class WildcardMask {
 public:
  explicit WildcardMask(std::string_view mask);
  bool Matches(std::string_view name) const;

 private:
  std::string pattern_;
  bool matches_all_ = false;  // "*", "*.*"
  // The pattern a name without extension may match instead: "foo.*" -> "foo",
  // "*." -> "*" (the latter only for names without any '.').
  bool has_bare_ = false;
  bool bare_needs_no_dot_ = false;
  std::string bare_;
};

}  // namespace jx
