// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <limits>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq {
namespace {

TEST(NumberText, aNumberHasItsShortestTextAndShowsThatItIsOne) {
  struct Row {
    double value;
    const char* text;
  };
  for (const Row& row :
       {Row{64, "64.0"}, Row{-0.0, "-0.0"}, Row{0.1, "0.1"}, Row{1.0 / 3, "0.3333333333333333"},
        Row{0.0001, "0.0001"}, Row{0.00009999, "9.999e-05"}, Row{1e-5, "1e-05"},
        Row{9007199254740992, "9007199254740992.0"}, Row{9007199254740994, "9.007199254740994e+15"},
        Row{1e16, "1e+16"}, Row{-1.5e300, "-1.5e+300"}, Row{5e-324, "5e-324"},
        Row{std::numeric_limits<double>::infinity(), "inf"},
        Row{-std::numeric_limits<double>::infinity(), "-inf"},
        Row{std::numeric_limits<double>::quiet_NaN(), "nan"}}) {
    EXPECT_EQ(standardText(row.value), row.text);
  }
}

TEST(NumberText, everyNumberReadsBackTheSame) {
  std::uint64_t bits = 1;
  for (int i = 0; i < 20000; ++i) {
    bits = bits * 6364136223846793005u + 1442695040888963407u;
    const double value = std::bit_cast<double>(bits);
    if (value - value != 0) continue;
    EXPECT_EQ(finiteNumber(standardText(value)), value) << standardText(value);
  }
}

TEST(NumberText, whatIsNoNumberOfItsKindIsAbsent) {
  for (const char* const text : {"", "-", ".", "e5", "1.5", "1e", "0x10", "1 ", " 1", "+1", "1..0",
                                 "9223372036854775808", "1e19", "1e-1", "inf", "1e99999999999"}) {
    EXPECT_EQ(wholeNumber(text), std::nullopt) << text;
  }
  for (const char* const text : {"", "-", "x", "1 ", "inf", "nan", "1e400", "-1e99999999"}) {
    EXPECT_EQ(finiteNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(wholeNumber("10e-1"), 1);
  EXPECT_EQ(wholeNumber("0.000"), 0);
  EXPECT_EQ(wholeNumber("-9223372036854775808.0"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(finiteNumber("-1e-999"), 0.0);
}

}  // namespace
}  // namespace zq
