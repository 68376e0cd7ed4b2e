// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {

void LeafNode::paint(PaintPass& pass, Point origin) {
  if (!recorded_) {
    piece_.clear();
    record(piece_);
    recorded_ = true;
    ++tree().counts().piecesRecorded;
  }
  if (piece_.empty()) return;
  const PlayState state = playState(pass, origin);
  for (const DrawCommand& command : piece_) pass.canvas.draw(command, state);
}

}  // namespace zq
