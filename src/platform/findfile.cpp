#include "platform/findfile.h"

#include "platform/attributes.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/wildcard.h"
#include "rtl/paths.h"

namespace jx {

struct TSearchState {
  TSearchState(backend::DirReaderPtr dir_reader, std::string_view mask_text, uint32_t exclude, TFindDetail wanted)
      : reader(std::move(dir_reader)), mask(mask_text), exclude_attr(exclude), detail(wanted) {}

  backend::DirReaderPtr reader;
  WildcardMask mask;
  uint32_t exclude_attr;
  TFindDetail detail;
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

// The bits the reader knows up front already rule most entries out, so
// details are read only for entries that may be admitted.
bool Admits(TSearchState& search, backend::RawDirEntry& entry) {
  if (!search.mask.Matches(entry.name) || (entry.attr & search.exclude_attr)) return false;
  return backend::ReadEntryDetails(*search.reader, entry, search.detail) && !(entry.attr & search.exclude_attr);
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

}  // namespace

int FindFirst(const std::string& pattern, uint32_t attr, TSearchRec& rec, TFindDetail detail) {
  FindClose(rec);
  rec.ExcludeAttr = ExcludedBy(attr);
  backend::DirReaderPtr reader = backend::OpenDirReader(ExtractFilePath(pattern));
  if (!reader) return static_cast<int>(GetLastError());
  rec.FindHandle = std::make_shared<TSearchState>(std::move(reader), ExtractFileName(pattern), rec.ExcludeAttr, detail);
  const int result = NextMatch(rec, static_cast<int>(kErrorFileNotFound));
  if (result != 0) FindClose(rec);
  return result;
}

int FindNext(TSearchRec& rec) {
  if (!rec.FindHandle) {
    SetLastError(kErrorNoMoreFiles);
    return static_cast<int>(kErrorNoMoreFiles);
  }
  return NextMatch(rec, static_cast<int>(kErrorNoMoreFiles));
}

void FindClose(TSearchRec& rec) { rec.FindHandle.reset(); }

}  // namespace jx
