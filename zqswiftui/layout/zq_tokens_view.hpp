// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A list of tokens edited as one line of text, which begins as the tokens joined by commas.
// Half a second after the last keystroke the binding is set to the text split at the first
// separator: empty pieces stay, blanks are kept, an empty text is one empty token. Changes
// that others make to the list are not taken up. Interface thread only. An empty list of
// separators stops the program at the first change.
//   ZQTokensView(tags.binding())
class ZQTokensView : public ViewModifiers<ZQTokensView> {
 public:
  using List = std::vector<std::string>;

  explicit ZQTokensView(Binding<List> tokenList, List separators = {",", ";"});

  View body(Context& context) const;

 private:
  Binding<List> tokenList_;
  List separators_;
};

// Every piece between separators, empty ones too; at an empty separator nothing is split.
std::vector<std::string> tokensOf(std::string_view text, std::string_view separator);

}  // namespace zq
