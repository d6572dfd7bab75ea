// Directory search with the find-first / find-next / find-close protocol:
// the pattern's last part may hold wildcards ('*', '?', "*.*" matches every
// name), and the attribute mask admits hidden, system and directory entries
// only when it names them, as on Win32. A search that admits directories
// also yields the "." and ".." entries.
#pragma once

#include <cstdint>
#include <iterator>
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

// Which directories a search yields: those whose names match the mask, as
// find-first does, or every one (a recursive walk that looks for "*.o" files
// must still see each subdirectory, and one search of the directory is cheaper
// than two).
enum class TFindDirs { MatchingMask, AnyName };

// The matches of one search as a range, without the "." and ".." entries.
// The search is closed when the range goes, whichever way the loop ends:
//   for (const TSearchRec& rec : TFindMatches(dir + "*.o", faReadOnly)) ...
class TFindMatches {
 public:
  TFindMatches(const std::string& pattern, uint32_t attr, TFindDetail detail = TFindDetail::Full,
               TFindDirs dirs = TFindDirs::MatchingMask);
  ~TFindMatches() { FindClose(rec_); }
  TFindMatches(const TFindMatches&) = delete;
  TFindMatches& operator=(const TFindMatches&) = delete;

  // 0 when the search ran to its end or found nothing to search (no match, no
  // such directory); otherwise the OS error that ended it early, such as a
  // directory that cannot be read.
  int Error() const { return error_; }

  class Iterator {
   public:
    using value_type = TSearchRec;
    using difference_type = std::ptrdiff_t;
    explicit Iterator(TFindMatches* owner = nullptr) : owner_(owner) {}
    const TSearchRec& operator*() const { return owner_->rec_; }
    const TSearchRec* operator->() const { return &owner_->rec_; }
    Iterator& operator++() {
      owner_->Advance();
      return *this;
    }
    void operator++(int) { owner_->Advance(); }
    bool operator==(std::default_sentinel_t) const { return owner_->done_; }

   private:
    TFindMatches* owner_;
  };
  Iterator begin() { return Iterator(this); }
  std::default_sentinel_t end() const { return {}; }

 private:
  void Advance();
  void Settle(int result);

  TSearchRec rec_;
  bool done_ = false;
  int error_ = 0;
};

// Win32 wildcard rules: '*' matches any run, '?' any one character (or none at
// the end of the name or before a '.'); "*.*" matches every name; a trailing
// ".*" also matches a name without extension ("foo.*" matches "foo"), and a
// trailing "." matches names without any '.' ("*." matches "Makefile").
// Case-sensitive on POSIX, not on Windows.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace jx
