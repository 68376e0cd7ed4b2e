// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>
#include <zqswiftui/platform/toolkit/layout.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// The children of a container as plain arrays: sizes, positions, nodes. A child that cannot be
// seen and has no memory of its own needs no node; it is made again when it comes into view.
class ItemArray {
 public:
  // Where missing nodes come from.
  class Source {
   public:
    virtual ~Source() = default;
    virtual View viewOf(std::size_t index) const = 0;
  };

  enum class Keep { always, whileVisible };
  ItemArray(Node& owner, const Source& source, Keep keep)
      : owner_(owner), source_(source), keep_(keep) {}

  std::size_t size() const { return nodes_.size(); }
  Node* nodeAt(std::size_t i) const { return nodes_[i].get(); }
  Node& materialize(std::size_t i);
  const Size& idealSize(std::size_t i);
  std::span<const Size> idealSizes();
  Size sizeFor(std::size_t i, const ProposedSize& proposal);
  Rect frameOf(std::size_t i) const { return Rect::of(positions_[i], placedSizes_[i]); }

  // The container says how it mirrors before it places.
  void beginPlacing(double width, bool mirrored) {
    width_ = width;
    mirrored_ = mirrored;
  }
  void placeAt(std::size_t i, Point origin, const Size& size, const ProposedSize& proposal);

  // Those from `first` on at their ideal sizes, one for each point.
  void placeIdeal(std::size_t first, std::span<const Point> origins);

  void append(std::size_t count);
  void clear();
  // Replaces the items [first, first + oldCount) by newCount; from[k] is the old index whose
  // slot the k-th new one keeps, or npos.
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  void splice(std::size_t first, std::size_t oldCount, std::span<const std::size_t> from);
  // The item's value is another one: its node is updated, or its size forgotten.
  void changed(std::size_t i, const View* next);
  void invalidated(const Node& child);

  // From now on every child has a node that stays: somebody holds on to them by their ids.
  void keepAll();
  void forEachNode(const NodeVisitor& visit);
  void setEnvironment(const EnvironmentPtr& environment);
  // Makes the nodes that show in the rectangle and lets go of those that do not and may.
  void showOnly(const Rect& visible);
  bool isVirtual() const { return keep_ == Keep::whileVisible && size() > kLarge; }
  const Rect& frames();  // of all, united
  // All that the nodes paint: the container's own bounds, or a part of them.
  Rect bounds();
  void paint(PaintPass& pass, Point origin);
  void forgetSizes();
  bool hitTest(Point point, HitPath& path);

 private:
  // Items that follow each other mostly lie close together: a run is passed by as a whole.
  static constexpr std::size_t kRun = 32;
  static constexpr std::size_t kLarge = 256;
  static constexpr std::size_t kKeptWhileMeasuring = 1024;
  void retire(std::size_t i);
  void renumber(std::size_t first);
  void noteLive(std::size_t i) {
    liveBegin_ = std::min(liveBegin_, i);
    liveEnd_ = std::max(liveEnd_, i + 1);
  }

  Node& owner_;
  const Source& source_;
  Keep keep_;
  std::vector<std::unique_ptr<Node>> nodes_;
  std::vector<Size> ideal_;
  std::vector<unsigned char> idealKnown_;
  std::vector<Point> positions_;
  std::vector<Size> placedSizes_;
  std::vector<Size> other_;  // sizes under otherProposal_
  std::vector<unsigned char> otherKnown_;
  ProposedSize otherProposal_;
  std::size_t live_ = 0;
  // All nodes stand in here: few of a long list, and they are walked far more often than made.
  std::size_t liveBegin_ = 0;
  std::size_t liveEnd_ = 0;
  // Where the nodes of each run from runsBegin_ on paint or take the pointer; as of the container's
  // bounds.
  std::vector<Rect> runs_;
  std::size_t runsBegin_ = 0;
  std::size_t unknown_ = 0;  // how many ideal sizes are not known
  Rect frames_;
  bool framesKnown_ = false;
  double width_ = 0;
  bool mirrored_ = false;
};

// Hit testing of a container whose children are such an array.
bool hitItems(ItemArray& items, Node& owner, Point point, HitPath& path);

// Gathers the items of a container through the groups in it.
class ItemSink {
 public:
  void add(ItemArray& items, std::size_t begin, std::size_t length) {
    if (length == 0) return;
    parts.push_back({&items, begin, length, count});
    count += length;
  }
  std::vector<Subviews::Part> parts;
  std::size_t count = 0;
};

}  // namespace zq
