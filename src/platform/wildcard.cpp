#include "platform/wildcard.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/backend.h"
#include "platform/findfile.h"

namespace jx {
namespace {

bool SameChar(char a, char b) {
  if constexpr (backend::kNamesIgnoreCase) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return lower(a) == lower(b);
  } else {
    return a == b;
  }
}

// The byte length of the UTF-8 character starting at `at`, so that '?' stands
// for one character, not one byte; a stray byte counts as one character.
size_t CharLength(std::string_view text, size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  return std::min(length, text.size() - at);
}

// Whether the pattern holds the character `ch` at `at`.
bool PatternHasChar(std::string_view pattern, size_t at, std::string_view ch) {
  if (ch.size() == 1) return SameChar(pattern[at], ch[0]);
  return pattern.compare(at, ch.size(), ch) == 0;
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), SameChar);
}

// Adds the states reachable without consuming a character: past a '*', and
// past a '?' where the name is at a '.' or at its end.
void FollowEmptyMatches(std::string_view pattern, uint8_t* states, bool at_dot_or_end) {
  for (size_t j = 0; j < pattern.size(); ++j) {
    if (states[j] && (pattern[j] == '*' || (pattern[j] == '?' && at_dot_or_end))) states[j + 1] = 1;
  }
}

// Runs the pattern as a set of states over the name, one pass, no backtracking:
// state j means "the first j pattern characters have matched so far".
bool MatchesPattern(std::string_view pattern, std::string_view name) {
  constexpr size_t kStackStates = 128;
  const size_t count = pattern.size() + 1;
  uint8_t stack_buffer[2 * kStackStates];
  std::vector<uint8_t> heap_buffer;
  uint8_t* states = stack_buffer;
  if (count > kStackStates) {
    heap_buffer.resize(2 * count);
    states = heap_buffer.data();
  }
  uint8_t* next = states + count;
  std::fill(states, states + count, 0);
  states[0] = 1;
  FollowEmptyMatches(pattern, states, name.empty() || name[0] == '.');
  for (size_t i = 0; i < name.size();) {
    const std::string_view ch = name.substr(i, CharLength(name, i));
    i += ch.size();
    std::fill(next, next + count, 0);
    bool any = false;
    for (size_t j = 0; j < pattern.size(); ++j) {
      if (!states[j]) continue;
      if (pattern[j] == '*') {
        next[j] = 1;
      } else if (pattern[j] == '?') {
        next[j + 1] = 1;
      } else if (PatternHasChar(pattern, j, ch)) {
        next[j + ch.size()] = 1;
      } else {
        continue;
      }
      any = true;
    }
    if (!any) return false;
    FollowEmptyMatches(pattern, next, i == name.size() || name[i] == '.');
    std::swap(states, next);
  }
  return states[pattern.size()] != 0;
}

bool EndsWith(std::string_view s, std::string_view suffix) {
  return s.size() >= suffix.size() && s.substr(s.size() - suffix.size()) == suffix;
}

}  // namespace

WildcardMask::Pattern::Pattern(std::string_view text) {
  const size_t wildcard = text.find_first_of("*?");
  if (text == "*.*" || (!text.empty() && text.find_first_not_of('*') == std::string_view::npos)) {
    shape_ = Shape::kEverything;
  } else if (wildcard == std::string_view::npos) {
    shape_ = Shape::kExact;
    text_ = text;
  } else if (text[0] == '*' && text.find_first_of("*?", 1) == std::string_view::npos) {
    shape_ = Shape::kSuffix;
    text_ = text.substr(1);
  } else {
    shape_ = Shape::kGeneral;
    text_ = text;
  }
}

bool WildcardMask::Pattern::Matches(std::string_view name) const {
  switch (shape_) {
    case Shape::kEverything:
      return true;
    case Shape::kExact:
      return SameName(name, text_);
    case Shape::kSuffix:
      return name.size() >= text_.size() && SameName(name.substr(name.size() - text_.size()), text_);
    case Shape::kGeneral:
      break;
  }
  return MatchesPattern(text_, name);
}

WildcardMask::WildcardMask(std::string_view mask) : main_(mask) {
  if (EndsWith(mask, ".*")) {
    has_bare_ = true;
    bare_ = Pattern(mask.substr(0, mask.size() - 2));
  } else if (EndsWith(mask, ".") && mask != "." && mask != "..") {
    has_bare_ = true;
    bare_needs_no_dot_ = true;
    bare_ = Pattern(mask.substr(0, mask.find_last_not_of('.') + 1));
  }
}

bool WildcardMask::Matches(std::string_view name) const {
  if (main_.Matches(name)) return true;
  if (!has_bare_) return false;
  if (bare_needs_no_dot_ && name.find('.') != std::string_view::npos) return false;
  return bare_.Matches(name);
}

bool MatchesMask(std::string_view name, std::string_view mask) { return WildcardMask(mask).Matches(name); }

}  // namespace jx
