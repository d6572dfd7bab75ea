#include "host/expansion.h"

#include "rtl/sysutils.h"

namespace jx {

namespace {

bool IsNameStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool IsNameChar(char c) { return IsNameStart(c) || (c >= '0' && c <= '9') || c == '.' || c == '-'; }

// Index of the `close` character that ends a well-formed name starting at
// `start`, or npos when the text there is no reference.
size_t ReferenceEnd(std::string_view text, size_t start, char close) {
  if (start >= text.size() || !IsNameStart(text[start])) return std::string_view::npos;
  size_t i = start + 1;
  while (i < text.size() && IsNameChar(text[i])) ++i;
  return i < text.size() && text[i] == close ? i : std::string_view::npos;
}

class Expander {
 public:
  Expander(std::string_view text, const VariableResolver& resolve) : text_(text), resolve_(resolve) {}

  std::string Run(int& count) {
    out_.reserve(text_.size());
    while (pos_ < text_.size()) {
      if (!TryEscape() && !TryReference()) out_ += text_[pos_++];
    }
    count = count_;
    return std::move(out_);
  }

 private:
  bool TryEscape() {
    if (text_.compare(pos_, 2, "%%") == 0) return Emit("%", 2);
    if (text_.compare(pos_, 3, "$$(") == 0) return Emit("$(", 3);
    return false;
  }

  bool TryReference() {
    size_t name_start = std::string_view::npos;
    char close = 0;
    if (text_[pos_] == '%') {
      name_start = pos_ + 1;
      close = '%';
    } else if (text_.compare(pos_, 2, "$(") == 0) {
      name_start = pos_ + 2;
      close = ')';
    } else {
      return false;
    }
    size_t end = ReferenceEnd(text_, name_start, close);
    if (end == std::string_view::npos) return false;
    Insert(text_.substr(name_start, end - name_start));
    pos_ = end + 1;
    return true;
  }

  void Insert(std::string_view name) {
    if (!resolve_(name, value_)) throw Exception("Variable \"" + std::string(name) + "\" is not defined");
    out_ += value_;
    ++count_;
  }

  bool Emit(const char* text, size_t consumed) {
    out_ += text;
    pos_ += consumed;
    return true;
  }

  std::string_view text_;
  const VariableResolver& resolve_;
  size_t pos_ = 0;
  int count_ = 0;
  std::string out_;
  std::string value_;
};

}  // namespace

bool IsVariableName(std::string_view name) {
  if (name.empty() || !IsNameStart(name[0])) return false;
  for (char c : name) {
    if (!IsNameChar(c)) return false;
  }
  return true;
}

std::string ExpandReferences(std::string_view text, const VariableResolver& resolve, int& count) {
  if (text.find_first_of("%$") == std::string_view::npos) {
    count = 0;
    return std::string(text);
  }
  return Expander(text, resolve).Run(count);
}

}  // namespace jx
