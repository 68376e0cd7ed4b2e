// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A star, filled while the binding is true. A press turns the binding over and then tells the
// callback, which may be null, the new state. Interface thread only.
//   ZQFavoriteButton({.isFavorite = favorite.binding()})
class ZQFavoriteButton : public ViewModifiers<ZQFavoriteButton> {
 public:
  struct Parameters {
    Required<Binding<bool>> isFavorite;
    Color color = Color::yellow();
    std::function<void(bool)> callback = nullptr;
  };
  explicit ZQFavoriteButton(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
