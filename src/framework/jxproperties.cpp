#include "framework/jxproperties.h"

#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {

const char* PropertyKindName(TPropertyKind kind) {
  switch (kind) {
    case TPropertyKind::pkString: return "String";
    case TPropertyKind::pkWideString: return "WideString";
    case TPropertyKind::pkBoolean: return "Boolean";
    case TPropertyKind::pkWordBool: return "WordBool";
    case TPropertyKind::pkByteBool: return "ByteBool";
    case TPropertyKind::pkInteger: return "Integer";
    case TPropertyKind::pkCardinal: return "Cardinal";
    case TPropertyKind::pkInt64: return "Int64";
    case TPropertyKind::pkFloat: return "Double";
    case TPropertyKind::pkDateTime: return "TDateTime";
    case TPropertyKind::pkEnumeration: return "Enumeration";
    case TPropertyKind::pkSet: return "Set";
    case TPropertyKind::pkStringList: return "TStrings";
  }
  return "?";
}

std::string TEnumTypeInfo::NameOf(int ordinal) const {
  if (ordinal < 0 || ordinal >= static_cast<int>(Names.size())) return IntToStr(ordinal);
  return Names[ordinal];
}

int TEnumTypeInfo::OrdinalOf(std::string_view text) const {
  for (size_t i = 0; i < Names.size(); ++i) {
    if (SameText(Names[i], text)) return static_cast<int>(i);
  }
  for (size_t i = 0; i < Captions.size(); ++i) {
    if (SameText(Captions[i], text)) return static_cast<int>(i);
  }
  return -1;
}

int EnumOrdinalOrThrow(const TEnumTypeInfo& type, std::string_view text, const std::string& property) {
  int ordinal = type.OrdinalOf(Trim(text));
  if (ordinal < 0) {
    throw EConvertError("'" + std::string(text) + "' is not a valid value of " + type.TypeName + " for " +
                        property);
  }
  return ordinal;
}

std::string SetToText(uint32_t bits, const TEnumTypeInfo& type) {
  std::string text = "[";
  for (size_t i = 0; i < type.Names.size() && i < 32; ++i) {
    if (!((bits >> i) & 1u)) continue;
    if (text.size() > 1) text += ',';
    text += type.Names[i];
  }
  return text + "]";
}

uint32_t ParseSet(std::string_view text, const TEnumTypeInfo& type) {
  std::string body = Trim(text);
  if (body.size() < 2 || body.front() != '[' || body.back() != ']') {
    throw EConvertError("'" + std::string(text) + "' is not a valid set of " + type.TypeName);
  }
  uint32_t bits = 0;
  std::string_view rest(body.data() + 1, body.size() - 2);
  while (!rest.empty()) {
    size_t comma = rest.find(',');
    std::string name = Trim(rest.substr(0, comma));
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    if (name.empty()) continue;
    bits |= 1u << EnumOrdinalOrThrow(type, name, type.TypeName);
  }
  return bits;
}

std::string PropertyValueToText(bool value) { return BoolToStr(value, true); }
std::string PropertyValueToText(int32_t value) { return IntToStr(value); }
std::string PropertyValueToText(uint32_t value) { return UIntToStr(value); }
std::string PropertyValueToText(int64_t value) { return IntToStr(value); }
std::string PropertyValueToText(double value) { return FloatToStr(value); }

void PropertyValueFromText(std::string_view text, bool& value) { value = StrToBool(Trim(text)); }
void PropertyValueFromText(std::string_view text, int32_t& value) { value = StrToInt(Trim(text)); }
void PropertyValueFromText(std::string_view text, int64_t& value) { value = StrToInt64(Trim(text)); }
void PropertyValueFromText(std::string_view text, double& value) { value = StrToFloat(Trim(text)); }

void PropertyValueFromText(std::string_view text, uint32_t& value) {
  int64_t wide = StrToInt64(Trim(text));
  if (wide < 0 || wide > 0xFFFFFFFFll) {
    throw EConvertError("'" + std::string(text) + "' is not a valid unsigned integer value");
  }
  value = static_cast<uint32_t>(wide);
}

std::string DateTimePropertyToText(TDateTime value) { return DateTimeToISO(value); }

TDateTime DateTimePropertyFromText(std::string_view text) {
  TDateTime value = 0;
  if (!TryISOToDateTime(Trim(text), value)) {
    throw EConvertError("'" + std::string(text) + "' is not a valid date and time (YYYY-MM-DDTHH:MM:SS)");
  }
  return value;
}

}  // namespace jx
