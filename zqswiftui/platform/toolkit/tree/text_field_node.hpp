// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>

namespace zq {

class TextFieldNode;

class TextFieldValue final : public ViewValue {
 public:
  TextFieldValue(std::string givenPlaceholder, Binding<std::string> givenBinding,
                 std::function<void()> givenSubmit, std::function<void()> givenEnded)
      : placeholder(std::move(givenPlaceholder)),
        binding(std::move(givenBinding)),
        text(this->binding.get()),
        submit(std::move(givenSubmit)),
        ended(std::move(givenEnded)) {}
  const void* typeId() const override { return &detail::viewTypeId<TextFieldValue>; }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const override;

  std::string placeholder;
  Binding<std::string> binding;
  std::string text;  // as it was when the view was made
  std::function<void()> submit;
  std::function<void()> ended;
};

// Draws the field around its text, which the host's native editor draws. Keys that arrive here
// edit the text as a simple editor would.
class TextFieldNode final : public LeafNode, public Responder {
 public:
  using LeafNode::LeafNode;
  void mount() override;
  void update(const View& next) override;
  Responder* responder() override { return this; }
  bool hasMemory() const override { return true; }
  bool takesPointer() const override { return true; }
  bool focusable() const override { return true; }
  bool isTextField() const override { return true; }
  void focusChanged(bool focused, bool ring) override;
  std::optional<Cursor> cursor() const override { return Cursor::text; }
  bool key(const KeyEvent& event) override;
  void edited(const std::string& text) override;
  void submitted() override;
  TextFieldState state() const;
  void describe(std::vector<AccessibilityNode>& out) override;
  std::string debugName() const override { return "TextField"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override;
  void record(Piece& piece) override;
  void environmentChanged(const Environment& old) override;

 private:
  void show(const std::string& text, std::size_t caret);
  void edit(const std::string& text, std::size_t caret);
  int font() const;
  std::size_t caretIn(const std::string& text) const;
  const TextFieldValue& value() const {
    return static_cast<const TextFieldValue&>(*view().value());
  }
  std::string text_;       // what is shown; the binding's value, but for an edit in this frame
  std::size_t caret_ = 0;  // a byte offset between characters
};

}  // namespace zq
