// jaxtor run, end to end: exit codes, the log file, defines and the variables dump.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string DeleteAction(const std::string& spec, bool fail_if_no_file = true) {
  return ActionXml("TDeleteFilesAction", {{"FileSpec", spec}, {"FailIfNoFile", fail_if_no_file ? "True" : "False"}});
}

std::string Flagged(std::string action, const std::string& attribute) {
  return action.insert(action.find('>'), " " + attribute);
}

class RunCommand : public ::testing::Test {
 protected:
  RunCommand() {
    for (const char* name : {"work/a.o", "work/b.o", "work/keep.c"}) dir.WriteFile(name);
  }
  bool Exists(const std::string& name) const { return std::filesystem::exists(dir / name); }
  std::string Tail(const std::string& text, size_t size) const { return text.substr(text.size() - size); }

  TempDir dir;
  const std::string work = dir / "work";
};

TEST_F(RunCommand, SucceedsAndWritesTheLogFile) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"WORK\">" + work + "</Variable>\n",
                                           DeleteAction("%WORK%/*.o"));
  const JaxtorResult result = RunJaxtor({"run", project, "--log", dir / "build.log"}, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Err;
  EXPECT_EQ("== Delete File(s) (%WORK%/*.o)\nDeleting files : " + work + "/*.o\n2 Files Deleted.\n",
            ReadFile(dir / "build.log"));
  EXPECT_FALSE(Exists("work/a.o"));
  EXPECT_TRUE(Exists("work/keep.c"));
  EXPECT_NE(std::string::npos, result.Out.find("2 Files Deleted.\n-- Success ("));
  EXPECT_EQ("Build succeeded\n", Tail(result.Out, 16));
  EXPECT_EQ("", result.Err);
}

TEST_F(RunCommand, AFailureStopsTheBuildUnlessIgnored) {
  const std::string stops = WriteProject(dir, "p.xml", "", DeleteAction(work + "/*.none") + DeleteAction(work + "/*.o"));
  const JaxtorResult stopped = RunJaxtor({"run", stops, "--log", dir / "build.log"}, dir);
  EXPECT_EQ(1, stopped.ExitCode);
  EXPECT_EQ("== Delete File(s) (" + work + "/*.none)\nDeleting files : " + work + "/*.none\n0 Files Deleted.\n",
            ReadFile(dir / "build.log"));
  EXPECT_TRUE(Exists("work/a.o"));
  EXPECT_EQ("Build failed\n", Tail(stopped.Out, 13));

  const std::string goes_on = WriteProject(dir, "q.xml", "",
                                           Flagged(DeleteAction(work + "/*.none"), "IgnoreFailure=\"True\"") +
                                               Flagged(DeleteAction(work + "/a.o"), "Enabled=\"False\"") +
                                               DeleteAction(work + "/b.o"));
  const JaxtorResult went_on = RunJaxtor({"run", goes_on}, dir);
  EXPECT_EQ(0, went_on.ExitCode);
  EXPECT_NE(std::string::npos, went_on.Out.find("-- Failed (ignored)\n"));
  EXPECT_TRUE(Exists("work/a.o"));
  EXPECT_FALSE(Exists("work/b.o"));
}

TEST_F(RunCommand, UndefinedVariableFailsTheActionAndInvalidProjectsRunNothing) {
  const std::string undefined = WriteProject(dir, "p.xml", "", DeleteAction("%NOPE%/*.o", false));
  EXPECT_EQ(1, RunJaxtor({"run", undefined, "--log", dir / "build.log"}, dir).ExitCode);
  EXPECT_EQ("== Delete File(s) (%NOPE%/*.o)\nUnable to Delete file : \n--> Variable \"NOPE\" is not defined\n",
            ReadFile(dir / "build.log"));

  const std::string invalid = WriteProject(dir, "q.xml", "", DeleteAction(work + "/a.o") + DeleteAction(""));
  const JaxtorResult result = RunJaxtor({"run", invalid}, dir);
  EXPECT_EQ(3, result.ExitCode);
  EXPECT_EQ("Delete File(s): File Spec: The file spec has not been set\n", result.Err);
  EXPECT_TRUE(Exists("work/a.o"));
}

TEST_F(RunCommand, DefineWinsIsConvertedToTheDeclaredTypeAndIsDumpedEvenAfterAFailure) {
  const std::string variables =
      "    <Variable Name=\"WORK\">/nowhere</Variable>\n    <Variable Name=\"N\" Type=\"Integer\">1</Variable>\n"
      "    <Variable Name=\"R\" Type=\"Float\">0.5</Variable>\n    <Variable Name=\"B\" Type=\"Boolean\">False</Variable>\n";
  const std::string project = WriteProject(dir, "p.xml", variables, DeleteAction("%WORK%/*.none"));
  const JaxtorResult result = RunJaxtor({"run", project, "--define", "WORK=" + work, "--define", "n=7", "--define",
                                         "Text=say \"hi\"\\\n", "--dump-variables", dir / "vars.json"},
                                        dir);
  EXPECT_EQ(1, result.ExitCode);
  EXPECT_EQ("{\n"
            "  \"WORK\": {\"type\": \"string\", \"value\": \"" + work + "\"},\n"
            "  \"N\": {\"type\": \"integer\", \"value\": 7},\n"
            "  \"R\": {\"type\": \"float\", \"value\": 0.5},\n"
            "  \"B\": {\"type\": \"boolean\", \"value\": false},\n"
            "  \"Text\": {\"type\": \"string\", \"value\": \"say \\\"hi\\\"\\\\\\n\"}\n"
            "}\n",
            ReadFile(dir / "vars.json"));
}

// Each usage error leaves the files alone and says what was wrong on one line.
TEST_F(RunCommand, UsageErrorsExitWith2) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"N\" Type=\"Integer\">1</Variable>\n",
                                           DeleteAction(work + "/*.o"));
  const std::string unknown_class =
      WriteProject(dir, "u.xml", "", "<Action Class=\"TFoo\"/>\n" + DeleteAction(work + "/*.o"));
  const struct {
    std::vector<std::string> args;
    std::string error;
  } cases[] = {
      {{"run", project, "--define", "WORK"}, "jaxtor: --define expects NAME=VALUE, got \"WORK\"\n"},
      {{"run", project, "--define", "N=ten"},
       "jaxtor: --define N: bad value \"ten\" for Integer variable: 'ten' is not a valid integer value\n"},
      {{"run", dir / "missing.xml"}, "jaxtor: " + dir / "missing.xml" + ": cannot open the file: No such file or directory\n"},
      {{"run", unknown_class}, "jaxtor: " + unknown_class + ":6: unknown class \"TFoo\"\n"},
      {{"run", project, "--log", dir / "no/such/dir/build.log"}, ""},
  };
  for (const auto& c : cases) {
    const JaxtorResult result = RunJaxtor(c.args, dir);
    EXPECT_EQ(2, result.ExitCode) << result.Err;
    if (!c.error.empty()) {
      EXPECT_EQ(c.error, result.Err);
    }
  }
  EXPECT_TRUE(Exists("work/a.o"));
}

}  // namespace
}  // namespace jx::test
