#include "actions/files/jxrenamefile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "support/actiontest.h"

namespace jx {
namespace {

using Names = std::set<std::string>;

// The names a directory holding `files` has after renaming `source` to `target`.
Names Renamed(const Names& files, const std::string& source, const std::string& target) {
  test::TempDir dir;
  for (const std::string& file : files) dir.WriteFile(file);
  test::Hosted<TRenameFilesAction> h;
  h.Action.SetSourceSpec(dir / source);
  h.Action.SetTargetSpec(target);
  EXPECT_FALSE(h.Action.Execute());  // whatever happened: the action's established outcome
  EXPECT_TRUE(h.Host.Lines.empty());
  Names names;
  for (const auto& e : std::filesystem::directory_iterator(dir.Path())) names.insert(e.path().filename().string());
  return names;
}

// A literal name part is appended to the name built for the entry before.
TEST(RenameFiles, NewNamesFromThePattern) {
  EXPECT_EQ((Names{"a.bak", "b.bak", "c.log"}), Renamed({"a.txt", "b.txt", "c.log"}, "*.txt", "*.bak"));
  EXPECT_EQ((Names{"a.b.b.txt"}), Renamed({"a.b.txt"}, "a.b.txt", "*.*"));
  EXPECT_EQ((Names{"READMEREADME"}), Renamed({"README"}, "README", "*.*"));
  EXPECT_EQ((Names{"new.txt", "new.txtnew.txt"}), Renamed({"one.src", "two.src"}, "*.src", "new.txt"));
  EXPECT_EQ((Names{"d.bak"}), Renamed({"d.txt/inner.txt"}, "*.txt", "*.bak"));  // directories too
  EXPECT_EQ((Names{"new."}), Renamed({"a.txt"}, "a.txt", "new"));
  EXPECT_EQ((Names{"a."}), Renamed({"a.txt"}, "a.txt", "*"));
}

TEST(RenameFiles, ExpansionErrorIsOneStatusMessage) {
  test::Hosted<TRenameFilesAction> h;
  h.Action.SetSourceSpec("*.txt");
  h.Action.SetTargetSpec("%MISSING%.bak");
  EXPECT_FALSE(h.Action.Execute());
  EXPECT_EQ((std::vector<std::vector<std::string>>{{"Variable \"MISSING\" is not defined"}}), h.Host.Blocks);
}

}  // namespace
}  // namespace jx
