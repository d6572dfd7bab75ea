// jaxtor validate, actions, describe and the command line's usage errors.
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(ValidateCommand, ReportsAValidProject) {
  TempDir dir;
  const std::string project = WriteProject(
      dir, "p.xml", "", "    <Action Class=\"TDeleteFilesAction\"><Property Name=\"FileSpec\">x</Property></Action>\n");
  JaxtorResult result = RunJaxtor({"validate", project}, dir);
  EXPECT_EQ(0, result.ExitCode);
  EXPECT_EQ(project + ": no problems found (1 action)\n", result.Out);
}

TEST(ValidateCommand, PrintsEachProblemAndExitsWith3) {
  TempDir dir;
  const std::string project = WriteProject(dir, "p.xml", "",
                                           "    <Action Class=\"TDeleteFilesAction\"/>\n"
                                           "    <Action Class=\"TDeleteFilesAction\" Enabled=\"False\"/>\n"
                                           "    <Action Class=\"TDeleteFilesAction\"/>\n");
  JaxtorResult result = RunJaxtor({"validate", project}, dir);
  EXPECT_EQ(3, result.ExitCode);
  EXPECT_EQ(
      "Delete File(s): File Spec: The file spec has not been set\n"
      "Delete File(s): File Spec: The file spec has not been set\n",
      result.Err);
}

TEST(ActionsCommand, ListsThePalette) {
  TempDir dir;
  JaxtorResult result = RunJaxtor({"actions"}, dir);
  EXPECT_EQ(0, result.ExitCode);
  EXPECT_TRUE(Contains(result.Out, "Files & Directories  Delete File(s)"));
  EXPECT_TRUE(Contains(result.Out, "TDeleteFilesAction\n"));
}

TEST(DescribeCommand, ShowsThePropertyGrid) {
  TempDir dir;
  JaxtorResult result = RunJaxtor({"describe", "TDeleteFilesAction"}, dir);
  EXPECT_EQ(0, result.ExitCode);
  EXPECT_TRUE(Contains(result.Out, "Delete File(s) (TDeleteFilesAction)\nCategory: Files & Directories\n"));
  EXPECT_TRUE(Contains(result.Out, "Help:     Plugins\\DeleteFiles.html, topic 550\n"));
  EXPECT_TRUE(Contains(result.Out, "\n[Files]\n  FileSpec "));
  EXPECT_TRUE(Contains(result.Out, "File Specification, can include wilde cards (* or ?)\n"));
  EXPECT_TRUE(Contains(result.Out, "Fail If No File"));
  EXPECT_TRUE(Contains(result.Out, "Fail if no file to Delete\n"));
}

TEST(DescribeCommand, UnknownClassIsAUsageError) {
  TempDir dir;
  JaxtorResult result = RunJaxtor({"describe", "TFoo"}, dir);
  EXPECT_EQ(2, result.ExitCode);
  EXPECT_EQ("jaxtor: unknown action class \"TFoo\" (see 'jaxtor actions')\n", result.Err);
}

TEST(CommandLine, UsageErrorsExitWith2OnOneLine) {
  TempDir dir;
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {}, {"frobnicate"}, {"run"}, {"run", "p.xml", "--bogus"}, {"run", "p.xml", "--define"}}) {
    JaxtorResult result = RunJaxtor(args, dir);
    EXPECT_EQ(2, result.ExitCode) << result.Err;
    EXPECT_EQ(1, std::count(result.Err.begin(), result.Err.end(), '\n')) << result.Err;
    EXPECT_TRUE(result.Err.rfind("jaxtor: ", 0) == 0) << result.Err;
  }
  EXPECT_EQ("jaxtor: unknown command \"frobnicate\" (run 'jaxtor --help')\n", RunJaxtor({"frobnicate"}, dir).Err);
}

TEST(CommandLine, HelpExitsWith0) {
  TempDir dir;
  JaxtorResult top = RunJaxtor({"--help"}, dir);
  EXPECT_EQ(0, top.ExitCode);
  EXPECT_TRUE(Contains(top.Out, "describe"));
  JaxtorResult run = RunJaxtor({"run", "--help"}, dir);
  EXPECT_EQ(0, run.ExitCode);
  EXPECT_TRUE(Contains(run.Out, "--dump-variables"));
}

}  // namespace
}  // namespace jx::test
