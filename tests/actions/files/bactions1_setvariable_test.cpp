#include <gtest/gtest.h>

#include "actions/files/bactions1.h"
#include "rtl/sysutils.h"
#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::Hosted;
using Lines = std::vector<std::string>;

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
  Hosted<TSetVariableAction> h;
};

TEST_F(SetVariableTest, TextModifiers) {
  EXPECT_EQ(" a ", RunText(" a ", smNone));
  EXPECT_EQ("a b", RunText(" \ta b\r\n", smTrim));
  EXPECT_EQ("a ", RunText(" a ", smTrimLeft));
  EXPECT_EQ(" a", RunText(" a ", smTrimRight));
  EXPECT_EQ("'it''s'", RunText("it's", smAddQuotes));
  EXPECT_EQ("\"a b\"", RunText("a b", smAddDoubleQuotes));
  EXPECT_EQ("a b", RunText("\"a b\"", smStripQuotes));
  EXPECT_EQ("abc-é", RunText("AbC-é", smLowerCase));
  EXPECT_EQ("ABC-é", RunText("aBc-é", smUpperCase));
}

TEST_F(SetVariableTest, PathModifiersWithAndWithoutSeparators) {
  EXPECT_EQ("/a/b/", RunText("/a/b", smIncludeTrailingBackSlash));
  EXPECT_EQ("/a/b/", RunText("/a/b/", smIncludeTrailingBackSlash));
  EXPECT_EQ("/a/b", RunText("/a/b/", smExcludeTrailingBackSlash));
  EXPECT_EQ("f.tar.gz", RunText("/a.d/f.tar.gz", smExtractFileName));
  EXPECT_EQ("f.txt", RunText("f.txt", smExtractFileName));
  EXPECT_EQ("/a.d/", RunText("/a.d/f", smExtractFilePath));
  EXPECT_EQ("", RunText("f.txt", smExtractFilePath));
  EXPECT_EQ("", RunText("/a/f.txt", smExtractFileDrive));
  EXPECT_EQ(".gz", RunText("/a.d/f.tar.gz", smExtractFileExt));
  EXPECT_EQ("", RunText("/a.d/f", smExtractFileExt));
  EXPECT_EQ("/a.d/f.tar", RunText("/a.d/f.tar.gz", smRemoveFileExt));
  EXPECT_EQ("/a.d/f", RunText("/a.d/f", smRemoveFileExt));
}

TEST_F(SetVariableTest, IncrementOnlyChangesIntegers) {
  EXPECT_EQ(Variant(int32_t{42}), Run("41", smIncrement));
  EXPECT_EQ(Variant(int32_t{-1}), Run("0", smDeincrement));
  EXPECT_EQ(Variant("abc"), Run("abc", smIncrement));
  EXPECT_EQ(Variant(1.5), Run("1.5", smIncrement));
  EXPECT_EQ(Variant(int32_t{-653268}), Run("-653268", smIncrement));  // the sentinel itself
  EXPECT_EQ(Variant(int32_t{INT32_MIN}), Run("2147483647", smIncrement));
}

TEST_F(SetVariableTest, AutomaticTypingAndItsSentinels) {
  EXPECT_EQ(Variant(int32_t{12}), Run("12"));
  EXPECT_EQ(Variant(1.5), Run("1.5"));
  EXPECT_EQ(Variant(true), Run("true"));
  EXPECT_EQ(Variant(false), Run("FALSE"));
  EXPECT_EQ(Variant("1.2.3"), Run("1.2.3"));
  EXPECT_EQ(Variant(""), Run(""));
  EXPECT_EQ(Variant(3e9), Run("3000000000"));
  EXPECT_EQ(Variant(-989898999.0), Run("-989898999"));
  EXPECT_EQ(Variant("-0.989898999"), Run("-0.989898999"));
}

