#include "rtl/variant.h"

#include <gtest/gtest.h>

#include "messageof.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using test::MessageOf;

TEST(Variant, TextOfEveryType) {
  const std::tuple<Variant, TVarType, const char*> rows[] = {
      {Variant(), TVarType::Empty, ""},
      {Variant("abc"), TVarType::String, "abc"},
      {Variant(int32_t{-3}), TVarType::Integer, "-3"},
      {Variant(uint32_t{0xFFFFFFFFu}), TVarType::Unsigned, "4294967295"},
      {Variant(INT64_MIN), TVarType::Int64, "-9223372036854775808"},
      {Variant(0.5), TVarType::Float, "0.5"},
      {Variant(1e20), TVarType::Float, "1E20"},
      {Variant(true), TVarType::Boolean, "True"},
      {Variant(false), TVarType::Boolean, "False"},
  };
  for (const auto& [value, type, text] : rows) {
    EXPECT_EQ(type, value.Type()) << text;
    EXPECT_EQ(text, value.ToString());
    EXPECT_EQ(type != TVarType::Empty && type != TVarType::String && type != TVarType::Boolean, value.IsNumeric());
  }
}

TEST(Variant, NumericConversions) {
  const std::tuple<Variant, int64_t, double, bool> rows[] = {
      // value, ToInt64, ToFloat, ToBool
      {Variant(), 0, 0, false},         {Variant("12"), 12, 12, true},    {Variant("$10"), 16, 16, true},
      {Variant("2.5"), 2, 2.5, true},   {Variant(2.5), 2, 2.5, true},     {Variant(3.5), 4, 3.5, true},
      {Variant(-2.5), -2, -2.5, true},  {Variant(-0.4), 0, -0.4, true},   {Variant(true), -1, -1, true},
      {Variant(false), 0, 0, false},    {Variant(int32_t{0}), 0, 0, false},
      {Variant(uint32_t{4000000000u}), 4000000000, 4e9, true},
  };
  for (const auto& [value, as_int64, as_float, as_bool] : rows) {
    EXPECT_EQ(as_int64, value.ToInt64()) << value.ToString();
    EXPECT_EQ(as_float, value.ToFloat()) << value.ToString();
    EXPECT_EQ(as_bool, value.ToBool()) << value.ToString();
  }
  EXPECT_EQ(-1, Variant("$FFFFFFFF").ToInteger());  // a 32-bit pattern as an Integer
  EXPECT_TRUE(Variant("true").ToBool());
  EXPECT_FALSE(Variant("0").ToBool());
}

TEST(Variant, FailedCastsNameBothTypes) {
  auto message = [](auto convert) { return MessageOf<EVariantTypeCastError>(convert); };
  EXPECT_EQ("Could not convert variant of type (String) into type (Int64)", message([] { Variant("abc").ToInt64(); }));
  EXPECT_EQ("Could not convert variant of type (String) into type (Integer)",
            message([] { Variant("abc").ToInteger(); }));
  EXPECT_EQ("Could not convert variant of type (String) into type (Float)", message([] { Variant("").ToFloat(); }));
  EXPECT_EQ("Could not convert variant of type (String) into type (Boolean)", message([] { Variant("abc").ToBool(); }));
  EXPECT_EQ("Could not convert variant of type (Int64) into type (Integer)",
            message([] { Variant(int64_t{1} << 40).ToInteger(); }));
  EXPECT_EQ("Could not convert variant of type (Unsigned) into type (Integer)",
            message([] { Variant(uint32_t{0x80000000u}).ToInteger(); }));
  EXPECT_EQ("Could not convert variant of type (Float) into type (Int64)", message([] { Variant(1e19).ToInt64(); }));
}

}  // namespace
}  // namespace jx
