#include "rtl/paths.h"

namespace jx {
namespace {

#ifdef _WIN32
constexpr std::string_view kDelimiters = "\\/";
constexpr std::string_view kDelimitersAndDrive = "\\/:";
constexpr std::string_view kExtensionStops = ".\\/:";
#else
constexpr std::string_view kDelimiters = "/";
constexpr std::string_view kDelimitersAndDrive = "/";
constexpr std::string_view kExtensionStops = "./";
#endif

bool IsDelimiter(char c) { return kDelimiters.find(c) != std::string_view::npos; }

// Length of the directory part: through the last delimiter (or drive colon).
size_t DirectoryPartLength(std::string_view name) {
  const size_t last = name.find_last_of(kDelimitersAndDrive);
  return last == std::string_view::npos ? 0 : last + 1;
}

// Position of the extension's '.', or npos when the name part has none.
size_t ExtensionStart(std::string_view name) {
  const size_t stop = name.find_last_of(kExtensionStops);
  return stop != std::string_view::npos && name[stop] == '.' ? stop : std::string_view::npos;
}

// "//server/share" of a UNC name: through the text before the delimiter that
// follows the share name.
std::string UncDrive(std::string_view name) {
  size_t end = 2;
  int delimiters = 0;
  while (end + 1 < name.size() && delimiters < 2) {
    if (IsDelimiter(name[end])) ++delimiters;
    if (delimiters < 2) ++end;
  }
  if (end < name.size() && IsDelimiter(name[end])) --end;
  return std::string(name.substr(0, end + 1));
}

}  // namespace

bool IsPathDelimiter(std::string_view s, size_t index) { return index < s.size() && IsDelimiter(s[index]); }

std::string ExtractFilePath(std::string_view name) { return std::string(name.substr(0, DirectoryPartLength(name))); }

std::string ExtractFileDir(std::string_view name) {
  size_t length = DirectoryPartLength(name);
  // Keep a root's delimiter ("/", "C:\", "//"); drop any other trailing one.
  if (length > 1 && IsDelimiter(name[length - 1]) &&
      kDelimitersAndDrive.find(name[length - 2]) == std::string_view::npos) {
    --length;
  }
  return std::string(name.substr(0, length));
}

std::string ExtractFileName(std::string_view name) { return std::string(name.substr(DirectoryPartLength(name))); }

std::string ExtractFileExt(std::string_view name) {
  const size_t dot = ExtensionStart(name);
  return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot));
}

std::string ExtractFileDrive(std::string_view name) {
#ifdef _WIN32
  if (name.size() >= 2 && name[1] == ':') return std::string(name.substr(0, 2));
#endif
  if (name.size() >= 2 && IsDelimiter(name[0]) && IsDelimiter(name[1])) return UncDrive(name);
  return std::string();
}

std::string ChangeFileExt(std::string_view name, std::string_view ext) {
  return std::string(name.substr(0, ExtensionStart(name))).append(ext);
}

std::string IncludeTrailingPathDelimiter(std::string_view s) {
  std::string out(s);
  if (out.empty() || !IsDelimiter(out.back())) out += PathDelim;
  return out;
}

std::string ExcludeTrailingPathDelimiter(std::string_view s) {
  if (!s.empty() && IsDelimiter(s.back())) s.remove_suffix(1);
  return std::string(s);
}

std::string JoinPath(std::string_view dir, std::string_view name) {
  if (dir.empty()) return std::string(name);
  return IncludeTrailingPathDelimiter(dir).append(name);
}

bool HasWildcards(std::string_view spec) { return spec.find_first_of("*?") != std::string_view::npos; }

std::filesystem::path ToFsPath(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string FromFsPath(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return std::string(utf8.begin(), utf8.end());
}

}  // namespace jx
