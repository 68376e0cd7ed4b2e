// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zq {

// Texts are UTF-8, and a character is one Unicode scalar value. What is not UTF-8 counts as
// replacement characters and never fails. Any thread.

inline constexpr char32_t replacementCharacter = 0xFFFD;

// The scalar value at position, which moves past it; position must lie inside the text.
char32_t nextScalar(std::string_view text, std::size_t& position);
void appendScalar(std::string& text, char32_t scalar);
std::size_t scalarCount(std::string_view text);

// The text itself where it is UTF-8, else with its faults replaced.
std::string validUtf8(std::string_view text);

// Lower case of Latin, Greek and Cyrillic letters; other characters stay.
std::string lowercased(std::string_view text);

// A source identifier for any text, always the same one; an identifier stays as it is. Words
// are runs of letters, digits and "_"; all else parts them. Of several the first begins in
// lower case, or is all lowered where it is all capitals, and the others begin with a capital:
// "Max zoom" gives maxZoom, "URL path" urlPath, "2nd" _2nd, and a text of no word "_".
std::string swiftTokenize(std::string_view text);

// Whether the text contains the query, whatever the case; an empty query is contained.
bool zqSearchContains(std::string_view text, std::string_view query);

// Every occurrence replaced, left to right; an empty search finds nothing.
std::string searchAndReplace(std::string_view text, std::string_view search,
                             std::string_view replaceWith, bool ignoreCase);

// n in decimal with zeros before it, at least digits characters: strUt_padN(7, 5) is 00007.
std::string strUt_padN(std::int64_t n, int digits);

// The characters from startAt up to, not including, endAt; what lies outside is left out.
std::string strUt_getSubString(std::string_view text, std::int64_t startAt, std::int64_t endAt);

}  // namespace zq
