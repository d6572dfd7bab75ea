#include "framework/jxhostutils.h"

#include "rtl/paths.h"

namespace jx {

namespace {

bool NeedsQuotes(const std::string& text) {
  return text.empty() || text.find_first_of(" \t") != std::string::npos;
}

bool IsWrappedIn(const std::string& text, char quote) {
  return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

std::string Wrap(const std::string& text, char quote, bool double_embedded) {
  std::string out(1, quote);
  for (char c : text) {
    out += c;
    if (double_embedded && c == quote) out += c;
  }
  return out + quote;
}

}  // namespace

std::string QuoteString(const std::string& text, bool only_if_needed) {
  if (only_if_needed && !NeedsQuotes(text)) return text;
  return Wrap(text, '\'', true);
}

std::string DoubleQuoteString(const std::string& text, bool only_if_needed) {
  if (IsWrappedIn(text, '"')) return text;
  if (only_if_needed && !NeedsQuotes(text)) return text;
  // Windows command lines have no escape for '"' inside a quoted argument
  // that all programs agree on, so embedded quotes are kept as they are.
  return Wrap(text, '"', false);
}

std::string StripQuotes(const std::string& text) {
  if (IsWrappedIn(text, '"') || IsWrappedIn(text, '\'')) return text.substr(1, text.size() - 2);
  return text;
}

std::string GetParentDir(const std::string& path) {
  return ExtractFileDir(ExcludeTrailingPathDelimiter(path));
}

}  // namespace jx
