// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/dates.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/timecode.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>

namespace zq {
namespace {

using Table = std::vector<std::pair<std::string, std::string>>;

TEST(Text, swiftTokenizeMakesIdentifiersThatStayThemselves) {
  const Table cases{{"Canvas", "Canvas"},
                    {"Max zoom", "maxZoom"},
                    {"  Max   zoom! ", "maxZoom"},
                    {"max_zoom2", "max_zoom2"},
                    {"2nd pass", "_2ndPass"},
                    {"Level 2", "level2"},
                    {"a.b-c", "aBC"},
                    {"", "_"},
                    {"...", "_"},
                    {"\xFF", "_"},
                    {"Gr\xC3\xB6\xC3\x9F"
                     "e",
                     "Gr\xC3\xB6\xC3\x9F"
                     "e"},
                    {"URL path", "urlPath"},
                    {"MP3 rate", "mp3Rate"},
                    {"URLs to keep", "uRLsToKeep"},
                    {"URL", "URL"},
                    {"a _b 2c", "a_b2c"},
                    {"größe über ö", "größeÜberÖ"},
                    {"ÖL größe", "ölGröße"},
                    {"設定 値", "設定値"},
                    {"e\xCC\x81t\xC3\xA9", "eTé"},  // a mark of its own is no letter
                    {"price €", "price"},
                    {"class", "class"},
                    {"a\xE2\x80\x94"
                     "b",
                     "aB"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(swiftTokenize(text), expected) << text;
    EXPECT_EQ(swiftTokenize(expected), expected) << text;
  }
}

TEST(Text, whatIsNotUtf8BecomesReplacementCharacters) {
  const std::string r = "\xEF\xBF\xBD";
  const Table cases{
      {"a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80", "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"},
      {"\x80", r},
      {"\xC3", r},
      {"\xC3z", r + "z"},
      {"\xC0\xAF", r + r},
      {"\xE0\x80\x80", r + r + r},
      {"\xED\xA0\x80", r + r + r},
      {"\xF4\x90\x80\x80", r + r + r + r},
      {"\xF0\x9F\x98", r},
      {"\xFF\xFE", r + r}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(validUtf8(text), expected);
    EXPECT_EQ(scalarCount(text), scalarCount(expected));
  }
}

TEST(Text, searchIgnoresCaseBeyondAscii) {
  EXPECT_TRUE(zqSearchContains("Hello World", "LO w"));
  EXPECT_TRUE(zqSearchContains("\xC3\x89T\xC3\x89 \xD0\x96", "\xC3\xA9t\xC3\xA9 \xD0\xB6"));
  EXPECT_TRUE(zqSearchContains("x", ""));
  EXPECT_FALSE(zqSearchContains("", "x"));
}

TEST(Text, replacementGoesOnBehindWhatItWrote) {
  EXPECT_EQ(searchAndReplace("a.b.c", ".", "", false), "abc");
  EXPECT_EQ(searchAndReplace("aaa", "aa", "a", false), "aa");
  EXPECT_EQ(searchAndReplace("a A", "A", "%20", true), "%20 %20");
  EXPECT_EQ(searchAndReplace("abc", "", "x", false), "abc");
}

TEST(Text, paddingAndPartsCountCharacters) {
  EXPECT_EQ(strUt_padN(0, 5), "00000");
  EXPECT_EQ(strUt_padN(123456, 5), "123456");
  EXPECT_EQ(strUt_padN(-7, 3), "-07");
  EXPECT_EQ(strUt_padN(std::numeric_limits<std::int64_t>::min(), -1), "-9223372036854775808");
  EXPECT_EQ(strUt_getSubString("a\xC3\xA9"
                               "b",
                               1, 2),
            "\xC3\xA9");
  EXPECT_EQ(strUt_getSubString("ab", -3, 99), "ab");
  EXPECT_EQ(strUt_getSubString("ab", 1, 0), "");
}

TEST(ZQIdTest, md5GivesTheDigestsOfTheStandard) {
  const Table cases{
      {"", "d41d8cd98f00b204e9800998ecf8427e"},
      {"a", "0cc175b9c0f1b6a831c399e269772661"},
      {"abc", "900150983cd24fb0d6963f7d28e17f72"},
      {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
      {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
       "d174ab98d277d9f5a5611c2c9f419d9f"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57edf4a22be3c955ac49da2e2107b67a"}};
  for (const auto& [text, digest] : cases) EXPECT_EQ(ZQId::md5(text), digest);
}

TEST(ZQIdTest, idsDifferAndBeginAsAsked) {
  std::set<std::string> ids;
  for (int i = 0; i < 1000; ++i) ids.insert(ZQId::newId("p-", "t-", i % 2 == 0));
  EXPECT_EQ(ids.size(), 1000U);
  for (const auto& id : ids) EXPECT_TRUE(id.starts_with("p-t-"));
}

TEST(Timecode, roundsAsAWholeAndKeepsItsForm) {
  const std::vector<std::pair<double, std::string>> cases{
      {0, "00:00:00.00"},
      {3723.04, "01:02:03.04"},
      {59.999, "00:01:00.00"},
      {0.1 + 0.2, "00:00:00.30"},
      {-1.5, "-00:00:01.50"},
      {-0.001, "00:00:00.00"},
      {1e300, "277777777:46:40.00"},
      {std::numeric_limits<double>::quiet_NaN(), "00:00:00.00"},
      {359999.999, "100:00:00.00"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(TC::getFloatTimecode(seconds, false), text);
  EXPECT_EQ(TC::getFloatTimecode(1.25, true), "00:00:01,25");
}

TEST(Dates, patternsOfLettersAndOtherText) {
  ::setenv("TZ", "UTC", 1);
  ::tzset();
  const auto date = std::chrono::sys_days{std::chrono::year{2009} / 3 / 7} + std::chrono::hours(4) +
                    std::chrono::minutes(5) + std::chrono::seconds(6);
  const Table cases{{"dd MMM yy [HH:mm]", "07 Mar 09 [04:05]"},
                    {"d/M/yyyy HH:mm:ss", "7/3/2009 04:05:06"},
                    {"MMMM 'day' d", "March day 7"},
                    {"'open", "open"},
                    {"", ""}};
  for (const auto& [pattern, text] : cases) EXPECT_EQ(du_formatDate(date, pattern), text);
  ::setenv("TZ", "IST-5:30", 1);
  ::tzset();
  EXPECT_EQ(du_formatDate(date, "dd MMM yy [HH:mm]"), "07 Mar 09 [09:35]") << "the user's zone";
  ::setenv("TZ", "UTC", 1);
  ::tzset();
}

}  // namespace
}  // namespace zq
