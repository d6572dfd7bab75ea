// The host's string encryption end to end: Set Variable encrypts a value into
// one variable and decrypts it into another.
#include <gtest/gtest.h>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

std::string SetVariable(const std::string& name, const std::string& value, const std::string& modifier) {
  return ActionXml("TSetVariableAction", {{"VariableName", name}, {"NewValue", value}, {"Modifier", modifier}});
}

TEST(EncryptionEndToEnd, DecryptGivesBackWhatEncryptHidAndRejectsPlainText) {
  TempDir dir;
  const std::string pass = "    <Variable Name=\"PASS\">Grüße &amp; 東京 1</Variable>\n";
  const std::string round_trip = WriteProject(
      dir, "p.xml", pass, SetVariable("SECRET", "%PASS%", "smEncrypt") + SetVariable("PLAIN", "%SECRET%", "smDecrypt"));
  EXPECT_EQ(0, RunJaxtor({"run", round_trip, "--dump-variables", dir / "vars.json"}, dir).ExitCode);
  const std::string json = ReadFile(dir / "vars.json");
  const std::string secret = DumpedVariable(json, "SECRET");
  EXPECT_EQ(0u, secret.find("{\"type\": \"string\", \"value\": \"jx1:")) << secret;
  EXPECT_EQ(std::string::npos, secret.find("Gr")) << secret;
  EXPECT_EQ("{\"type\": \"string\", \"value\": \"Grüße & 東京 1\"}", DumpedVariable(json, "PLAIN"));

  const std::string plain = WriteProject(dir, "q.xml", pass, SetVariable("PLAIN", "%PASS%", "smDecrypt"));
  const JaxtorResult failed = RunJaxtor({"run", plain, "--dump-variables", dir / "vars.json"}, dir);
  EXPECT_EQ(1, failed.ExitCode);
  EXPECT_NE(std::string::npos,
            failed.Out.find("Error: Unable to decrypt the value of PLAIN: it is not an encrypted value\n"))
      << failed.Out;
  EXPECT_EQ("(PLAIN not dumped)", DumpedVariable(ReadFile(dir / "vars.json"), "PLAIN"));
}

}  // namespace
}  // namespace jx::test
