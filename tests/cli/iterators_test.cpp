// The iterators end to end through jaxtor run, with Set Variable children
// that record what each pass saw.
#include <gtest/gtest.h>

#include <sys/xattr.h>

#include <set>
#include <vector>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string Property(const std::string& name, const std::string& value) {
  return "<Property Name=\"" + name + "\">" + value + "</Property>";
}

std::string Loop(const std::string& cls, const std::string& properties, const std::string& child) {
  return "    <Action Class=\"" + cls + "\">" + properties + "<Actions>" + child + "</Actions></Action>\n";
}

// Appends %ITEM% and ";" to ALL.
const std::string kAppendItem = "<Action Class=\"TSetVariableAction\">" + Property("VariableName", "ALL") +
                                Property("NewValue", "%ALL%%ITEM%;") + Property("ForceType", "ftString") +
                                "</Action>";

// Adds one to the integer in `variable`.
std::string Increment(const std::string& variable) {
  return "<Action Class=\"TSetVariableAction\">" + Property("VariableName", variable) +
         Property("Modifier", "smIncrement") + Property("ApplyToExisting", "True") + "</Action>";
}

std::string FileLoop(const std::string& spec) {
  return Loop("TFileIterator",
              Property("VariableName", "ITEM") + Property("FileSpec", spec) + Property("Recurse", "True"),
              kAppendItem);
}

// The variables dump after a successful run.
std::string RunAndDump(const TempDir& dir, const std::string& variables, const std::string& actions,
                       const std::vector<std::string>& options = {}) {
  const std::string project = WriteProject(dir, "p.xml", variables, actions);
  std::vector<std::string> args = {"run", project, "--dump-variables", dir / "vars.json"};
  args.insert(args.end(), options.begin(), options.end());
  const JaxtorResult result = RunJaxtor(args, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Out << result.Err;
  return ReadFile(dir / "vars.json");
}

std::vector<std::string> SplitItems(const std::string& object) {
  const std::string key = "\"value\": \"";
  const size_t start = object.find(key);
  std::vector<std::string> items;
  if (start == std::string::npos) return items;
  const std::string list = object.substr(start + key.size(), object.rfind('"') - start - key.size());
  for (size_t from = 0, end; (end = list.find(';', from)) != std::string::npos; from = end + 1) {
    items.push_back(list.substr(from, end - from));
  }
  return items;
}

// Each matching file once: the two of the top directory (in the file
// system's order), then the subdirectory's, then the one below it.
TEST(IteratorsEndToEnd, FileIteratorVisitsEachFileOnceDirectoryBeforeSubdirectories) {
  TempDir dir;
  for (const char* name : {"top/a.txt", "top/b.txt", "top/skip.log", "top/sub/c.txt", "top/sub/deeper/d.txt"}) {
    dir.WriteFile(name);
  }
  const std::string json = RunAndDump(dir, "    <Variable Name=\"ALL\"></Variable>\n", FileLoop(dir / "top/*.txt"));
  const std::vector<std::string> items = SplitItems(DumpedVariable(json, "ALL"));
  ASSERT_EQ(4u, items.size()) << json;
  EXPECT_EQ((std::set<std::string>{dir / "top/a.txt", dir / "top/b.txt"}),
            (std::set<std::string>{items[0], items[1]}));
  EXPECT_EQ(dir / "top/sub/c.txt", items[2]);
  EXPECT_EQ(dir / "top/sub/deeper/d.txt", items[3]);
  EXPECT_EQ("{\"type\": \"string\", \"value\": \"" + dir / "top/sub/deeper/d.txt" + "\"}", DumpedVariable(json, "ITEM"));
}

// Two loops in a row: the second searches again and sees the same files.
TEST(IteratorsEndToEnd, EachFileLoopSearchesAgain) {
  TempDir dir;
  for (const char* name : {"src/a.c", "src/x.h", "src/sub/b.c"}) dir.WriteFile(name);
  const std::string loop = FileLoop(dir / "src/*.c");
  const std::string json = RunAndDump(dir, "    <Variable Name=\"ALL\"></Variable>\n", loop + loop);
  const std::string files = dir / "src/a.c" + ";" + dir / "src/sub/b.c" + ";";
  EXPECT_EQ("{\"type\": \"string\", \"value\": \"" + files + files + "\"}", DumpedVariable(json, "ALL"));
}

// A file marked system is left out, unless the stored bits are ignored.
TEST(IteratorsEndToEnd, SystemFilesAreSkippedUnlessStoredAttributesAreIgnored) {
  TempDir dir;
  dir.WriteFile("src/a.c");
  const std::string marked = dir.WriteFile("src/system.c");
  if (setxattr(marked.c_str(), "user.DOSATTRIB", "0x4", 3, 0) != 0) {
    GTEST_SKIP() << "no extended attributes on the temporary file system";
  }
  const std::string variables = "    <Variable Name=\"ALL\"></Variable>\n";
  const std::string loop = FileLoop(dir / "src/*.c");
  EXPECT_EQ("{\"type\": \"string\", \"value\": \"" + dir / "src/a.c" + ";\"}",
            DumpedVariable(RunAndDump(dir, variables, loop), "ALL"));
  const std::vector<std::string> items =
      SplitItems(DumpedVariable(RunAndDump(dir, variables, loop, {"--no-stored-attributes"}), "ALL"));
  EXPECT_EQ((std::set<std::string>{dir / "src/a.c", marked}), std::set<std::string>(items.begin(), items.end()));
}

TEST(IteratorsEndToEnd, FolderIteratorCountsTheFoldersBelowItsStart) {
  TempDir dir;
  dir.MakeDir("top/a/deep");
  dir.MakeDir("top/b");
  dir.WriteFile("top/file.txt");
  const auto loop = [&](const std::string& counter, const char* recurse) {
    return Loop("TFolderIterator",
                Property("VariableName", "ITEM") + Property("StartingFolder", dir / "top") +
                    Property("Recurse", recurse),
                Increment(counter));
  };
  const std::string json = RunAndDump(dir,
                                      "    <Variable Name=\"ALL\" Type=\"Integer\">0</Variable>\n"
                                      "    <Variable Name=\"TOP\" Type=\"Integer\">0</Variable>\n",
                                      loop("ALL", "True") + loop("TOP", "False"));
  EXPECT_EQ("{\"type\": \"integer\", \"value\": 3}", DumpedVariable(json, "ALL"));
  EXPECT_EQ("{\"type\": \"integer\", \"value\": 2}", DumpedVariable(json, "TOP"));
}

}  // namespace
}  // namespace jx::test
