#include <gtest/gtest.h>

#include "actions/files/bactions1.h"
#include "rtl/sysutils.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

class SetVariableTest : public ::testing::Test {
 protected:
  // The value stored for V from `value` with `modifier` and `type`.
  Variant Run(const std::string& value, TJXSetVariableModifier modifier = smNone,
              TJXSetVariableForceType type = ftDefault) {
    h.Action.SetVariableName("V");
    h.Action.SetNewValue(value);
    h.Action.SetModifier(modifier);
    h.Action.SetForceType(type);
    EXPECT_TRUE(h.Action.Execute());
    return h.Host.Variables["V"];
  }
  std::string RunText(const std::string& value, TJXSetVariableModifier modifier) {
    return Run(value, modifier, ftString).ToString();
  }
  // The message of the error that Execute raises.
  std::string Failure() {
    try {
      h.Action.Execute();
    } catch (const Exception& e) {
      return e.Message();
    }
    return "no error";
  }
  test::Hosted<TSetVariableAction> h;
};

TEST_F(SetVariableTest, TextAndPathModifiers) {
  struct Row {
    TJXSetVariableModifier Modifier;
    std::string Input, Expected;
  };
  const Row rows[] = {
      {smNone, " a ", " a "},          {smTrim, " \ta b\r\n", "a b"},       {smTrimLeft, " a ", "a "},
      {smTrimRight, " a ", " a"},      {smAddQuotes, "it's", "'it''s'"},    {smAddDoubleQuotes, "a b", "\"a b\""},
      {smStripQuotes, "'a b'", "a b"}, {smLowerCase, "AbC-É", "abc-É"},     {smUpperCase, "aBc-é", "ABC-é"},
      {smIncludeTrailingBackSlash, "/a", "/a/"},  {smIncludeTrailingBackSlash, "/a/", "/a/"},
      {smExcludeTrailingBackSlash, "/a/", "/a"},  {smExtractFileName, "/a.d/f.tar.gz", "f.tar.gz"},
      {smExtractFileName, "f.txt", "f.txt"},      {smExtractFilePath, "/a.d/f", "/a.d/"},
      {smExtractFilePath, "f.txt", ""},           {smExtractFileDrive, "/a/f.txt", ""},
      {smExtractFileExt, "/a.d/f.tar.gz", ".gz"}, {smExtractFileExt, "/a.d/f", ""},
      {smRemoveFileExt, "/a.d/f.tar.gz", "/a.d/f.tar"}, {smRemoveFileExt, "/a.d/f", "/a.d/f"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.Expected, RunText(row.Input, row.Modifier)) << SetVariableModifierStrings[row.Modifier];
  }
}

TEST_F(SetVariableTest, IncrementOnlyChangesIntegers) {
  EXPECT_EQ(Variant(int32_t{42}), Run("41", smIncrement));
  EXPECT_EQ(Variant(int32_t{-1}), Run("0", smDeincrement));
  EXPECT_EQ(Variant("abc"), Run("abc", smIncrement));
  EXPECT_EQ(Variant(1.5), Run("1.5", smIncrement));
  EXPECT_EQ(Variant(int32_t{-653268}), Run("-653268", smIncrement));  // the sentinel itself
  EXPECT_EQ(Variant(int32_t{INT32_MIN}), Run("2147483647", smIncrement));
}

