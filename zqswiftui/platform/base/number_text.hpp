// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zq {

// Numbers as they stand in files, in generated source and before people. Any thread.

// The shortest text that reads back as the same number, with ".0" after whole ones and an
// exponent of two digits or more below 0.0001 and above 2^53: 64.0, 0.1, 1e-05, 1e+16. What
// is not finite gives inf, -inf or nan.
std::string standardText(double value);
void appendStandardText(std::string& text, double value);
void appendNumber(std::string& text, std::int64_t value);

// For people: at most so many decimals, without zeros at the end: 0.25, 200. From 10^15 on as
// standardText.
std::string spokenNumber(double value, int decimals);

// Of a number in decimal, with a fraction and an exponent or without. Absent where the text
// is something else, has a fraction left (1.5, 15e-1) or does not fit 64 bits; 3.0 and 1e3
// are whole.
std::optional<std::int64_t> wholeNumber(std::string_view text);
// Absent where the text is something else or the number is not finite.
std::optional<double> finiteNumber(std::string_view text);

}  // namespace zq
