// The basic actions: File Exists, Create and Delete Directory, Delete File(s)
// and Set Variable.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "actions/files/bactions1.h"
#include "actions/files/bactions2.h"
#include "actions/files/fileactiontest.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/messageof.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using FileExistsTest = test::FileActionTest<TFileExistsAction>;
using CreateDirectoryTest = test::FileActionTest<TCreateDirectoryAction>;

// A directory counts; an expansion error fails silently.
TEST_F(FileExistsTest, ModesMapTheAnswerAndTheVariableGetsIt) {
  const std::string exists = "File or Folder Exists", missing = "File or Folder is missing";
  EXPECT_EQ(Outcome(false, {missing}), Run({{"FileOrDirectory", dir / "none"}, {"Variable", "FOUND"}}));
  EXPECT_EQ(Variant(false), host.Variables["FOUND"]);
  EXPECT_EQ(Outcome(true, {exists}), Run({{"FileOrDirectory", dir.Path()}}));
  EXPECT_EQ(Variant(true), host.Variables["FOUND"]);
  EXPECT_EQ(Outcome(false, {exists}), Run({{"ExistsMode", "feFailIfExists"}}));
  EXPECT_EQ(Outcome(true, {exists}), Run({{"FailIfExists", "False"}}));  // as older projects say
  EXPECT_EQ(Outcome(true, {missing}), Run({{"ExistsMode", "feIgnore"}, {"FileOrDirectory", dir / "none"}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileOrDirectory", "%NOPE%/a"}}));
}

// An existing directory counts as created; an empty expansion succeeds silently.
TEST_F(CreateDirectoryTest, MissingParentsOnlyWithForce) {
  const std::string deep = dir / "a/b";
  host.Variables["EMPTY"] = std::string("  ");
  EXPECT_EQ(Outcome(true, {}), Run({{"FileOrDirectory", "%EMPTY%"}}));
  EXPECT_EQ(Outcome(true, {"Created directory : " + dir.Path()}), Run({{"FileOrDirectory", " " + dir.Path() + " "}}));
  EXPECT_EQ(Outcome(false, {"Unable to Create directory : " + deep}), Run({{"FileOrDirectory", deep}}));
  EXPECT_EQ(Outcome(true, {"Created directory : " + deep}), Run({{"Force", "True"}}));
  EXPECT_TRUE(fs::is_directory(deep));
  EXPECT_EQ(Outcome(false, {"Unable to Create directory : ", "Variable \"NOPE\" is not defined"}),
            Run({{"FileOrDirectory", "%NOPE%/x"}}));
}

class DeleteDirectoryTest : public test::FileActionTest<TDeleteDirectoryAction> {
 protected:
  DeleteDirectoryTest() { action.SetDeleteTree(true); }
  // The failure block: the target, then the text RaiseLastOSError gives `code`.
  Outcome Failure(const std::string& target, uint32_t code) {
    const std::string text = "System Error.  Code: " + IntToStr(code) + ".\n" + SysErrorMessage(code);
    return {false, {"Unable to Delete Directory : " + target, text}};
  }
};

// A missing directory counts as deleted; a full one needs DeleteTree, which
// takes a link inside the tree but not what it leads to.
TEST_F(DeleteDirectoryTest, MissingOrNonEmptyDirectory) {
  dir.WriteFile("target/sub/.hidden");
  const std::string outside = dir.WriteFile("outside/keep.txt");
  fs::create_directory_symlink(dir / "outside", dir / "target/link");
  EXPECT_EQ(Outcome(true, {}), Run({{"FileOrDirectory", dir / "missing"}}));
  EXPECT_EQ(Failure(dir / "target", kErrorDirNotEmpty),
            Run({{"FileOrDirectory", dir / "target"}, {"DeleteTree", "False"}}));
  EXPECT_EQ(Outcome(true, {}), Run({{"DeleteTree", "True"}}));
  EXPECT_FALSE(fs::exists(dir / "target"));
  EXPECT_TRUE(fs::exists(outside));
}

// The working directory stays where it is, so that a relative path of a
// later action still means what it says; only one inside the tree moves, to the root.
TEST_F(DeleteDirectoryTest, WorkingDirectoryMovesOnlyOutOfTheDeletedTree) {
  dir.WriteFile("gone/a.txt");
  test::CurrentDirScope cwd(dir.Path());
  EXPECT_TRUE(Run({{"FileOrDirectory", "gone"}}).first);
  EXPECT_FALSE(fs::exists(dir / "gone"));
  ASSERT_EQ(dir.Path(), GetCurrentDir());  // else the create below would act on the root
  EXPECT_TRUE(test::RunWith<TCreateDirectoryAction>({{"FileOrDirectory", "made/sub"}, {"Force", "True"}}).first);
  test::CurrentDirScope inside(dir / "made/sub");
  EXPECT_TRUE(Run({{"FileOrDirectory", dir / "made"}}).first);
  EXPECT_FALSE(fs::exists(dir / "made"));
  EXPECT_EQ("/", GetCurrentDir());
}

TEST_F(DeleteDirectoryTest, ReadOnlyEntriesGoOnlyWithDeleteReadOnly) {
  const std::string target = dir.MakeDir("target"), locked = dir.WriteFile("target/sub/locked");
  ::chmod(locked.c_str(), 0444);
  ::chmod(target.c_str(), 0555);
  EXPECT_EQ(Failure(target, kErrorAccessDenied), Run({{"FileOrDirectory", target}}));
  EXPECT_TRUE(fs::exists(locked));
  EXPECT_TRUE(Run({{"DeleteReadOnly", "True"}}).first);
  EXPECT_FALSE(fs::exists(target));
}

using DeleteFilesTest = test::FileActionTest<TDeleteFilesAction>;

// Hidden files match; directories and other names do not. The FileSpec goes
// through description key 1, although the action has one key only.
TEST_F(DeleteFilesTest, DeletesMatchingFilesOnlyAndLogsOneBlock) {
  for (const char* name : {"a.o", "b.o", ".h.o", "c.txt", "sub.o/inner.o"}) dir.WriteFile(name);
  host.Variables["OUT"] = dir.Path();
  EXPECT_TRUE(Run({{"FileSpec", "  %OUT%/*.o  "}}).first);
  EXPECT_EQ((std::vector<test::Lines>{{"Deleting files : " + (dir / "*.o"), "3 Files Deleted."}}), host.Blocks);
  EXPECT_EQ(3, action.FilesAffected());
  EXPECT_EQ(1, host.KeyUpdates.at(0).Index);
  for (const char* gone : {"a.o", "b.o", ".h.o"}) EXPECT_FALSE(fs::exists(dir / gone)) << gone;
  for (const char* kept : {"c.txt", "sub.o/inner.o"}) EXPECT_TRUE(fs::exists(dir / kept)) << kept;
  EXPECT_EQ(Outcome(true, {"Deleting files : " + (dir / "c.txt"), "1 Files Deleted."}),
            Run({{"FileSpec", dir / "c.txt"}}));
}

// FailIfNoFile is on unless turned off. An expansion error clears the count.
TEST_F(DeleteFilesTest, NothingToDeleteFailsOnlyWithFailIfNoFileAndAnExpansionErrorFails) {
  const std::string spec = dir / "*.none";
  host.Variables["EMPTY"] = std::string(" ");
  EXPECT_EQ(Outcome(false, {"Deleting files : " + spec, "0 Files Deleted."}), Run({{"FileSpec", spec}}));
  EXPECT_EQ(Outcome(false, {}), Run({{"FileSpec", "%EMPTY%"}}));
  EXPECT_EQ(Outcome(true, {}), Run({{"FailIfNoFile", "False"}}));
  EXPECT_EQ(Outcome(true, {"Deleting files : " + spec, "0 Files Deleted."}), Run({{"FileSpec", spec}}));
  EXPECT_TRUE(Run({{"FileSpec", dir / "missing-dir/*.o"}}).first);
  EXPECT_TRUE(Run({{"FileSpec", dir.WriteFile("a.o")}}).first && action.FilesAffected() == 1);
  EXPECT_EQ(Outcome(false, {"Unable to Delete file : ", "--> Variable \"MISSING\" is not defined"}),
            Run({{"FileSpec", "%MISSING%/*.o"}}));
  EXPECT_EQ(0, action.FilesAffected());
}

TEST_F(DeleteFilesTest, ReadOnlyFileStopsTheRunUnlessAllowed) {
  const std::string locked = dir.WriteFile("locked.o");
  ::chmod(locked.c_str(), 0444);
  EXPECT_EQ(Outcome(false, {"Deleting files : " + (dir / "*.o"), " --> Error Deleting File : " + locked,
                            " --> Permission denied", "0 Files Deleted."}),
            Run({{"FileSpec", dir / "*.o"}}));
  EXPECT_TRUE(fs::exists(locked));
  EXPECT_EQ("1 Files Deleted.", Run({{"DeleteReadOnly", "True"}}).second.back());
  EXPECT_FALSE(fs::exists(locked));
}

class SetVariableTest : public test::ActionTest<TSetVariableAction> {
 protected:
  // The value stored for V from `value` with `modifier` and `type`.
  Variant Run(const std::string& value, TJXSetVariableModifier modifier = smNone,
              TJXSetVariableForceType type = ftDefault) {
    action.SetVariableName("V");
    action.SetNewValue(value);
    action.SetModifier(modifier);
    action.SetForceType(type);
    EXPECT_TRUE(action.Execute());
    return host.Variables["V"];
  }
  std::string RunText(const std::string& value, TJXSetVariableModifier modifier) {
    return Run(value, modifier, ftString).ToString();
  }
  // The message of the error that Execute raises, "" when none.
  std::string Failure() { return test::MessageOf<Exception>([this] { action.Execute(); }); }
};

TEST_F(SetVariableTest, TextAndPathModifiers) {
  const std::tuple<TJXSetVariableModifier, std::string, std::string> rows[] = {
      {smNone, " a ", " a "},          {smTrim, " \ta b\r\n", "a b"},       {smTrimLeft, " a ", "a "},
      {smTrimRight, " a ", " a"},      {smAddQuotes, "it's", "'it''s'"},    {smAddDoubleQuotes, "a b", "\"a b\""},
      {smStripQuotes, "'a b'", "a b"}, {smLowerCase, "AbC-É", "abc-É"},     {smUpperCase, "aBc-é", "ABC-é"},
      {smIncludeTrailingBackSlash, "/a", "/a/"},  {smExcludeTrailingBackSlash, "/a/", "/a"},
      {smExtractFileName, "/a.d/f.tar.gz", "f.tar.gz"}, {smExtractFilePath, "/a.d/f", "/a.d/"},
      {smExtractFileDrive, "/a/f.txt", ""},       {smExtractFileExt, "/a.d/f.tar.gz", ".gz"},
      {smRemoveFileExt, "/a.d/f.tar.gz", "/a.d/f.tar"}, {smRemoveFileExt, "/a.d/f", "/a.d/f"},
  };
  for (const auto& [modifier, input, expected] : rows) {
    EXPECT_EQ(expected, RunText(input, modifier)) << SetVariableModifierStrings[modifier];
  }
}

// Steps change integers only; automatic typing takes decimal text alone as an
// integer, and the sentinels fall through to the next type.
TEST_F(SetVariableTest, TypedValues) {
  const std::tuple<std::string, TJXSetVariableModifier, TJXSetVariableForceType, Variant> rows[] = {
      {"41", smIncrement, ftDefault, int32_t{42}},  {"0", smDeincrement, ftDefault, int32_t{-1}},
      {"abc", smIncrement, ftDefault, "abc"},       {"1.5", smIncrement, ftDefault, 1.5},
      {"-653268", smIncrement, ftDefault, int32_t{-653268}},
      {"2147483647", smIncrement, ftDefault, int32_t{INT32_MIN}},
      {"12", smNone, ftDefault, int32_t{12}},       {"-7", smNone, ftDefault, int32_t{-7}},
      {"1.5", smNone, ftDefault, 1.5},              {"true", smNone, ftDefault, true},
      {"FALSE", smNone, ftDefault, false},          {"1.2.3", smNone, ftDefault, "1.2.3"},
      {"", smNone, ftDefault, ""},                  {"$10", smNone, ftDefault, "$10"},
      {"0x1F", smNone, ftDefault, "0x1F"},          {"3000000000", smNone, ftDefault, 3e9},
      {"-989898999", smNone, ftDefault, -989898999.0},
      {"-0.989898999", smNone, ftDefault, "-0.989898999"},
      {"12", smNone, ftString, "12"},               {"12", smNone, ftInteger, int32_t{12}},
      {"2", smNone, ftFloat, 2.0},                  {"1", smNone, ftBoolean, true},
  };
  for (const auto& [input, modifier, type, expected] : rows) EXPECT_EQ(expected, Run(input, modifier, type)) << input;
}

TEST_F(SetVariableTest, ForcedTypesThatDoNotConvertFailWithoutStoring) {
  action.SetVariableName("V");
  action.SetNewValue("abc");
  for (const auto& [type, what] :
       {std::pair{ftInteger, "integer"}, {ftFloat, "floating point"}, {ftBoolean, "boolean"}}) {
    action.SetForceType(type);
    EXPECT_EQ(std::string("'abc' is not a valid ") + what + " value", Failure());
  }
  EXPECT_TRUE(host.Variables.empty());
}

TEST_F(SetVariableTest, ExpandsTheNewValueOrModifiesTheExistingValue) {
  host.Variables["A"] = int32_t{7};
  EXPECT_EQ(Variant("7-x"), Run("%A%-x"));
  host.Variables["V"] = std::string("abc");
  action.SetApplyToExisting(true);
  EXPECT_EQ(Variant("ABC"), Run("ignored", smUpperCase));
  action.SetVariableName("");
  EXPECT_EQ("No Variable specified", Failure());
}

TEST_F(SetVariableTest, EncryptAndDecryptRoundTripThroughTheHost) {
  const std::string encrypted = RunText("s3cret pass", smEncrypt);
  std::string expected;
  ASSERT_TRUE(host.EncryptString("s3cret pass", "k7x2mwq9zrtp@hnbc5s", expected));
  EXPECT_EQ(expected, encrypted);
  EXPECT_EQ("s3cret pass", RunText(encrypted, smDecrypt));
  action.SetNewValue("plain text");
  EXPECT_EQ("Unable to decrypt the value of V: it is not an encrypted value", Failure());
}

TEST_F(SetVariableTest, ShortFileNamesOfAList) {
  const std::string a = dir.MakeDir("a long name"), b = dir.MakeDir("another long name");
  EXPECT_EQ(a + ";" + b, RunText("\"" + a + "\";" + b, smShortFileName));
  EXPECT_EQ(";" + b, RunText(dir / "missing;" + b, smShortFileName));
  EXPECT_EQ("", RunText("\"" + a + "\"", smShortFileName));  // quotes stay on a single path
}

// The modifier is description key 1, by its text: "Trim" names smTrim, "" smNone.
TEST_F(SetVariableTest, DescriptionKeysAndModifierByName) {
  EXPECT_EQ("Set Variable  to [  ]", action.GetDescription());
  action.SetVariableName("OUT");
  action.SetModifier(smTrim);
  action.SetNewValue("x");
  EXPECT_EQ("Set Variable OUT to Trim[ x ]", action.GetDescription());
  EXPECT_EQ(1, host.KeyUpdates.at(1).Index);
  action.SetDescriptionKeyValue(1, "");
  EXPECT_EQ(smNone, action.Modifier());
  EXPECT_THROW(action.SetDescriptionKeyValue(1, "Bogus"), EConvertError);
}

}  // namespace
}  // namespace jx
