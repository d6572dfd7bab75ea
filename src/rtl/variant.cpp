#include "rtl/variant.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

[[noreturn]] void ThrowCastError(TVarType from, TVarType to) {
  throw EVariantTypeCastError(std::string("Could not convert variant of type (") + VarTypeName(from) +
                              ") into type (" + VarTypeName(to) + ")");
}

// The classic Round: halves go to the even neighbour.
double RoundHalfEven(double x) {
  if (std::fabs(x - std::trunc(x)) == 0.5) return 2 * std::round(x / 2);
  return std::round(x);
}

// A true boolean counts as -1, as the classic variants store it.
constexpr int64_t kTrueAsNumber = -1;

// Converts any alternative to a 64-bit integer; `target` names the requested
// type in errors. Texts that are no integer may still be floats ("1.5" gives 2).
struct IntegerConverter {
  TVarType from, target;

  int64_t operator()(std::monostate) const { return 0; }
  int64_t operator()(bool v) const { return v ? kTrueAsNumber : 0; }
  int64_t operator()(double v) const {
    const double rounded = RoundHalfEven(v);
    // 2^63 itself is out of range; every smaller double fits.
    if (!(rounded >= -9223372036854775808.0 && rounded < 9223372036854775808.0)) ThrowCastError(from, target);
    return static_cast<int64_t>(rounded);
  }
  int64_t operator()(const std::string& s) const {
    int32_t i32 = 0;
    int64_t i64 = 0;
    double d = 0;
    // As an Integer, hex texts are 32-bit patterns ("$FFFFFFFF" is -1).
    if (target == TVarType::Integer && TryStrToInt(s, i32)) return i32;
    if (TryStrToInt64(s, i64)) return i64;
    if (TryStrToFloat(s, d)) return (*this)(d);
    ThrowCastError(from, target);
  }
  template <typename Int>
  int64_t operator()(Int v) const {
    static_assert(std::is_integral_v<Int>);
    return static_cast<int64_t>(v);
  }
};

struct FloatConverter {
  TVarType from;

  double operator()(std::monostate) const { return 0; }
  double operator()(bool v) const { return v ? kTrueAsNumber : 0; }
  double operator()(const std::string& s) const {
    double d = 0;
    int64_t i = 0;
    if (TryStrToFloat(s, d)) return d;
    if (TryStrToInt64(s, i)) return static_cast<double>(i);
    ThrowCastError(from, TVarType::Float);
  }
  template <typename Number>
  double operator()(Number v) const {
    return static_cast<double>(v);
  }
};

struct BoolConverter {
  TVarType from;

  bool operator()(std::monostate) const { return false; }
  bool operator()(const std::string& s) const {
    bool value = false;
    if (!TryStrToBool(s, value)) ThrowCastError(from, TVarType::Boolean);
    return value;
  }
  template <typename Scalar>
  bool operator()(Scalar v) const {
    return v != 0;
  }
};

struct StringConverter {
  std::string operator()(std::monostate) const { return std::string(); }
  std::string operator()(const std::string& s) const { return s; }
  std::string operator()(bool v) const { return BoolToStr(v, true); }
  std::string operator()(double v) const { return FloatToStr(v); }
  std::string operator()(uint32_t v) const { return UIntToStr(v); }
  template <typename Int>
  std::string operator()(Int v) const {
    return IntToStr(v);
  }
};

}  // namespace

const char* VarTypeName(TVarType type) {
  static constexpr const char* kNames[] = {"Empty", "String", "Integer", "Unsigned", "Int64", "Float", "Boolean"};
  return kNames[static_cast<int>(type)];
}

bool Variant::IsNumeric() const {
  const TVarType t = Type();
  return t == TVarType::Integer || t == TVarType::Unsigned || t == TVarType::Int64 || t == TVarType::Float;
}

std::string Variant::ToString() const { return std::visit(StringConverter{}, value_); }

int64_t Variant::ToInt64() const { return std::visit(IntegerConverter{Type(), TVarType::Int64}, value_); }

int32_t Variant::ToInteger() const {
  const int64_t v = std::visit(IntegerConverter{Type(), TVarType::Integer}, value_);
  if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max()) {
    ThrowCastError(Type(), TVarType::Integer);
  }
  return static_cast<int32_t>(v);
}

double Variant::ToFloat() const { return std::visit(FloatConverter{Type()}, value_); }

bool Variant::ToBool() const { return std::visit(BoolConverter{Type()}, value_); }

}  // namespace jx
