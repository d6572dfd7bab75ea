// Path-name functions with the classic runtime's semantics. On POSIX the
// delimiter is '/'; on Windows both '\' and '/' delimit and ':' ends a drive.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace jx {

#ifdef _WIN32
inline constexpr char PathDelim = '\\';
#else
inline constexpr char PathDelim = '/';
#endif

bool IsPathDelimiter(std::string_view s, size_t index);  // 0-based index
std::string ExtractFilePath(std::string_view name);   // up to and including the last delimiter
std::string ExtractFileDir(std::string_view name);    // the same without the trailing delimiter
std::string ExtractFileName(std::string_view name);   // after the last delimiter
std::string ExtractFileExt(std::string_view name);    // from the last '.' of the name part, "" if none
std::string ExtractFileDrive(std::string_view name);  // "C:" or "\\server\share"; "" on POSIX paths
std::string ChangeFileExt(std::string_view name, std::string_view ext);
std::string IncludeTrailingPathDelimiter(std::string_view s);
std::string ExcludeTrailingPathDelimiter(std::string_view s);

// `dir` + `name` with one delimiter between them. An empty `dir` means the
// current directory, so the result is `name` alone, never a name at the root.
std::string JoinPath(std::string_view dir, std::string_view name);
// Whether a file spec holds a wildcard ('*' or '?').
bool HasWildcards(std::string_view spec);

// The std::filesystem path of a UTF-8 text, for the standard library's file APIs,
// and the UTF-8 text of such a path.
std::filesystem::path ToFsPath(const std::string& utf8);
std::string FromFsPath(const std::filesystem::path& path);

}  // namespace jx
