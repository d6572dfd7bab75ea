#include "rtl/variant.h"

#include <gtest/gtest.h>

#include <functional>

#include "messageof.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

TEST(Variant, TextOfEveryType) {
  const std::tuple<Variant, TVarType, const char*> rows[] = {
      {Variant(), TVarType::Empty, ""}, {Variant("abc"), TVarType::String, "abc"},
      {Variant(int32_t{-3}), TVarType::Integer, "-3"}, {Variant(uint32_t{0xFFFFFFFFu}), TVarType::Unsigned, "4294967295"},
      {Variant(INT64_MIN), TVarType::Int64, "-9223372036854775808"}, {Variant(0.5), TVarType::Float, "0.5"},
      {Variant(1e20), TVarType::Float, "1E20"}, {Variant(true), TVarType::Boolean, "True"},
      {Variant(false), TVarType::Boolean, "False"},
  };
  for (const auto& [value, type, text] : rows) {
    const bool numeric = type != TVarType::Empty && type != TVarType::String && type != TVarType::Boolean;
    EXPECT_EQ(std::tuple(type, text, numeric), std::tuple(value.Type(), value.ToString(), value.IsNumeric())) << text;
  }
}

TEST(Variant, Conversions) {
  const std::tuple<Variant, int64_t, double, bool> rows[] = {
      // value, ToInt64, ToFloat, ToBool
      {Variant(), 0, 0, false}, {Variant("12"), 12, 12, true}, {Variant("$10"), 16, 16, true},
      {Variant("2.5"), 2, 2.5, true}, {Variant(2.5), 2, 2.5, true}, {Variant(3.5), 4, 3.5, true},  // banker's rounding
      {Variant(-2.5), -2, -2.5, true}, {Variant(-0.4), 0, -0.4, true}, {Variant(true), -1, -1, true},
      {Variant(false), 0, 0, false}, {Variant(int32_t{0}), 0, 0, false}, {Variant(uint32_t{4000000000u}), 4000000000, 4e9, true},
  };
  for (const auto& [value, as_int64, as_float, as_bool] : rows) {
    EXPECT_EQ(std::tuple(as_int64, as_float, as_bool), std::tuple(value.ToInt64(), value.ToFloat(), value.ToBool()))
        << value.ToString();
  }
  EXPECT_EQ(-1, Variant("$FFFFFFFF").ToInteger());  // a 32-bit pattern as an Integer
  EXPECT_EQ(std::pair(true, false), std::pair(Variant("true").ToBool(), Variant("0").ToBool()));
  const std::pair<const char*, std::function<void()>> failures[] = {
      {"(String) into type (Int64)", [] { Variant("abc").ToInt64(); }},
      {"(String) into type (Integer)", [] { Variant("abc").ToInteger(); }},
      {"(String) into type (Float)", [] { Variant("").ToFloat(); }},
      {"(String) into type (Boolean)", [] { Variant("abc").ToBool(); }},
      {"(Int64) into type (Integer)", [] { Variant(int64_t{1} << 40).ToInteger(); }},
      {"(Unsigned) into type (Integer)", [] { Variant(uint32_t{0x80000000u}).ToInteger(); }},
      {"(Float) into type (Int64)", [] { Variant(1e19).ToInt64(); }},
  };
  for (const auto& [types, convert] : failures) {
    EXPECT_EQ(std::string("Could not convert variant of type ") + types, test::MessageOf<EVariantTypeCastError>(convert));
  }
}

}  // namespace
}  // namespace jx
