// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/zq_favorite_button.hpp>
#include <zqswiftui/controls/zq_system_image_button.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

ZQFavoriteButton::ZQFavoriteButton(Parameters parameters) : parameters_(std::move(parameters)) {}

View ZQFavoriteButton::body(Context& context) const {
  // A binding need not come from anything that this view could observe; the star must turn
  // with the press all the same.
  const auto presses = context.state(0u);
  const bool favorite = parameters_.isFavorite.get().get();
  const auto press = [presses, binding = parameters_.isFavorite.get(),
                      callback = parameters_.callback] {
    const bool next = !binding.get();
    binding.set(next);
    presses.set(*presses + 1);
    if (callback) callback(next);
  };
  return ZQSystemImageButton(favorite ? "star.fill" : "star",
                             {.color = parameters_.color, .action = press})
      .accessibility({.role = Role::toggle,
                      .label = "Favourite",
                      .value = {},
                      .description = {},
                      .checked = favorite});
}

}  // namespace zq
