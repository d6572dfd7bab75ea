// jaxtor validate, actions, describe and the command line's usage errors.
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(ValidateCommand, ReportsEachProblemOfAnEnabledActionOrNone) {
  TempDir dir;
  const std::string valid = WriteProject(dir, "ok.xml", "", ActionXml("TDeleteFilesAction", {{"FileSpec", "x"}}));
  const JaxtorResult ok = RunJaxtor({"validate", valid}, dir);
  EXPECT_EQ(0, ok.ExitCode);
  EXPECT_EQ(valid + ": no problems found (1 action)\n", ok.Out);

  const std::string invalid = WriteProject(dir, "bad.xml", "",
                                           "<Action Class=\"TDeleteFilesAction\"/>\n"
                                           "<Action Class=\"TDeleteFilesAction\" Enabled=\"False\"/>\n"
                                           "<Action Class=\"TDeleteFilesAction\"/>\n");
  const JaxtorResult bad = RunJaxtor({"validate", invalid}, dir);
  EXPECT_EQ(3, bad.ExitCode);
  EXPECT_EQ("Delete File(s): File Spec: The file spec has not been set\n"
            "Delete File(s): File Spec: The file spec has not been set\n",
            bad.Err);
}

TEST(PaletteCommands, ListAndDescribeTheActionTypes) {
  TempDir dir;
  const JaxtorResult actions = RunJaxtor({"actions"}, dir);
  EXPECT_EQ(0, actions.ExitCode);
  EXPECT_TRUE(Contains(actions.Out, "Files & Directories  Delete File(s)")) << actions.Out;
  const JaxtorResult describe = RunJaxtor({"describe", "TDeleteFilesAction"}, dir);
  EXPECT_EQ(0, describe.ExitCode);
  EXPECT_TRUE(Contains(describe.Out, "Delete File(s) (TDeleteFilesAction)\nCategory: Files & Directories\n"));
  EXPECT_TRUE(Contains(describe.Out, "\n[Files]\n  FileSpec ")) << describe.Out;
  const JaxtorResult unknown = RunJaxtor({"describe", "TFoo"}, dir);
  EXPECT_EQ(2, unknown.ExitCode);
  EXPECT_EQ("jaxtor: unknown action class \"TFoo\" (see 'jaxtor actions')\n", unknown.Err);
}

TEST(CommandLine, UsageErrorsExitWith2OnOneLineAndHelpWith0) {
  TempDir dir;
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {}, {"frobnicate"}, {"run"}, {"run", "p.xml", "--bogus"}, {"run", "p.xml", "--define"}}) {
    const JaxtorResult result = RunJaxtor(args, dir);
    EXPECT_EQ(2, result.ExitCode) << result.Err;
    EXPECT_EQ(1, std::count(result.Err.begin(), result.Err.end(), '\n')) << result.Err;
    EXPECT_EQ(0u, result.Err.rfind("jaxtor: ", 0)) << result.Err;
  }
  EXPECT_EQ("jaxtor: unknown command \"frobnicate\" (run 'jaxtor --help')\n", RunJaxtor({"frobnicate"}, dir).Err);
  const JaxtorResult run_help = RunJaxtor({"run", "--help"}, dir);
  EXPECT_EQ(0, run_help.ExitCode);
  EXPECT_TRUE(Contains(run_help.Out, "--dump-variables"));
}

}  // namespace
}  // namespace jx::test
