#include "platform/fileidentity.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "platform/attributes.h"
#include "platform/findfile.h"
#include "support/tempdir.h"

namespace jx {
namespace {

TEST(FileIdentity, IsSameFileHoweverThePathIsSpelled) {
  test::TempDir dir;
  const std::string file = dir.WriteFile("d/f", "x");
  dir.WriteFile("d/g", "x");
  ASSERT_EQ(0, link(file.c_str(), (dir / "hard").c_str()));
  ASSERT_EQ(0, symlink("d/f", (dir / "soft").c_str()));
  const struct {
    std::string a, b;
    bool same;
  } cases[] = {
      {dir / "d/f", dir / "./d/f", true},
      {dir / "d/f", dir / "d/../d/f", true},
      {dir / "d/f", dir / "hard", true},
      {dir / "d/f", dir / "soft", true},
      {dir / "d", dir / "d/", true},
      {dir / "d/f", dir / "d/g", false},
      {dir / "d/f", dir / "missing", false},
      {dir / "missing", dir / "missing", false},
  };
  for (const auto& c : cases) EXPECT_EQ(c.same, IsSameFile(c.a, c.b)) << c.a << " | " << c.b;
}

// A recursive walk as the actions make it: every directory of a search, links
// followed, each step entered through the walk path.
void Walk(TWalkPath& path, const std::string& dir, std::vector<std::string>& seen) {
  TWalkStep step(path, dir);
  if (!step.Entered()) return;
  seen.push_back(dir);
  for (const TSearchRec& rec : TFindMatches(dir + "/*", faDirectory, TFindDetail::Kind, TFindDirs::AnyName)) {
    if (rec.Attr & faDirectory) Walk(path, dir + "/" + rec.Name, seen);
  }
}

// A link back up to a directory the walk stands in is not entered again; one
// to a directory beside the path is, and so is the same top once left.
TEST(WalkPath, ALinkBackUpIsNotEnteredAgain) {
  test::TempDir dir;
  dir.MakeDir("top/a/b");
  dir.MakeDir("top/c");
  ASSERT_EQ(0, symlink("../..", (dir / "top/a/b/up").c_str()));
  ASSERT_EQ(0, symlink("../c", (dir / "top/a/side").c_str()));
  const std::string top = dir / "top";
  TWalkPath path;
  for (int pass = 0; pass < 2; ++pass) {
    std::vector<std::string> seen;
    Walk(path, top, seen);
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ((std::vector<std::string>{top, top + "/a", top + "/a/b", top + "/a/side", top + "/c"}), seen);
  }
}

// What cannot be examined is entered (its own search then fails), and left.
TEST(WalkPath, AMissingDirectoryIsEnteredAndLeft) {
  test::TempDir dir;
  TWalkPath path;
  {
    TWalkStep missing(path, dir / "missing");
    EXPECT_TRUE(missing.Entered());
    TWalkStep again(path, dir / "missing");
    EXPECT_TRUE(again.Entered());
    TWalkStep top(path, dir.Path());
    EXPECT_FALSE(TWalkStep(path, dir.Path() + "/.").Entered());
  }
  EXPECT_TRUE(TWalkStep(path, dir.Path()).Entered());
}

}  // namespace
}  // namespace jx
