// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/zq_system_image_button.hpp>

namespace zq {

ZQSystemImageButton::ZQSystemImageButton(const Parameters& p)
    : ZQSystemImageButton(p.systemName, {p.color, p.size, p.action}) {}

// Not in the header: inlined, it makes GCC 12 warn falsely of an uninitialized empty lambda.
ZQSystemImageButton::ZQSystemImageButton(std::string systemName, const Options& options)
    : SymbolButton({.systemName = std::move(systemName),
                    .color = options.color,
                    .size = options.size,
                    .action = options.action}) {}

}  // namespace zq
