#include "rtl/stringlist.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "rtl/paths.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

[[noreturn]] void ThrowIndexError(int index) {
  throw EStringListError("List index out of bounds (" + IntToStr(index) + ")");
}

// "Cannot open file \"NAME\". <message>" and its create twin, from errno.
[[noreturn]] void ThrowFileError(const char* verb, const std::string& file_name, int error) {
  throw EFOpenError(std::string("Cannot ") + verb + " file \"" + file_name + "\". " + std::strerror(error));
}

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    const size_t end = text.find_first_of("\r\n", start);
    if (end == std::string_view::npos) {
      lines.emplace_back(text.substr(start));
      break;
    }
    lines.emplace_back(text.substr(start, end - start));
    start = end + (text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n' ? 2 : 1);
  }
  return lines;
}

bool IsCommaBlank(char c) { return c != '\0' && static_cast<unsigned char>(c) <= ' '; }

// A comma-text item is quoted when it holds a blank, a control character, a
// quote or a comma; an empty item is not (except as the only line).
std::string CommaItem(const std::string& item) {
  const bool needs_quotes = std::any_of(item.begin(), item.end(), [](char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == ',' || c == '"';
  });
  if (!needs_quotes) return item;
  std::string out = "\"";
  for (char c : item) {
    out += c;
    if (c == '"') out += c;
  }
  return out + "\"";
}

// Reads a quoted item starting at text[pos] == '"'; doubled quotes stand for
// one, and a missing closing quote takes the rest of the text.
std::string ReadQuoted(std::string_view text, size_t& pos) {
  std::string item;
  ++pos;
  while (pos < text.size()) {
    if (text[pos] == '"') {
      if (pos + 1 < text.size() && text[pos + 1] == '"') {
        item += '"';
        pos += 2;
        continue;
      }
      ++pos;
      break;
    }
    item += text[pos++];
  }
  return item;
}

std::string_view NameOf(std::string_view line, char separator) {
  const size_t at = line.find(separator);
  return at == std::string_view::npos ? std::string_view() : line.substr(0, at);
}

}  // namespace

const std::string& TStrings::operator[](int index) const {
  if (index < 0 || index >= Count()) ThrowIndexError(index);
  return items_[index];
}

void TStrings::Put(int index, std::string value) {
  if (index < 0 || index >= Count()) ThrowIndexError(index);
  items_[index] = std::move(value);
}

int TStrings::Add(std::string line) {
  items_.push_back(std::move(line));
  return Count() - 1;
}

void TStrings::AddStrings(const TStrings& other) { AddLines(other.items_); }

void TStrings::Insert(int index, std::string line) {
  if (index < 0 || index > Count()) ThrowIndexError(index);
  items_.insert(items_.begin() + index, std::move(line));
}

void TStrings::Delete(int index) {
  if (index < 0 || index >= Count()) ThrowIndexError(index);
  items_.erase(items_.begin() + index);
}

int TStrings::IndexOf(std::string_view line) const {
  for (int i = 0; i < Count(); ++i) {
    if (SameStrings(items_[i], line)) return i;
  }
  return -1;
}

void TStrings::AddLines(std::vector<std::string> lines) {
  items_.insert(items_.end(), std::make_move_iterator(lines.begin()), std::make_move_iterator(lines.end()));
}

int TStrings::CompareStrings(std::string_view a, std::string_view b) const { return AnsiCompareText(a, b); }

// Case folding keeps the UTF-8 length, so lines of different sizes differ.
bool TStrings::SameStrings(std::string_view a, std::string_view b) const {
  return a.size() == b.size() && CompareStrings(a, b) == 0;
}

std::string TStrings::GetText() const {
  size_t size = 0;
  for (const std::string& line : items_) size += line.size() + LineBreak.size();
  std::string text;
  text.reserve(size);
  for (const std::string& line : items_) text.append(line).append(LineBreak);
  return text;
}

void TStrings::SetText(std::string_view text) {
  Clear();
  AddLines(SplitLines(text));
}

std::string TStrings::GetCommaText() const {
  if (Count() == 1 && items_[0].empty()) return "\"\"";
  std::string text;
  for (int i = 0; i < Count(); ++i) {
    if (i > 0) text += ',';
    text += CommaItem(items_[i]);
  }
  return text;
}

void TStrings::SetCommaText(std::string_view text) {
  Clear();
  size_t pos = 0;
  while (pos < text.size() && IsCommaBlank(text[pos])) ++pos;
  while (pos < text.size()) {
    if (text[pos] == '"') {
      Add(ReadQuoted(text, pos));
    } else {
      const size_t start = pos;
      while (pos < text.size() && !IsCommaBlank(text[pos]) && text[pos] != ',') ++pos;
      Add(std::string(text.substr(start, pos - start)));
    }
    while (pos < text.size() && IsCommaBlank(text[pos])) ++pos;
    if (pos < text.size() && text[pos] == ',') {
      if (pos + 1 == text.size()) Add("");  // a final comma ends with an empty item
      do {
        ++pos;
      } while (pos < text.size() && IsCommaBlank(text[pos]));
    }
  }
}

