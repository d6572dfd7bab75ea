// The File Iterator end to end through jaxtor run, with a Set Variable child
// that records what each pass saw.
#include <gtest/gtest.h>

#include <sys/xattr.h>

#include <set>
#include <vector>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

const std::string kAllVariable = "    <Variable Name=\"ALL\"></Variable>\n";

// A recursive File Iterator whose child appends %ITEM% and ";" to ALL.
std::string FileLoop(const std::string& spec) {
  return ActionXml("TFileIterator", {{"VariableName", "ITEM"}, {"FileSpec", spec}, {"Recurse", "True"}},
                   ActionXml("TSetVariableAction",
                             {{"VariableName", "ALL"}, {"NewValue", "%ALL%%ITEM%;"}, {"ForceType", "ftString"}}));
}

// The items ALL collected in a successful run.
std::vector<std::string> CollectedItems(const TempDir& dir, const std::string& actions,
                                        const std::vector<std::string>& options = {}) {
  std::vector<std::string> args = {"run", WriteProject(dir, "p.xml", kAllVariable, actions), "--dump-variables",
                                   dir / "vars.json"};
  args.insert(args.end(), options.begin(), options.end());
  const JaxtorResult result = RunJaxtor(args, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Out << result.Err;
  const std::string object = DumpedVariable(ReadFile(dir / "vars.json"), "ALL");
  const std::string key = "\"value\": \"";
  const std::string list = object.substr(object.find(key) + key.size());
  std::vector<std::string> items;
  for (size_t from = 0, end; (end = list.find(';', from)) != std::string::npos; from = end + 1) {
    items.push_back(list.substr(from, end - from));
  }
  return items;
}

// A file marked system is left out, unless the stored bits are ignored.
TEST(IteratorsEndToEnd, SystemFilesAreSkippedUnlessStoredAttributesAreIgnored) {
  TempDir dir;
  dir.WriteFile("src/a.c");
  const std::string marked = dir.WriteFile("src/system.c");
  if (setxattr(marked.c_str(), "user.DOSATTRIB", "0x4", 3, 0) != 0) {
    GTEST_SKIP() << "no extended attributes on the temporary file system";
  }
  const std::string loop = FileLoop(dir / "src/*.c");
  EXPECT_EQ(std::vector<std::string>{dir / "src/a.c"}, CollectedItems(dir, loop));
  const std::vector<std::string> all = CollectedItems(dir, loop, {"--no-stored-attributes"});
  EXPECT_EQ((std::set<std::string>{dir / "src/a.c", marked}), std::set<std::string>(all.begin(), all.end()));
}

}  // namespace
}  // namespace jx::test
