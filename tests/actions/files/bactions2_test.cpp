#include "actions/files/bactions2.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Hosted;
using test::RecordingValidation;
using test::TempDir;
using Lines = std::vector<std::string>;

class DeleteFilesTest : public ::testing::Test {
 protected:
  bool Run(const std::string& spec) {
    h.Action.SetFileSpec(spec);
    return h.Action.Execute();
  }
  static void MakeReadOnly(const std::string& path) { ::chmod(path.c_str(), 0444); }

  TempDir dir;
  Hosted<TDeleteFilesAction> h;
};

TEST_F(DeleteFilesTest, DefaultsAndStaticDescriptions) {
  TDeleteFilesAction a;
  EXPECT_EQ("", a.FileSpec());
  EXPECT_FALSE(a.DeleteReadOnly());
  EXPECT_FALSE(a.DeleteHidden());
  EXPECT_TRUE(a.FailIfNoFile());
  EXPECT_EQ("Delete File(s)", a.GetActionName());
  EXPECT_EQ("Plugins\\DeleteFiles.html", a.GetQuickHelpFilename());
  EXPECT_EQ(550, a.GetHelpTopicID());

  TStringList alias, help;
  a.GetPropertyAlias(alias);
  a.GetPropertyHelp(help);
  EXPECT_EQ((Lines{"[Files]", "FileSpec=File Specification", "DeleteReadOnly=Delete Read Only Files",
                   "DeleteHidden=Delete Hidden Files", "FailIfNoFile=Fail If No File"}),
            alias.Lines());
  EXPECT_EQ((Lines{"FileSpec=File Specification, can include wilde cards (* or ?)",
                   "DeleteReadOnly=Delete Read Only Files", "DeleteHidden=Delete Hidden Files",
                   "FailIfNoFile=Fail if no file to Delete"}),
            help.Lines());
}

TEST_F(DeleteFilesTest, FileSpecIsStoredThroughDescriptionKeyOne) {
  h.Action.SetFileSpec("a/*.o");
  h.Action.SetFileSpec("b/*.o");
  ASSERT_EQ(2u, h.Host.KeyUpdates.size());
  EXPECT_EQ(1, h.Host.KeyUpdates[1].Index);
  EXPECT_EQ("a/*.o", h.Host.KeyUpdates[1].OldValue);
  EXPECT_EQ("b/*.o", h.Host.KeyUpdates[1].NewValue);
  EXPECT_EQ("b/*.o", h.Action.FileSpec());
  EXPECT_EQ("b/*.o", h.Action.GetDescriptionKeyValue(7));
  h.Action.SetDescriptionKeyValue(0, "c");
  EXPECT_EQ("c", h.Action.FileSpec());
}

TEST_F(DeleteFilesTest, ValidateChecksTheStoredTextOnly) {
  RecordingValidation errors;
  EXPECT_FALSE(h.Action.Validate(errors));
  EXPECT_EQ((Lines{"File Spec: The file spec has not been set"}), errors.Errors);

  RecordingValidation none;
  h.Action.SetFileSpec("%UNDEFINED%/*.o");
  EXPECT_TRUE(h.Action.Validate(none));
  EXPECT_TRUE(none.Errors.empty());
}

TEST_F(DeleteFilesTest, DeletesMatchingFilesOnlyAndLogsOneBlock) {
  dir.WriteFile("a.o");
  dir.WriteFile("b.o");
  dir.WriteFile("c.txt");
  dir.MakeDir("sub.o");
  dir.WriteFile("sub.o/inner.o");
  h.Host.Variables["OUT"] = dir.Path();

  EXPECT_TRUE(Run("  %OUT%/*.o  "));

  const std::string spec = dir.Path() + "/*.o";
  ASSERT_EQ(1u, h.Host.Blocks.size());
  EXPECT_EQ((Lines{"Deleting files : " + spec, "2 Files Deleted."}), h.Host.Blocks[0]);
  EXPECT_EQ(2, h.Action.FilesAffected());
  EXPECT_FALSE(fs::exists(dir / "a.o"));
  EXPECT_FALSE(fs::exists(dir / "b.o"));
  EXPECT_TRUE(fs::exists(dir / "c.txt"));
  EXPECT_TRUE(fs::exists(dir / "sub.o/inner.o"));
}