TEST_F(SetVariableTest, ForcedTypesConvertOrFail) {
  EXPECT_EQ(Variant("12"), Run("12", smNone, ftString));
  EXPECT_EQ(Variant(int32_t{12}), Run("12", smNone, ftInteger));
  EXPECT_EQ(Variant(2.0), Run("2", smNone, ftFloat));
  EXPECT_EQ(Variant(true), Run("1", smNone, ftBoolean));

  h.Action.SetNewValue("abc");
  h.Action.SetForceType(ftInteger);
  h.Host.Variables.erase("V");
  try {
    h.Action.Execute();
    FAIL() << "no error";
  } catch (const EConvertError& e) {
    EXPECT_EQ("'abc' is not a valid integer value", e.Message());
  }
  EXPECT_EQ(0u, h.Host.Variables.count("V"));
  h.Action.SetForceType(ftFloat);
  EXPECT_THROW(h.Action.Execute(), EConvertError);
  h.Action.SetForceType(ftBoolean);
  EXPECT_THROW(h.Action.Execute(), EConvertError);
}

TEST_F(SetVariableTest, ExpandsTheNewValueOrModifiesTheExistingValue) {
  h.Host.Variables["A"] = int32_t{7};
  EXPECT_EQ(Variant("7-x"), Run("%A%-x"));

  h.Host.Variables["V"] = std::string("abc");
  h.Action.SetApplyToExisting(true);
  EXPECT_EQ(Variant("ABC"), Run("ignored", smUpperCase));
}

TEST_F(SetVariableTest, MissingNameIsAnError) {
  try {
    h.Action.Execute();
    FAIL() << "no error";
  } catch (const Exception& e) {
    EXPECT_EQ("No Variable specified", e.Message());
  }
}

TEST_F(SetVariableTest, EncryptAndDecryptRoundTripThroughTheHost) {
  const std::string encrypted = RunText("s3cret pass", smEncrypt);
  EXPECT_NE("s3cret pass", encrypted);
  std::string expected;
  ASSERT_TRUE(h.Host.EncryptString("s3cret pass", "k7x2mwq9zrtp@hnbc5s", expected));
  EXPECT_EQ(expected, encrypted);
  EXPECT_EQ("s3cret pass", RunText(encrypted, smDecrypt));

  h.Action.SetNewValue("plain text");
  try {
    h.Action.Execute();
    FAIL() << "no error";
  } catch (const Exception& e) {
    EXPECT_EQ("Unable to decrypt the value of V: it is not an encrypted value", e.Message());
  }
}

TEST_F(SetVariableTest, ShortFileNamesOfAList) {
  test::TempDir dir;
  const std::string a = dir.MakeDir("a long name"), b = dir.MakeDir("another long name");
  EXPECT_EQ(a, RunText(a, smShortFileName));
  EXPECT_EQ(a + ";" + b, RunText("\"" + a + "\";" + b, smShortFileName));
  EXPECT_EQ(";" + b, RunText(dir / "missing;" + b, smShortFileName));
  EXPECT_EQ("", RunText(dir / "missing", smShortFileName));
}

TEST_F(SetVariableTest, DescriptionKeysAndModifierByName) {
  h.Action.SetVariableName("OUT");
  h.Action.SetModifier(smTrim);
  h.Action.SetNewValue(" x ");
  EXPECT_EQ("Set Variable OUT to Trim[  x  ]", h.Action.GetDescription());
  ASSERT_EQ(3u, h.Host.KeyUpdates.size());
  EXPECT_EQ(1, h.Host.KeyUpdates[1].Index);
  EXPECT_EQ("", h.Host.KeyUpdates[1].OldValue);
  EXPECT_EQ("Trim", h.Host.KeyUpdates[1].NewValue);
  EXPECT_EQ(2, h.Host.KeyUpdates[2].Index);

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

TEST(SetVariable, DefaultsAndEditorLists) {
  TSetVariableAction a;
  EXPECT_EQ(smNone, a.Modifier());
  EXPECT_EQ(ftDefault, a.ForceType());
  EXPECT_FALSE(a.ApplyToExisting());
  TStringList alias, help;
  a.GetPropertyAlias(alias);
  a.GetPropertyHelp(help);
  EXPECT_EQ((Lines{"[Variable]", "VariableName=Variable Name", "NewValue=New Value"}), alias.Lines());
  EXPECT_EQ((Lines{"VariableName=Variable Name",
                   "NewValue=The new value to set the variable to, this may include variables (e.g "
                   "%PROJECTDIR%\\test"}),
            help.Lines());
  test::RecordingValidation errors;
  EXPECT_TRUE(a.Validate(errors));
}

}  // namespace
}  // namespace jx
