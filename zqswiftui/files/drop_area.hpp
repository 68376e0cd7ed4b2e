// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

// What the drop areas share. Inside of files/ only.
namespace zq::detail {

inline constexpr const char* kDropSymbol = "square.and.arrow.down";

// The frame, which takes all the room that is offered, with the content in its middle.
View dropFrame(double strokeWidth, View content);

// Always: the text alone. Else the symbol above the text, where there is a text and it is wanted.
View dropPrompt(const std::optional<std::string>& prompt, bool always, bool wanted);

using TakeUrl = std::function<void(const Url&)>;
using TakeText = std::function<void(const std::string&)>;

// Of the dropped items: the first alone, each once, or all.
enum class Taken : unsigned char { first, once, all };
// A target that reads the addresses in the background and calls `take` with each, there and in
// their order; what is no address is left out. `take` ends on the interface thread. A drop of
// nothing is refused, with a line on standard output.
DropTarget urlTarget(Taken which, TakeUrl take);

// The first text that was dropped, handed over on the interface thread; empty where there is none.
void takeText(const DropInfo& info, TakeText take);

// The area of one picture, without a prompt, that lies above what shows it.
View pictureDropArea(const std::vector<std::string>& extensions, TakeUrl take);

// What a screen reader calls the area: its prompt, or the words.
std::string dropName(const std::optional<std::string>& prompt, const char* words);

}  // namespace zq::detail
