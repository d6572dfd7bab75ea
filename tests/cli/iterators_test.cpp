// The iterators end to end through jaxtor run: each loop's child appends the
// current item to ALL (Get DateTime whose pattern is the quoted text
// "%ALL%%ITEM%;", so the formatted text is that text).
#include <gtest/gtest.h>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string Property(const std::string& name, const std::string& value) {
  return "<Property Name=\"" + name + "\">" + value + "</Property>";
}

std::string Loop(const std::string& cls, const std::string& properties) {
  const std::string append = "<Action Class=\"TDateTimeAction\">" + Property("JXVariable", "ALL") +
                             Property("DateFormat", "'%ALL%%ITEM%;'") + "</Action>";
  return "    <Action Class=\"" + cls + "\">" + Property("VariableName", "ITEM") + properties + "<Actions>" + append +
         "</Actions></Action>\n";
}

std::string AllAfterRun(const TempDir& dir, const std::string& actions) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"ALL\"></Variable>\n", actions);
  const JaxtorResult result = RunJaxtor({"run", project, "--dump-variables", dir / "vars.json"}, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Out << result.Err;
  const std::string json = ReadFile(dir / "vars.json");
  const std::string key = "\"ALL\": {\"type\": \"string\", \"value\": \"";
  const size_t start = json.find(key);
  if (start == std::string::npos) return "(no ALL in " + json + ")";
  return json.substr(start + key.size(), json.find('"', start + key.size()) - start - key.size());
}

// Two loops in a row: the second searches again and sees the same files.
TEST(IteratorsEndToEnd, FileIteratorRunsItsChildOncePerFileAndSearchesAgain) {
  TempDir dir;
  for (const char* name : {"src/a.c", "src/x.h", "src/sub/b.c"}) dir.WriteFile(name);
  const std::string loop =
      Loop("TFileIterator", Property("FileSpec", dir / "src/*.c") + Property("Recurse", "True"));
  const std::string files = dir / "src/a.c" + ";" + dir / "src/sub/b.c" + ";";
  EXPECT_EQ(files + files, AllAfterRun(dir, loop + loop));
}

TEST(IteratorsEndToEnd, FolderIteratorRunsItsChildOncePerFolder) {
  TempDir dir;
  dir.MakeDir("top/sub/deeper");
  const std::string loop =
      Loop("TFolderIterator", Property("StartingFolder", dir / "top") + Property("Recurse", "True"));
  EXPECT_EQ(dir / "top/sub" + ";" + dir / "top/sub/deeper" + ";", AllAfterRun(dir, loop));
}

}  // namespace
}  // namespace jx::test
