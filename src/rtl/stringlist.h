// TStrings / TStringList: an ordered list of text lines with name=value
// access and file load/save, as the classic runtime's lists behave.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace jx {

#ifdef _WIN32
inline constexpr const char* sLineBreak = "\r\n";
#else
inline constexpr const char* sLineBreak = "\n";
#endif

enum class TDuplicates { dupIgnore, dupAccept, dupError };

class TStrings {
 public:
  virtual ~TStrings() = default;

  int Count() const { return static_cast<int>(items_.size()); }
  // Index checks throw EStringListError "List index out of bounds (N)".
  const std::string& operator[](int index) const;
  const std::string& Strings(int index) const { return (*this)[index]; }
  void Put(int index, std::string value);

  virtual int Add(std::string line);  // index of the new line
  void AddStrings(const TStrings& other);
  void Insert(int index, std::string line);
  void Delete(int index);
  void Clear() { items_.clear(); }
  virtual int IndexOf(std::string_view line) const;  // -1 when absent; case-insensitive

  // Text: every line followed by LineBreak. Setting splits at CR, LF and CRLF;
  // a final line break does not make an empty last line.
  std::string GetText() const;
  void SetText(std::string_view text);
  std::string LineBreak = sLineBreak;

  // Comma text: lines separated by ',', quoted with '"' when they hold
  // blanks, commas or quotes. Setting splits at commas and at blanks outside quotes.
  std::string GetCommaText() const;
  void SetCommaText(std::string_view text);

  // name=value lines.
  char NameValueSeparator = '=';
  std::string Names(int index) const;           // "" when the line has no separator
  std::string ValueFromIndex(int index) const;  // text after the first separator
  int IndexOfName(std::string_view name) const; // case-insensitive; -1 when absent
  std::string Values(std::string_view name) const;
  void SetValue(std::string_view name, std::string_view value);  // an empty value deletes the line

  // Files: UTF-8 (a byte-order mark is skipped on load). Load throws
  // EFOpenError "Cannot open file \"NAME\". <system message>"; save writes
  // GetText() and throws EFOpenError "Cannot create file \"NAME\". <message>".
  void LoadFromFile(const std::string& file_name);
  void SaveToFile(const std::string& file_name) const;

  const std::vector<std::string>& Lines() const { return items_; }

 protected:
  // Appends many lines at once (text, files, AddStrings); a sorted list merges them.
  virtual void AddLines(std::vector<std::string> lines);
  // The order and equality of lines: case-insensitive here (UTF-8 letters folded).
  virtual int CompareStrings(std::string_view a, std::string_view b) const;
  bool SameStrings(std::string_view a, std::string_view b) const;

  std::vector<std::string> items_;
};

class TStringList : public TStrings {
 public:
  // Sorted lists keep their order on Add; Duplicates applies to them only.
  // Setting Sorted does not reorder the lines already there: call Sort().
  bool Sorted = false;
  bool CaseSensitive = false;  // also for IndexOf, IndexOfName and Values
  TDuplicates Duplicates = TDuplicates::dupIgnore;

  int Add(std::string line) override;
  int IndexOf(std::string_view line) const override;
  void Sort();
  // Binary search of a sorted list: true and the index when found, else the insertion point.
  bool Find(std::string_view line, int& index) const;

 protected:
  void AddLines(std::vector<std::string> lines) override;
  int CompareStrings(std::string_view a, std::string_view b) const override;
};

}  // namespace jx
