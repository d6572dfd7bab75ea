// Which file a path names, however it is spelled ("d/f.txt", "./d/f.txt", a
// hard link, a link to a directory): the device and inode on POSIX, the volume
// serial number and file index on Windows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jx {

struct TFileIdentity {
  uint64_t Device = 0;
  uint64_t Index = 0;
  bool operator==(const TFileIdentity&) const = default;
};

// The identity of what `path` names, links followed; false and the last error
// when it cannot be examined.
bool GetFileIdentity(const std::string& path, TFileIdentity& identity);
// Whether both paths exist and name the same file.
bool IsSameFile(const std::string& a, const std::string& b);

// The directories a recursive walk stands in, from its top down. Links to
// directories are followed, so a link that leads back up would make the walk
// endless; a directory already on the path is therefore not entered again.
class TWalkPath {
 public:
  // Puts `dir` on the path and returns true, unless it is on the path already.
  // A directory that cannot be examined is entered: its own search fails.
  bool Enter(const std::string& dir);
  void Leave();

 private:
  std::vector<std::optional<TFileIdentity>> path_;
};

// Enters a directory for the lifetime of a scope, and leaves it at its end.
class TWalkStep {
 public:
  TWalkStep(TWalkPath& path, const std::string& dir) : path_(path), entered_(path.Enter(dir)) {}
  ~TWalkStep() {
    if (entered_) path_.Leave();
  }
  TWalkStep(const TWalkStep&) = delete;
  TWalkStep& operator=(const TWalkStep&) = delete;
  // False when `dir` was already on the path and must not be walked again.
  bool Entered() const { return entered_; }

 private:
  TWalkPath& path_;
  bool entered_;
};

}  // namespace jx
