// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.
//
// The directory reader behind find-first/find-next: readdir gives names and
// the file type; the extended attribute, and the mode and times when the
// search wants them, are read only for the entries the search asks about.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/backend.h"
#include "platform/posix/attributebits.h"
#include "platform/posix/errors.h"

namespace jx::backend {

class DirReader {
 public:
  DirReader(DIR* dir, std::string prefix) : dir_(dir), path_(std::move(prefix)), prefix_size_(path_.size()) {}
  ~DirReader() { closedir(dir_); }
  DirReader(const DirReader&) = delete;
  DirReader& operator=(const DirReader&) = delete;

  DIR* Dir() const { return dir_; }
  int Fd() const { return dirfd(dir_); }
  // Whether readdir's type of the current entry tells a directory from
  // anything else; the type of a symbolic link or an unreported one does not.
  bool TypeTellsKind() const { return type_tells_kind_; }
  void SetEntryType(unsigned char type) { type_tells_kind_ = type != DT_LNK && type != DT_UNKNOWN; }
  // The entry's path, for the calls that take one; reuses one buffer.
  const char* PathOf(std::string_view name) {
    path_.resize(prefix_size_);
    path_.append(name);
    return path_.c_str();
  }

 private:
  DIR* dir_;
  std::string path_;
  size_t prefix_size_;
  bool type_tells_kind_ = false;
};

void DirReaderCloser::operator()(DirReader* reader) const { delete reader; }

DirReaderPtr OpenDirReader(const std::string& dir) {
  DIR* handle = opendir(dir.empty() ? "." : dir.c_str());
  if (!handle) {
    posix::FailWith(errno == ENOTDIR ? static_cast<int>(kErrorPathNotFound) : errno);
    return nullptr;
  }
  std::string prefix = dir;
  if (!prefix.empty() && prefix.back() != '/') prefix += '/';
  return DirReaderPtr(new DirReader(handle, std::move(prefix)));
}

bool ReadDirEntry(DirReader& reader, RawDirEntry& entry) {
  errno = 0;
  const dirent* found = readdir(reader.Dir());
  if (!found) return posix::FailWith(errno != 0 ? errno : static_cast<int>(kErrorNoMoreFiles));
  entry = RawDirEntry{};
  entry.name = found->d_name;
  if (found->d_type == DT_DIR) entry.attr |= faDirectory;
  if (posix::HasHiddenName(entry.name)) entry.attr |= faHidden;
  reader.SetEntryType(found->d_type);
  entry.kind_known = reader.TypeTellsKind();
  return true;
}

namespace {

// Follows symbolic links like stat; a dangling link reports the link itself.
bool ReadStatus(DirReader& reader, RawDirEntry& entry) {
  const char* name = entry.name.data();  // readdir's text, NUL-terminated
  struct stat st;
  if (fstatat(reader.Fd(), name, &st, 0) != 0 && fstatat(reader.Fd(), name, &st, AT_SYMLINK_NOFOLLOW) != 0) {
    return posix::FailWithErrno();
  }
  uint32_t stored = 0;  // none for a dangling link
  posix::ReadStoredAttributesAt(reader.Fd(), name, reader.PathOf(entry.name), stored);
  entry.attr = posix::AttributesOf(st, entry.name, stored);
  entry.size = S_ISDIR(st.st_mode) ? 0 : st.st_size;
  entry.mtime_seconds = st.st_mtim.tv_sec;
  entry.mtime_nanoseconds = static_cast<int32_t>(st.st_mtim.tv_nsec);
  return true;
}

// The kind without the mode: readdir's type and the stored bits.
bool ReadKind(DirReader& reader, RawDirEntry& entry) {
  uint32_t stored = 0;
  const char* name = entry.name.data();  // readdir's text, NUL-terminated
  if (!posix::ReadStoredAttributesAt(reader.Fd(), name, reader.PathOf(entry.name), stored)) {
    return posix::FailWithErrno();
  }
  entry.attr |= stored;
  return true;
}

}  // namespace

bool ReadEntryDetails(DirReader& reader, RawDirEntry& entry, TFindDetail detail) {
  if (detail == TFindDetail::Kind && reader.TypeTellsKind()) return ReadKind(reader, entry);
  return ReadStatus(reader, entry);
}

}  // namespace jx::backend
