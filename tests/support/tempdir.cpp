#include "support/tempdir.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace fs = std::filesystem;

namespace jx::test {

TempDir::TempDir() {
  std::random_device random;
  for (;;) {
    fs::path candidate = fs::temp_directory_path() / ("jxtest-" + std::to_string(random()));
    if (fs::create_directory(candidate)) {
      path_ = candidate.string();
      return;
    }
  }
}

TempDir::~TempDir() {
  std::error_code ec;
  // Read-only files and directories must become writable before they can go.
  for (auto it = fs::recursive_directory_iterator(path_, ec); !ec && it != fs::recursive_directory_iterator();
       it.increment(ec)) {
    fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
  }
  fs::remove_all(path_, ec);
}

std::string TempDir::WriteFile(const std::string& name, const std::string& contents) const {
  fs::path path = fs::path(path_) / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << contents;
  return path.string();
}

std::string TempDir::MakeDir(const std::string& name) const {
  fs::path path = fs::path(path_) / name;
  fs::create_directories(path);
  return path.string();
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace jx::test
