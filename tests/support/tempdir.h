// A scoped temporary directory for tests: created empty, removed with
// everything in it (read-only entries included) when the object dies.
#pragma once

#include <string>

namespace jx::test {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& Path() const { return path_; }          // no trailing '/'
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  // Writes `contents` to the relative `name`, creating parent directories.
  std::string WriteFile(const std::string& name, const std::string& contents = "") const;
  std::string MakeDir(const std::string& name) const;

 private:
  std::string path_;
};

std::string ReadFile(const std::string& path);

}  // namespace jx::test
