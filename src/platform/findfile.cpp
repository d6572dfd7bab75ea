#include "platform/findfile.h"

#include "platform/attributes.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/wildcard.h"
#include "rtl/paths.h"

namespace jx {

// What a search yields: the directories of TFindDirs, and whether the "."
// and ".." entries are among them (a range leaves them out, and so need not
// examine them).
struct TYield {
  TFindDirs dirs = TFindDirs::MatchingMask;
  bool dot_entries = true;
};

struct TSearchState {
  TSearchState(backend::DirReaderPtr dir_reader, std::string_view mask_text, uint32_t exclude, TFindDetail wanted,
               TYield yielded)
      : reader(std::move(dir_reader)), mask(mask_text), exclude_attr(exclude), detail(wanted), yield(yielded) {}

  backend::DirReaderPtr reader;
  WildcardMask mask;
  uint32_t exclude_attr;
  TFindDetail detail;
  TYield yield;
};

namespace {

// Hidden, system and directory entries are admitted only when asked for;
// read-only and archive always are.
uint32_t ExcludedBy(uint32_t attr) { return ~attr & (faHidden | faSysFile | faDirectory); }

// The bits of Attr a Kind search reports, whatever more the backend knew.
constexpr uint32_t kKindAttr = faDirectory | faHidden | faSysFile | faArchive;

void Fill(TSearchRec& rec, const backend::RawDirEntry& entry, TFindDetail detail) {
  rec.Name.assign(entry.name);
  if (detail == TFindDetail::Kind) {
    rec.Attr = entry.attr & kKindAttr;
    rec.Size = 0;
    rec.Time = 0;
    return;
  }
  rec.Attr = entry.attr;
  rec.Size = entry.size;
  rec.Time = UnixTimeToLocal(entry.mtime_seconds, entry.mtime_nanoseconds);
}

// Whether a name the mask refuses may still be admitted as a directory.
bool MayBeAdmittedDirectory(const TSearchState& search, const backend::RawDirEntry& entry) {
  return search.yield.dirs == TFindDirs::AnyName && !(search.exclude_attr & faDirectory) &&
         (!entry.kind_known || (entry.attr & faDirectory));
}

bool IsDotEntry(std::string_view name) { return name == "." || name == ".."; }

// The bits the reader knows up front already rule most entries out, so
// details are read only for entries that may be admitted.
bool Admits(TSearchState& search, backend::RawDirEntry& entry) {
  if (!search.yield.dot_entries && IsDotEntry(entry.name)) return false;
  const bool name_matches = search.mask.Matches(entry.name);
  if (!name_matches && !MayBeAdmittedDirectory(search, entry)) return false;
  if (entry.attr & search.exclude_attr) return false;
  if (!backend::ReadEntryDetails(*search.reader, entry, search.detail)) return false;
  if (entry.attr & search.exclude_attr) return false;
  return name_matches || (entry.attr & faDirectory);
}

// 0 and the next admitted entry in `rec`; else `exhausted` when the directory
// has no further match, or the error that stopped the read.
int NextMatch(TSearchRec& rec, int exhausted) {
  TSearchState& search = *rec.FindHandle;
  backend::RawDirEntry entry;
  while (backend::ReadDirEntry(*search.reader, entry)) {
    if (Admits(search, entry)) {
      Fill(rec, entry, search.detail);
      return 0;
    }
  }
  const uint32_t error = GetLastError();
  const int result = error == kErrorNoMoreFiles ? exhausted : static_cast<int>(error);
  SetLastError(static_cast<uint32_t>(result));
  return result;
}

int FindFirstOf(const std::string& pattern, uint32_t attr, TSearchRec& rec, TFindDetail detail, TYield yield) {
  FindClose(rec);
  rec.ExcludeAttr = ExcludedBy(attr);
  backend::DirReaderPtr reader = backend::OpenDirReader(ExtractFilePath(pattern));
  if (!reader) return static_cast<int>(GetLastError());
  rec.FindHandle =
      std::make_shared<TSearchState>(std::move(reader), ExtractFileName(pattern), rec.ExcludeAttr, detail, yield);
  const int result = NextMatch(rec, static_cast<int>(kErrorFileNotFound));
  if (result != 0) FindClose(rec);
  return result;
}

}  // namespace

int FindFirst(const std::string& pattern, uint32_t attr, TSearchRec& rec, TFindDetail detail) {
  return FindFirstOf(pattern, attr, rec, detail, TYield{});
}

int FindNext(TSearchRec& rec) {
  if (!rec.FindHandle) {
    SetLastError(kErrorNoMoreFiles);
    return static_cast<int>(kErrorNoMoreFiles);
  }
  return NextMatch(rec, static_cast<int>(kErrorNoMoreFiles));
}

void FindClose(TSearchRec& rec) { rec.FindHandle.reset(); }

TFindMatches::TFindMatches(const std::string& pattern, uint32_t attr, TFindDetail detail, TFindDirs dirs) {
  Settle(FindFirstOf(pattern, attr, rec_, detail, TYield{dirs, false}));
}

void TFindMatches::Advance() { Settle(FindNext(rec_)); }

// "Nothing there" ends the range quietly; any other error is kept for Error().
void TFindMatches::Settle(int result) {
  if (result == 0) return;
  done_ = true;
  const auto code = static_cast<uint32_t>(result);
  if (code != kErrorFileNotFound && code != kErrorPathNotFound && code != kErrorNoMoreFiles) error_ = result;
  FindClose(rec_);
}

}  // namespace jx