std::string TStrings::Names(int index) const { return std::string(NameOf((*this)[index], NameValueSeparator)); }

std::string TStrings::ValueFromIndex(int index) const {
  const std::string& line = (*this)[index];
  const size_t at = line.find(NameValueSeparator);
  return at == std::string::npos ? std::string() : line.substr(at + 1);
}

int TStrings::IndexOfName(std::string_view name) const {
  for (int i = 0; i < Count(); ++i) {
    const std::string& line = items_[i];
    if (line.find(NameValueSeparator) != std::string::npos && SameStrings(NameOf(line, NameValueSeparator), name)) {
      return i;
    }
  }
  return -1;
}

std::string TStrings::Values(std::string_view name) const {
  const int index = IndexOfName(name);
  return index < 0 ? std::string() : ValueFromIndex(index);
}

void TStrings::SetValue(std::string_view name, std::string_view value) {
  const int index = IndexOfName(name);
  if (value.empty()) {
    if (index >= 0) Delete(index);
    return;
  }
  std::string line = std::string(name) + NameValueSeparator + std::string(value);
  if (index < 0) {
    Add(std::move(line));
  } else {
    items_[index] = std::move(line);
  }
}

void TStrings::LoadFromFile(const std::string& file_name) {
  const std::filesystem::path path = ToFsPath(file_name);
  errno = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) ThrowFileError("open", file_name, errno);
  // A directory opens like a file on POSIX and then reads as nothing.
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) ThrowFileError("open", file_name, EISDIR);
  std::ostringstream buffer;
  buffer << in.rdbuf();
  std::string_view text = buffer.view();
  if (text.substr(0, kUtf8Bom.size()) == kUtf8Bom) text.remove_prefix(kUtf8Bom.size());
  SetText(text);
}

void TStrings::SaveToFile(const std::string& file_name) const {
  errno = 0;
  std::ofstream out(ToFsPath(file_name), std::ios::binary | std::ios::trunc);
  if (!out) ThrowFileError("create", file_name, errno);
  const std::string text = GetText();
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) ThrowFileError("create", file_name, errno);
}

int TStringList::CompareStrings(std::string_view a, std::string_view b) const {
  return CaseSensitive ? CompareStr(a, b) : AnsiCompareText(a, b);
}

bool TStringList::Find(std::string_view line, int& index) const {
  const auto at = std::lower_bound(items_.begin(), items_.end(), line,
                                   [this](const std::string& item, std::string_view l) { return CompareStrings(item, l) < 0; });
  index = static_cast<int>(at - items_.begin());
  return at != items_.end() && CompareStrings(*at, line) == 0;
}

int TStringList::Add(std::string line) {
  if (!Sorted) return TStrings::Add(std::move(line));
  int index = 0;
  if (Find(line, index)) {
    if (Duplicates == TDuplicates::dupIgnore) return index;
    if (Duplicates == TDuplicates::dupError) throw EStringListError("String list does not allow duplicates");
  }
  items_.insert(items_.begin() + index, std::move(line));
  return index;
}

// Sorts the new lines, applies the duplicates rule against the list and
// among themselves, then merges: no quadratic insertion for long texts.
void TStringList::AddLines(std::vector<std::string> lines) {
  if (!Sorted) {
    TStrings::AddLines(std::move(lines));
    return;
  }
  auto less = [this](const std::string& a, const std::string& b) { return CompareStrings(a, b) < 0; };
  // Add puts a line before its equals; reversed first, equal new lines end up the same way.
  if (Duplicates == TDuplicates::dupAccept) std::reverse(lines.begin(), lines.end());
  std::stable_sort(lines.begin(), lines.end(), less);
  std::vector<std::string> fresh;
  fresh.reserve(lines.size());
  for (std::string& line : lines) {
    int index = 0;
    const bool duplicate = Find(line, index) || (!fresh.empty() && CompareStrings(fresh.back(), line) == 0);
    if (duplicate && Duplicates == TDuplicates::dupIgnore) continue;
    if (duplicate && Duplicates == TDuplicates::dupError) throw EStringListError("String list does not allow duplicates");
    fresh.push_back(std::move(line));
  }
  std::vector<std::string> merged;
  merged.reserve(items_.size() + fresh.size());
  // New lines first: on a tie std::merge takes from the first range.
  std::merge(std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()),
             std::make_move_iterator(items_.begin()), std::make_move_iterator(items_.end()), std::back_inserter(merged),
             less);
  items_ = std::move(merged);
}

int TStringList::IndexOf(std::string_view line) const {
  if (!Sorted) return TStrings::IndexOf(line);
  int index = 0;
  return Find(line, index) ? index : -1;
}

void TStringList::Sort() {
  std::stable_sort(items_.begin(), items_.end(),
                   [this](const std::string& a, const std::string& b) { return CompareStrings(a, b) < 0; });
}

}  // namespace jx
