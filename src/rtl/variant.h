// Variant: the typed value of a host variable. Converts to and from text the
// way the classic runtime's variants do (booleans read "True"/"False",
// floats print like FloatToStr).
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace jx {

enum class TVarType { Empty, String, Integer, Unsigned, Int64, Float, Boolean };

class Variant {
 public:
  Variant() = default;
  Variant(const char* s) : value_(std::string(s)) {}
  Variant(std::string s) : value_(std::move(s)) {}
  Variant(int32_t v) : value_(v) {}
  Variant(uint32_t v) : value_(v) {}
  Variant(int64_t v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(bool v) : value_(v) {}

  TVarType Type() const { return static_cast<TVarType>(value_.index()); }
  bool IsEmpty() const { return Type() == TVarType::Empty; }
  bool IsNumeric() const;  // integer, unsigned, int64 or float

  // Conversions; those that cannot convert throw EVariantTypeCastError
  // ("Could not convert variant of type (String) into type (Integer)").
  std::string ToString() const;  // empty gives ""
  // Empty gives 0 / false; a true boolean is -1 as a number.
  int64_t ToInt64() const;       // strings through StrToInt64, else as floats; floats rounded half to even
  int32_t ToInteger() const;     // also throws when the value is out of the 32-bit range
  double ToFloat() const;
  bool ToBool() const;           // strings through StrToBool; numbers non-zero

  bool operator==(const Variant& other) const { return value_ == other.value_; }

 private:
  std::variant<std::monostate, std::string, int32_t, uint32_t, int64_t, double, bool> value_;
};

// The name of a variant type as error messages and dumps show it:
// "Empty", "String", "Integer", "Unsigned", "Int64", "Float", "Boolean".
const char* VarTypeName(TVarType type);

inline std::string VarToStr(const Variant& v) { return v.ToString(); }

}  // namespace jx
