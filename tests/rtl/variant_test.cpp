#include "rtl/variant.h"

#include <gtest/gtest.h>

#include <functional>

#include "rtl/sysutils.h"

namespace jx {
namespace {

TEST(Variant, TextOfEveryType) {
  struct Row {
    Variant value;
    TVarType type;
    const char* text;
  };
  const Row rows[] = {
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
  for (const Row& row : rows) {
    EXPECT_EQ(row.type, row.value.Type()) << row.text;
    EXPECT_EQ(row.text, row.value.ToString());
  }
  EXPECT_TRUE(Variant(0.0).IsNumeric());
  EXPECT_TRUE(Variant(uint32_t{1}).IsNumeric());
  EXPECT_FALSE(Variant("1").IsNumeric());
  EXPECT_FALSE(Variant(true).IsNumeric());
}

TEST(Variant, NumericConversions) {
  struct Row {
    Variant value;
    int64_t as_int64;
    double as_float;
    bool as_bool;
  };
  const Row rows[] = {
      {Variant(), 0, 0, false},
      {Variant("12"), 12, 12, true},
      {Variant("$10"), 16, 16, true},
      {Variant("2.5"), 2, 2.5, true},  // halves go to the even neighbour
      {Variant(2.5), 2, 2.5, true},
      {Variant(3.5), 4, 3.5, true},
      {Variant(-2.5), -2, -2.5, true},
      {Variant(-0.4), 0, -0.4, true},
      {Variant(true), -1, -1, true},
      {Variant(false), 0, 0, false},
      {Variant(uint32_t{4000000000u}), 4000000000, 4e9, true},
      {Variant(int32_t{0}), 0, 0, false},
  };
  for (const Row& row : rows) {
    const std::string text = row.value.ToString();
    EXPECT_EQ(row.as_int64, row.value.ToInt64()) << text;
    EXPECT_EQ(row.as_float, row.value.ToFloat()) << text;
    EXPECT_EQ(row.as_bool, row.value.ToBool()) << text;
  }
  EXPECT_EQ(-1, Variant("$FFFFFFFF").ToInteger());  // a 32-bit pattern as an Integer
  EXPECT_TRUE(Variant("true").ToBool());
  EXPECT_FALSE(Variant("0").ToBool());
}

TEST(Variant, FailedCastsNameBothTypes) {
  struct Row {
    std::function<void()> convert;
    const char* message;
  };
  const Row rows[] = {
      {[] { Variant("abc").ToInt64(); }, "Could not convert variant of type (String) into type (Int64)"},
      {[] { Variant("abc").ToInteger(); }, "Could not convert variant of type (String) into type (Integer)"},
      {[] { Variant("").ToFloat(); }, "Could not convert variant of type (String) into type (Float)"},
      {[] { Variant("abc").ToBool(); }, "Could not convert variant of type (String) into type (Boolean)"},
      {[] { Variant(int64_t{1} << 40).ToInteger(); }, "Could not convert variant of type (Int64) into type (Integer)"},
      {[] { Variant(uint32_t{0x80000000u}).ToInteger(); },
       "Could not convert variant of type (Unsigned) into type (Integer)"},
      {[] { Variant(1e19).ToInt64(); }, "Could not convert variant of type (Float) into type (Int64)"},
  };
  for (const Row& row : rows) {
    try {
      row.convert();
      ADD_FAILURE() << "no error for " << row.message;
    } catch (const EVariantTypeCastError& e) {
      EXPECT_EQ(row.message, e.Message());
    }
  }
}

}  // namespace
}  // namespace jx
