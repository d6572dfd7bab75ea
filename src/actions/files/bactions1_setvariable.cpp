#include "actions/files/bactions1.h"

#include <algorithm>
#include <string_view>

#include "framework/jxhostutils.h"
#include "platform/shortpath.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {

const std::array<const char*, 21> SetVariableModifierStrings = {
    "", "Trim", "TrimLeft", "TrimRight", "IncludeTrailingBackSlash", "ExcludeTrailingBackSlash",
    "ExtractFileName", "ExtractFilePath", "ExtractFileDrive", "ExtractFileExt", "ShortFileName", "AddQuotes",
    "AddDoubleQuotes", "StripQuotes", "Increment", "Deincrement", "LowerCase", "UpperCase", "Encrypt", "Decrypt",
    "RemoveFileExt"};

const TEnumTypeInfo kSetVariableModifierInfo = EnumTypeInfo<smRemoveFileExt>(
    "TJXSetVariableModifier",
    {"smNone", "smTrim", "smTrimLeft", "smTrimRight", "smIncludeTrailingBackSlash", "smExcludeTrailingBackSlash",
     "smExtractFileName", "smExtractFilePath", "smExtractFileDrive", "smExtractFileExt", "smShortFileName",
     "smAddQuotes", "smAddDoubleQuotes", "smStripQuotes", "smIncrement", "smDeincrement", "smLowerCase",
     "smUpperCase", "smEncrypt", "smDecrypt", "smRemoveFileExt"},
    SetVariableModifierStrings);

const TEnumTypeInfo kSetVariableForceTypeInfo = EnumTypeInfo<ftBoolean>(
    "TJXSetVariableForceType", {"ftDefault", "ftString", "ftInteger", "ftFloat", "ftBoolean"});

namespace {

// The fixed key of the Encrypt and Decrypt modifiers.
constexpr const char* kEncryptionKey = "k7x2mwq9zrtp@hnbc5s";

// Sentinels for "not a number". They are ordinary values, so the texts
// -653268, -989898999 and -0.989898999 themselves count as "not a number" too.
constexpr int32_t kNotASteppableInteger = -653268;
constexpr int32_t kNotAnInteger = -989898999;
constexpr double kNotAFloat = -0.989898999;

// Increment and Deincrement: text that is no integer stays as it is. The
// arithmetic wraps at 32 bits, as the stored integer does.
std::string Stepped(const std::string& text, int32_t delta) {
  const int32_t value = StrToIntDef(text, kNotASteppableInteger);
  if (value == kNotASteppableInteger) return text;
  return IntToStr(static_cast<int32_t>(static_cast<uint32_t>(value) + static_cast<uint32_t>(delta)));
}

// A ';' makes the text a list: each element loses its quotes and is converted
// on its own. A path that does not exist converts to "".
std::string ShortFileNames(const std::string& text) {
  if (text.find(';') == std::string::npos) return ExtractShortPathName(text);
  std::string result;
  size_t start = 0;
  for (;;) {
    const size_t end = text.find(';', start);
    if (start > 0) result += ';';
    result += ExtractShortPathName(StripQuotes(text.substr(start, end - start)));
    if (end == std::string::npos) return result;
    start = end + 1;
  }
}

// An optional sign and decimal digits only: the runtime's integer conversion
// also reads "$10" and "0x1F" as hexadecimal, which a variable's text is not.
bool IsDecimalInteger(std::string_view text) {
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The value of the text as the first of integer, float, boolean and text that takes it.
Variant AutoTyped(const std::string& text) {
  const int32_t integer = IsDecimalInteger(text) ? StrToIntDef(text, kNotAnInteger) : kNotAnInteger;
  if (integer != kNotAnInteger) return Variant(integer);
  double number = 0;
  if (TryStrToFloat(text, number) && number != kNotAFloat) return Variant(number);
  const std::string upper = UpperCase(text);
  if (upper == "TRUE" || upper == "FALSE") return Variant(upper == "TRUE");
  return Variant(text);
}

}  // namespace

void TCustomSetVariableAction::SetVariableName(const std::string& value) {
  UpdateKeyValue(0, FVariableName, value);
}

void TCustomSetVariableAction::SetModifier(TJXSetVariableModifier value) {
  UpdateKeyValue(1, SetVariableModifierStrings[FModifier], SetVariableModifierStrings[value]);
}

void TCustomSetVariableAction::SetNewValue(const std::string& value) { UpdateKeyValue(2, FNewValue, value); }

std::string TCustomSetVariableAction::GetDescriptionFormatString() const {
  return InternalGetActionName() + " %s to %s[ %s ]";
}

std::string TCustomSetVariableAction::GetDescriptionKeyValue(int index) const {
  switch (index) {
    case 0: return FVariableName;
    case 1: return SetVariableModifierStrings[FModifier];
    case 2: return FNewValue;
  }
  return "";
}

// The modifier comes back as its text: "Trim" names smTrim, "" names smNone.
void TCustomSetVariableAction::SetDescriptionKeyValue(int index, const std::string& value) {
  switch (index) {
    case 0:
      FVariableName = value;
      break;
    case 1:
      FModifier = static_cast<TJXSetVariableModifier>(
          EnumOrdinalOrThrow(kSetVariableModifierInfo, value.empty() ? "smNone" : "sm" + value, "Modifier"));
      break;
    case 2:
      FNewValue = value;
      break;
  }
}

// Nothing to check before a run: a missing name fails the run itself.
bool TCustomSetVariableAction::Validate(IJXActionValidationError&) { return true; }

void TCustomSetVariableAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("VariableName=Variable Name");
  list.Add("NewValue=The new value to set the variable to, this may include variables (e.g %PROJECTDIR%\\test");
}

void TCustomSetVariableAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[Variable]");
  list.Add("VariableName=Variable Name");
  list.Add("NewValue=New Value");
}

std::string TCustomSetVariableAction::GetQuickHelpFilename() const { return "Plugins\\SetVariable.html"; }

int TCustomSetVariableAction::GetHelpTopicID() const { return 510; }

std::string TCustomSetVariableAction::GetActionName() const { return "Set Variable"; }

// Errors (no name, a failed expansion or conversion) pass on to the host.
bool TCustomSetVariableAction::Execute() {
  if (FVariableName.empty()) throw Exception("No Variable specified");
  SetVariable(FVariableName, TypedValue(ApplyModifier(SourceText())));
  return true;
}

std::string TCustomSetVariableAction::SourceText() {
  if (FApplyToExisting) return ExpandExpression("%" + FVariableName + "%", true);
  return FExpandNewValue ? ExpandExpression(FNewValue, true) : FNewValue;
}

std::string TCustomSetVariableAction::ApplyModifier(const std::string& text) {
  switch (FModifier) {
    case smNone: return text;
    case smTrim: return Trim(text);
    case smTrimLeft: return TrimLeft(text);
    case smTrimRight: return TrimRight(text);
    case smIncludeTrailingBackSlash: return IncludeTrailingPathDelimiter(text);
    case smExcludeTrailingBackSlash: return ExcludeTrailingPathDelimiter(text);
    case smExtractFileName: return ExtractFileName(text);
    case smExtractFilePath: return ExtractFilePath(text);
    case smExtractFileDrive: return ExtractFileDrive(text);
    case smExtractFileExt: return ExtractFileExt(text);
    case smShortFileName: return ShortFileNames(text);
    case smAddQuotes: return QuoteString(text, false);
    case smAddDoubleQuotes: return DoubleQuoteString(text, false);
    case smStripQuotes: return StripQuotes(text);
    case smIncrement: return Stepped(text, 1);
    case smDeincrement: return Stepped(text, -1);
    case smLowerCase: return LowerCase(text);
    case smUpperCase: return UpperCase(text);
    case smEncrypt: return Encrypted(text);
    case smDecrypt: return Decrypted(text);
    case smRemoveFileExt: return ChangeFileExt(text, "");
  }
  return text;
}

std::string TCustomSetVariableAction::Encrypted(const std::string& text) {
  std::string result;
  if (!EncryptString(text, kEncryptionKey, result)) throw Exception("Unable to encrypt the value of " + FVariableName);
  return result;
}

std::string TCustomSetVariableAction::Decrypted(const std::string& text) {
  std::string result;
  if (!DecryptString(text, kEncryptionKey, result)) {
    throw Exception("Unable to decrypt the value of " + FVariableName + ": it is not an encrypted value");
  }
  return result;
}

// A text that does not convert to the forced type raises the conversion error.
Variant TCustomSetVariableAction::TypedValue(const std::string& text) const {
  switch (FForceType) {
    case ftString: return Variant(text);
    case ftInteger: return Variant(StrToInt(text));
    case ftFloat: return Variant(StrToFloat(text));
    case ftBoolean: return Variant(StrToBool(text));
    case ftDefault: break;
  }
  return AutoTyped(text);
}

const TJXClassInfo& TSetVariableAction::ClassInfo() {
  using C = TSetVariableAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TSetVariableAction",
      TPublished<C>()
          .WideString("NewValue", &C::NewValue, &C::SetNewValue)
          .WideString("VariableName", &C::VariableName, &C::SetVariableName)
          .Enumeration("Modifier", kSetVariableModifierInfo, &C::Modifier, &C::SetModifier)
          .Boolean("ApplyToExisting", &C::ApplyToExisting, &C::SetApplyToExisting)
          .Enumeration("ForceType", kSetVariableForceTypeInfo, &C::ForceType, &C::SetForceType)
          .Build());
  return info;
}

}  // namespace jx
