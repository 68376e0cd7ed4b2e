// ZQSwiftUI, MIT licence; see LICENSE.
// floor: components
// says: Required|no matching constructor
#include <zqswiftui/controls/zq_system_image_button.hpp>

int main() {
  const zq::ZQSystemImageButton button("gear", {.size = zq::ZQButton::Size::small});
}
