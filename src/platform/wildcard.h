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
  // One pattern, with the shapes most masks take recognised up front.
  class Pattern {
   public:
    explicit Pattern(std::string_view text);
    bool Matches(std::string_view name) const;

   private:
    enum class Shape { kEverything, kExact, kSuffix, kGeneral };
    Shape shape_;
    std::string text_;  // for kSuffix, the part after the leading '*'
  };

  Pattern main_;
  // The pattern a name without extension may match instead: "foo.*" -> "foo",
  // "*." -> "*" (the latter only for names without any '.').
  bool has_bare_ = false;
  bool bare_needs_no_dot_ = false;
  Pattern bare_{""};
};

}  // namespace jx
