// jaxtor run, end to end: exit codes, the log file, defines and the variables dump.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string DeleteAction(const std::string& spec, bool fail_if_no_file, const std::string& attributes = "") {
  return "    <Action Class=\"TDeleteFilesAction\"" + attributes + ">\n      <Property Name=\"FileSpec\">" + spec +
         "</Property>\n      <Property Name=\"FailIfNoFile\">" + (fail_if_no_file ? "True" : "False") +
         "</Property>\n    </Action>\n";
}

class RunCommand : public ::testing::Test {
 protected:
  RunCommand() {
    dir.WriteFile("work/a.o");
    dir.WriteFile("work/b.o");
    dir.WriteFile("work/keep.c");
    work = dir / "work";
  }
  bool Exists(const std::string& name) const { return std::filesystem::exists(dir / name); }

  TempDir dir;
  std::string work;
};

TEST_F(RunCommand, SucceedsAndWritesTheLogFile) {
  const std::string project =
      WriteProject(dir, "p.xml", "    <Variable Name=\"WORK\">" + work + "</Variable>\n", DeleteAction("%WORK%/*.o", true));
  JaxtorResult result = RunJaxtor({"run", project, "--log", dir / "build.log"}, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Err;
  EXPECT_EQ("== Delete File(s) (%WORK%/*.o)\nDeleting files : " + work + "/*.o\n2 Files Deleted.\n",
            ReadFile(dir / "build.log"));
  EXPECT_FALSE(Exists("work/a.o"));
  EXPECT_TRUE(Exists("work/keep.c"));
  EXPECT_NE(std::string::npos, result.Out.find("2 Files Deleted.\n-- Success ("));
  EXPECT_EQ("Build succeeded\n", result.Out.substr(result.Out.size() - 16));
  EXPECT_EQ("", result.Err);
}

TEST_F(RunCommand, FailedActionStopsTheBuildWithExitCode1) {
  const std::string project =
      WriteProject(dir, "p.xml", "", DeleteAction(work + "/*.none", true) + DeleteAction(work + "/*.o", true));
  JaxtorResult result = RunJaxtor({"run", project, "--log", dir / "build.log"}, dir);
  EXPECT_EQ(1, result.ExitCode);
  EXPECT_EQ("== Delete File(s) (" + work + "/*.none)\nDeleting files : " + work + "/*.none\n0 Files Deleted.\n",
            ReadFile(dir / "build.log"));
  EXPECT_TRUE(Exists("work/a.o"));
  EXPECT_NE(std::string::npos, result.Out.find("-- Failed ("));
  EXPECT_EQ("Build failed\n", result.Out.substr(result.Out.size() - 13));
}

TEST_F(RunCommand, IgnoredFailureAndDisabledActionLetTheBuildGoOn) {
  const std::string project = WriteProject(dir, "p.xml", "",
                                           DeleteAction(work + "/*.none", true, " IgnoreFailure=\"True\"") +
                                               DeleteAction(work + "/a.o", true, " Enabled=\"False\"") +
                                               DeleteAction(work + "/b.o", true));
  JaxtorResult result = RunJaxtor({"run", project}, dir);
  EXPECT_EQ(0, result.ExitCode);
  EXPECT_NE(std::string::npos, result.Out.find("-- Failed (ignored)\n"));
  EXPECT_TRUE(Exists("work/a.o"));
  EXPECT_FALSE(Exists("work/b.o"));
}

TEST_F(RunCommand, UndefinedVariableFailsTheAction) {
  const std::string project = WriteProject(dir, "p.xml", "", DeleteAction("%NOPE%/*.o", false));
  JaxtorResult result = RunJaxtor({"run", project, "--log", dir / "build.log"}, dir);
  EXPECT_EQ(1, result.ExitCode);
  EXPECT_EQ("== Delete File(s) (%NOPE%/*.o)\nUnable to Delete file : \n--> Variable \"NOPE\" is not defined\n",
            ReadFile(dir / "build.log"));
}

TEST_F(RunCommand, ValidationProblemsExitWith3AndNothingRuns) {
  const std::string project = WriteProject(dir, "p.xml", "", DeleteAction(work + "/a.o", true) + DeleteAction("", true));
  JaxtorResult result = RunJaxtor({"run", project}, dir);
  EXPECT_EQ(3, result.ExitCode);
  EXPECT_EQ("Delete File(s): File Spec: The file spec has not been set\n", result.Err);
  EXPECT_TRUE(Exists("work/a.o"));
}

TEST_F(RunCommand, DefineWinsAndIsConvertedToTheDeclaredType) {
  const std::string project = WriteProject(dir, "p.xml",
                                           "    <Variable Name=\"WORK\">/nowhere</Variable>\n"
                                           "    <Variable Name=\"N\" Type=\"Integer\">1</Variable>\n"
                                           "    <Variable Name=\"R\" Type=\"Float\">0.5</Variable>\n"
                                           "    <Variable Name=\"B\" Type=\"Boolean\">False</Variable>\n",
                                           DeleteAction("%WORK%/*.o", true));
  JaxtorResult result = RunJaxtor({"run", project, "--define", "WORK=" + work, "--define", "n=7", "--define",
                                   "Text=say \"hi\"\\\n", "--dump-variables", dir / "vars.json"},
                                  dir);
  EXPECT_EQ(0, result.ExitCode) << result.Err;
  EXPECT_FALSE(Exists("work/a.o"));
  EXPECT_EQ("{\n"
            "  \"WORK\": {\"type\": \"string\", \"value\": \"" + work + "\"},\n"
            "  \"N\": {\"type\": \"integer\", \"value\": 7},\n"
            "  \"R\": {\"type\": \"float\", \"value\": 0.5},\n"
            "  \"B\": {\"type\": \"boolean\", \"value\": false},\n"
            "  \"Text\": {\"type\": \"string\", \"value\": \"say \\\"hi\\\"\\\\\\n\"}\n"
            "}\n",
            ReadFile(dir / "vars.json"));
}

TEST_F(RunCommand, VariablesAreDumpedAfterAFailedBuildToo) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"X\">x</Variable>\n",
                                           DeleteAction(work + "/*.none", true));
  JaxtorResult result = RunJaxtor({"run", project, "--dump-variables", dir / "vars.json"}, dir);
  EXPECT_EQ(1, result.ExitCode);
  EXPECT_EQ("{\n  \"X\": {\"type\": \"string\", \"value\": \"x\"}\n}\n", ReadFile(dir / "vars.json"));
}

