// The host's string encryption end to end: Set Variable encrypts a value into
// one variable and decrypts it into another.
#include <gtest/gtest.h>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string SetVariable(const std::string& name, const std::string& value, const std::string& modifier) {
  return "    <Action Class=\"TSetVariableAction\"><Property Name=\"VariableName\">" + name +
         "</Property><Property Name=\"NewValue\">" + value + "</Property><Property Name=\"Modifier\">" + modifier +
         "</Property></Action>\n";
}

JaxtorResult RunWithPass(const TempDir& dir, const std::string& actions) {
  const std::string project = WriteProject(dir, "p.xml", "    <Variable Name=\"PASS\">Grüße &amp; 東京 1</Variable>\n", actions);
  return RunJaxtor({"run", project, "--dump-variables", dir / "vars.json"}, dir);
}

TEST(EncryptionEndToEnd, EncryptThenDecryptGivesTheValueBack) {
  TempDir dir;
  const JaxtorResult result =
      RunWithPass(dir, SetVariable("SECRET", "%PASS%", "smEncrypt") + SetVariable("PLAIN", "%SECRET%", "smDecrypt"));
  EXPECT_EQ(0, result.ExitCode) << result.Out << result.Err;
  const std::string json = ReadFile(dir / "vars.json");
  const std::string secret = DumpedVariable(json, "SECRET");
  EXPECT_EQ(0u, secret.find("{\"type\": \"string\", \"value\": \"jx1:")) << secret;
  EXPECT_EQ(std::string::npos, secret.find("Gr")) << secret;
  EXPECT_EQ("{\"type\": \"string\", \"value\": \"Grüße & 東京 1\"}", DumpedVariable(json, "PLAIN"));
}

TEST(EncryptionEndToEnd, DecryptingPlainTextFailsTheBuild) {
  TempDir dir;
  const JaxtorResult result = RunWithPass(dir, SetVariable("PLAIN", "%PASS%", "smDecrypt"));
  EXPECT_EQ(1, result.ExitCode);
  EXPECT_NE(std::string::npos,
            result.Out.find("Error: Unable to decrypt the value of PLAIN: it is not an encrypted value\n"))
      << result.Out;
  EXPECT_EQ("(PLAIN not dumped)", DumpedVariable(ReadFile(dir / "vars.json"), "PLAIN"));
}

}  // namespace
}  // namespace jx::test
