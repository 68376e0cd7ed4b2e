// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// Where in the window a press counts as one on the target: on all of it, and where it is small,
// in the square of kLeastTarget around its middle too.
bool reaches(const Node& target, Point inWindow);

// The small target that is meant by a point that hits none exactly: the enabled one whose square
// holds the point and whose middle is nearest, where its clips leave it and nothing lies over it.
// None where something that was hit exactly handles presses itself. While a bubble is open, only
// inside of it.
Node* nearTarget(Tree& tree, Point inWindow, const HitPath& exact);

}  // namespace zq