TEST_F(DeleteFilesTest, OneNamedFileWithoutWildcards) {
  dir.WriteFile("my file é.txt");
  dir.WriteFile("other.txt");
  EXPECT_TRUE(Run(dir / "my file é.txt"));
  EXPECT_EQ((Lines{"Deleting files : " + (dir / "my file é.txt"), "1 Files Deleted."}), h.Host.Lines);
  EXPECT_TRUE(fs::exists(dir / "other.txt"));
}

TEST_F(DeleteFilesTest, NoMatchFailsOnlyWithFailIfNoFile) {
  const std::string spec = dir / "*.none";
  EXPECT_FALSE(Run(spec));
  EXPECT_EQ((Lines{"Deleting files : " + spec, "0 Files Deleted."}), h.Host.Lines);

  h.Host.Lines.clear();
  h.Action.SetFailIfNoFile(false);
  EXPECT_TRUE(Run(spec));
  EXPECT_EQ((Lines{"Deleting files : " + spec, "0 Files Deleted."}), h.Host.Lines);

  h.Host.Lines.clear();
  EXPECT_TRUE(Run(dir / "missing-dir/*.o"));
  EXPECT_EQ(2u, h.Host.Lines.size());
}

TEST_F(DeleteFilesTest, EmptyExpansionLogsNothing) {
  h.Host.Variables["EMPTY"] = std::string(" ");
  EXPECT_FALSE(Run("%EMPTY%"));
  h.Action.SetFailIfNoFile(false);
  EXPECT_TRUE(Run("%EMPTY%"));
  EXPECT_TRUE(h.Host.Lines.empty());
}

TEST_F(DeleteFilesTest, ExpansionErrorIsLoggedAsTwoLines) {
  EXPECT_FALSE(Run("%MISSING%/*.o"));
  ASSERT_EQ(1u, h.Host.Blocks.size());
  EXPECT_EQ((Lines{"Unable to Delete file : ", "--> Variable \"MISSING\" is not defined"}), h.Host.Blocks[0]);
  EXPECT_EQ(0, h.Action.FilesAffected());
}

TEST_F(DeleteFilesTest, ReadOnlyFileStopsTheRunUnlessAllowed) {
  const std::string locked = dir.WriteFile("locked.o");
  MakeReadOnly(locked);

  EXPECT_FALSE(Run(dir / "*.o"));
  EXPECT_EQ((Lines{"Deleting files : " + (dir / "*.o"), " --> Error Deleting File : " + locked,
                   " --> Permission denied", "0 Files Deleted."}),
            h.Host.Lines);
  EXPECT_TRUE(fs::exists(locked));

  h.Host.Lines.clear();
  h.Action.SetDeleteReadOnly(true);
  EXPECT_TRUE(Run(dir / "*.o"));
  EXPECT_EQ("1 Files Deleted.", h.Host.Lines.back());
  EXPECT_FALSE(fs::exists(locked));
}

TEST_F(DeleteFilesTest, HiddenFilesMatchAndAreDeleted) {
  dir.WriteFile(".hidden");
  dir.WriteFile("plain");
  EXPECT_TRUE(Run(dir / "*"));
  EXPECT_EQ("2 Files Deleted.", h.Host.Lines.back());
  EXPECT_TRUE(fs::is_empty(dir.Path()));
}

TEST_F(DeleteFilesTest, FilesAffectedIsResetByEveryRun) {
  dir.WriteFile("a.o");
  EXPECT_TRUE(Run(dir / "*.o"));
  EXPECT_EQ(1, h.Action.FilesAffected());
  EXPECT_FALSE(Run(dir / "*.o"));
  EXPECT_EQ(0, h.Action.FilesAffected());
}

}  // namespace
}  // namespace jx
