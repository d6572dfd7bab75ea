#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>

#include "actions/files/bactions2.h"
#include "actions/files/jxcopymove.h"
#include "actions/files/jxfileattrib.h"
#include "actions/files/jxrenamefile.h"
#include "actions/files/jxtouchfile.h"
#include "platform/lasterror.h"
#include "support/actiontest.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

// What one action did with a spec: its result and its log lines.
template <class A>
std::pair<bool, Lines> RunOn(const std::function<void(A&)>& set_up) {
  test::Hosted<A> h;
  set_up(h.Action);
  const bool result = h.Action.Execute();
  return {result, h.Host.Lines};
}

// A directory that cannot be read (a link that leads to itself) ends each
// action's search with the system's text, on the action's failure path.
TEST(FileActionSearchError, EndsInTheActionsFailure) {
  test::TempDir dir;
  std::filesystem::create_directory_symlink("loop", dir / "loop");
  const std::string spec = dir / "loop/*.txt", out = dir / "out", error = SysErrorMessage(ELOOP);
  const auto with_target = [&](TCustomCopyFilesAction& a) {
    a.SetFileSpec(spec);
    a.SetTarget(out);
  };
  const std::pair<std::pair<bool, Lines>, Lines> rows[] = {
      {RunOn<TDeleteFilesAction>([&](auto& a) { a.SetFileSpec(spec); }),
       {"Deleting files : " + spec, " --> Error Deleting File : " + spec, " --> " + error, "0 Files Deleted."}},
      {RunOn<TCopyFilesAction>(with_target),
       {"Copying files : " + spec + " -> " + out, "Failed to copy File : " + spec + " -> " + out,
        "Win32 Error : " + error, "0 Files Copied."}},
      {RunOn<TMoveFilesAction>(with_target),
       {"Moving files : " + spec + " -> " + out, " --> Error Moving File : " + spec + " -> " + out, " --> " + error,
        "0 Files Moved."}},
      {RunOn<TTouchFilesAction>([&](auto& a) { a.SetFileSpec(spec); }), {error, "Processed : 0 File(s)"}},
      {RunOn<TSetFileAttributesAction>([&](auto& a) {
         a.SetFileSpec(spec);
         a.SetArchive(asSet);
       }),
       {"Error processing File Spec : " + error}},
      {RunOn<TRenameFilesAction>([&](auto& a) {
         a.SetSourceSpec(spec);
         a.SetTargetSpec("*.bak");
       }),
       {error}},
  };
  for (const auto& [outcome, lines] : rows) {
    EXPECT_FALSE(outcome.first) << lines[0];
    EXPECT_EQ(lines, outcome.second);
  }
}

// Links are followed, but a link back up the tree leads into a directory the
// walk stands in, which is not entered again.
TEST(FileActionWalk, LinkBackUpTheTreeIsNotWalkedAgain) {
  test::TempDir dir;
  const std::string a = dir.WriteFile("src/a.txt"), b = dir.WriteFile("src/sub/b.txt");
  std::filesystem::create_directory_symlink("..", dir / "src/sub/back");
  const std::string spec = dir / "src/*.txt", out = dir / "out";
  const std::pair<std::pair<bool, Lines>, Lines> rows[] = {
      {RunOn<TCopyFilesAction>([&](auto& a) {
         a.SetFileSpec(spec);
         a.SetTarget(out);
         a.SetRecurse(true);
         a.SetTargetIsDir(true);
         a.SetForceDir(true);
       }),
       {"Copying files : " + spec + " -> " + out, "2 Files Copied."}},
      {RunOn<TTouchFilesAction>([&](auto& a) {
         a.SetFileSpec(spec);
         a.SetRecurse(true);
       }),
       {"Processed : 2 File(s)"}},
      {RunOn<TSetFileAttributesAction>([&](auto& a) {
         a.SetFileSpec(spec);
         a.SetRecurse(true);
         a.SetArchive(asSet);
         a.SetLogAllFiles(true);
       }),
       {"Processed File : " + a, "Processed File : " + b}},
  };
  for (const auto& [outcome, lines] : rows) {
    EXPECT_TRUE(outcome.first) << lines[0];
    EXPECT_EQ(lines, outcome.second);
  }
  EXPECT_TRUE(std::filesystem::exists(out + "/sub/b.txt"));
  EXPECT_FALSE(std::filesystem::exists(out + "/sub/back"));
}

}  // namespace
}  // namespace jx
