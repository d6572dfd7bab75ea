// Directory search with the find-first / find-next / find-close protocol:
// the pattern's last part may hold wildcards ('*', '?', "*.*" matches every
// name), and the attribute mask admits hidden, system and directory entries
// only when it names them, as on Win32. A search that admits directories
// also yields the "." and ".." entries.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "rtl/datetime.h"

namespace jx {

struct TSearchState;  // an open search

struct TSearchRec {
  std::string Name;          // the entry's name, without its directory
  uint32_t Attr = 0;         // faXxx bits
  int64_t Size = 0;          // bytes; 0 for directories
  TDateTime Time = 0;        // last write time, local
  uint32_t ExcludeAttr = 0;  // the special bits (hidden, system, directory) not admitted
  std::shared_ptr<TSearchState> FindHandle;
};

// How much of each match a search reports. Full fills every field; Kind fills
// Name and, of Attr, only the directory, hidden, system and archive bits (the
// ones the attribute mask filters on), leaving Size and Time 0: a caller that
// needs no more spares the backend a further call per entry.
enum class TFindDetail { Full, Kind };

// 0 and the first match in `rec`, or an OS error code (kErrorFileNotFound when
// the directory holds no match, kErrorPathNotFound when it does not exist),
// which is also the last error. Entries come in the order the OS lists them;
// a pattern without directory part searches the current directory.
int FindFirst(const std::string& pattern, uint32_t attr, TSearchRec& rec, TFindDetail detail = TFindDetail::Full);
// 0 and the next match, or kErrorNoMoreFiles.
int FindNext(TSearchRec& rec);
// Releases the search; harmless after a failed search or a second time.
void FindClose(TSearchRec& rec);

// Win32 wildcard rules: '*' matches any run, '?' any one character (or none at
// the end of the name or before a '.'); "*.*" matches every name; a trailing
// ".*" also matches a name without extension ("foo.*" matches "foo"), and a
// trailing "." matches names without any '.' ("*." matches "Makefile").
// Case-sensitive on POSIX, not on Windows.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace jx