TEST_F(RunCommand, BadDefinesAreUsageErrors) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"N\" Type=\"Integer\">1</Variable>\n",
                                           DeleteAction(work + "/*.o", false));
  JaxtorResult no_equals = RunJaxtor({"run", project, "--define", "WORK"}, dir);
  EXPECT_EQ(2, no_equals.ExitCode);
  EXPECT_EQ("jaxtor: --define expects NAME=VALUE, got \"WORK\"\n", no_equals.Err);
  JaxtorResult bad_value = RunJaxtor({"run", project, "--define", "N=ten"}, dir);
  EXPECT_EQ(2, bad_value.ExitCode);
  EXPECT_EQ("jaxtor: --define N: bad value \"ten\" for Integer variable: 'ten' is not a valid integer value\n",
            bad_value.Err);
  EXPECT_TRUE(Exists("work/a.o"));
}

TEST_F(RunCommand, UnloadableProjectsExitWith2) {
  JaxtorResult missing = RunJaxtor({"run", dir / "missing.xml"}, dir);
  EXPECT_EQ(2, missing.ExitCode);
  EXPECT_EQ("jaxtor: " + (dir / "missing.xml") + ": cannot open the file: No such file or directory\n", missing.Err);
  const std::string project =
      WriteProject(dir, "p.xml", "", "    <Action Class=\"TFoo\"/>\n" + DeleteAction(work + "/*.o", true));
  JaxtorResult unknown = RunJaxtor({"run", project}, dir);
  EXPECT_EQ(2, unknown.ExitCode);
  EXPECT_EQ("jaxtor: " + project + ":6: unknown class \"TFoo\"\n", unknown.Err);
  EXPECT_TRUE(Exists("work/a.o"));
}

TEST_F(RunCommand, UnwritableLogFileIsAUsageError) {
  const std::string project = WriteProject(dir, "p.xml", "", DeleteAction(work + "/*.o", true));
  JaxtorResult result = RunJaxtor({"run", project, "--log", dir / "no/such/dir/build.log"}, dir);
  EXPECT_EQ(2, result.ExitCode);
  EXPECT_TRUE(Exists("work/a.o"));
}

}  // namespace
}  // namespace jx::test