// Only decimal text becomes an integer; the sentinels fall through to the next type.
TEST_F(SetVariableTest, AutomaticTyping) {
  const std::pair<std::string, Variant> rows[] = {
      {"12", Variant(int32_t{12})},   {"-7", Variant(int32_t{-7})},      {"1.5", Variant(1.5)},
      {"true", Variant(true)},        {"FALSE", Variant(false)},         {"1.2.3", Variant("1.2.3")},
      {"", Variant("")},              {"$10", Variant("$10")},           {"0x1F", Variant("0x1F")},
      {"3000000000", Variant(3e9)},   {"-989898999", Variant(-989898999.0)},
      {"-0.989898999", Variant("-0.989898999")},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(expected, Run(text)) << text;
}

TEST_F(SetVariableTest, ForcedTypesConvertOrFailWithoutStoring) {
  EXPECT_EQ(Variant("12"), Run("12", smNone, ftString));
  EXPECT_EQ(Variant(int32_t{12}), Run("12", smNone, ftInteger));
  EXPECT_EQ(Variant(2.0), Run("2", smNone, ftFloat));
  EXPECT_EQ(Variant(true), Run("1", smNone, ftBoolean));

  h.Host.Variables.clear();
  h.Action.SetNewValue("abc");
  h.Action.SetForceType(ftInteger);
  EXPECT_EQ("'abc' is not a valid integer value", Failure());
  h.Action.SetForceType(ftFloat);
  EXPECT_EQ("'abc' is not a valid floating point value", Failure());
  h.Action.SetForceType(ftBoolean);
  EXPECT_EQ("'abc' is not a valid boolean value", Failure());
  EXPECT_TRUE(h.Host.Variables.empty());
}

TEST_F(SetVariableTest, ExpandsTheNewValueOrModifiesTheExistingValue) {
  h.Host.Variables["A"] = int32_t{7};
  EXPECT_EQ(Variant("7-x"), Run("%A%-x"));
  h.Host.Variables["V"] = std::string("abc");
  h.Action.SetApplyToExisting(true);
  EXPECT_EQ(Variant("ABC"), Run("ignored", smUpperCase));

  h.Action.SetVariableName("");
  EXPECT_EQ("No Variable specified", Failure());
}

TEST_F(SetVariableTest, EncryptAndDecryptRoundTripThroughTheHost) {
  const std::string encrypted = RunText("s3cret pass", smEncrypt);
  std::string expected;
  ASSERT_TRUE(h.Host.EncryptString("s3cret pass", "k7x2mwq9zrtp@hnbc5s", expected));
  EXPECT_EQ(expected, encrypted);
  EXPECT_EQ("s3cret pass", RunText(encrypted, smDecrypt));

  h.Action.SetNewValue("plain text");
  EXPECT_EQ("Unable to decrypt the value of V: it is not an encrypted value", Failure());
}

TEST_F(SetVariableTest, ShortFileNamesOfAList) {
  test::TempDir dir;
  const std::string a = dir.MakeDir("a long name"), b = dir.MakeDir("another long name");
  EXPECT_EQ(a + ";" + b, RunText("\"" + a + "\";" + b, smShortFileName));
  EXPECT_EQ(";" + b, RunText(dir / "missing;" + b, smShortFileName));
  EXPECT_EQ("", RunText("\"" + a + "\"", smShortFileName));  // quotes stay on a single path
}

TEST_F(SetVariableTest, DescriptionKeysAndModifierByName) {
  EXPECT_EQ("Set Variable  to [  ]", h.Action.GetDescription());
  h.Action.SetVariableName("OUT");
  h.Action.SetModifier(smTrim);
  h.Action.SetNewValue("x");
  EXPECT_EQ("Set Variable OUT to Trim[ x ]", h.Action.GetDescription());
  ASSERT_EQ(3u, h.Host.KeyUpdates.size());
  EXPECT_EQ(1, h.Host.KeyUpdates[1].Index);
  EXPECT_EQ("Trim", h.Host.KeyUpdates[1].NewValue);

  h.Action.SetDescriptionKeyValue(1, "UpperCase");
  EXPECT_EQ(smUpperCase, h.Action.Modifier());
  h.Action.SetDescriptionKeyValue(1, "");
  EXPECT_EQ(smNone, h.Action.Modifier());
  EXPECT_THROW(h.Action.SetDescriptionKeyValue(1, "Bogus"), EConvertError);

  // A project file may name a modifier by value or by caption.
  const TPropertyInfo* modifier = TSetVariableAction::ClassInfo().FindProperty("Modifier");
  modifier->SetText(h.Action, "AddQuotes");
  EXPECT_EQ(smAddQuotes, h.Action.Modifier());
  modifier->SetText(h.Action, "smRemoveFileExt");
  EXPECT_EQ("smRemoveFileExt", modifier->GetText(h.Action));
}

}  // namespace
}  // namespace jx
