// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/symbol_button.hpp>

namespace zq {

// The small icon buttons: one symbol each, with the look and the answer to the pointer of
// ZQSystemImageButton. A label stands at the right of the symbol, and a click on it counts.
// Fields without a default must be given; a null action does nothing; those that say no size
// are `normal`. Interface thread only.
//   ZQOkButton("Save", {.size = ZQButton::Size::normal, .action = save})
//   ZQCancelButton({.size = ZQButton::Size::small})

// checkmark.circle
class ZQOkButton : public SymbolButton<ZQOkButton> {
 public:
  struct Parameters {
    Required<ZQButton::Size> size;
    std::optional<Color> color = std::nullopt;
    Required<std::function<void()>> action;
  };
  explicit ZQOkButton(const Parameters& p);
  ZQOkButton(std::optional<std::string> label, const Parameters& p);
};

// xmark.circle
class ZQCancelButton : public SymbolButton<ZQCancelButton> {
 public:
  struct Parameters {
    std::optional<Color> color = std::nullopt;
    Required<ZQButton::Size> size;
    std::function<void()> action = nullptr;
  };
  explicit ZQCancelButton(const Parameters& p);
  ZQCancelButton(std::optional<std::string> label, const Parameters& p);
};

// arrow.right.circle
class ZQContinueButton : public SymbolButton<ZQContinueButton> {
 public:
  using Parameters = ZQCancelButton::Parameters;
  explicit ZQContinueButton(const Parameters& p);
  ZQContinueButton(std::optional<std::string> label, const Parameters& p);
};

// delete.left.fill where fill is true, delete.left otherwise
class ZQDeleteButton : public SymbolButton<ZQDeleteButton> {
 public:
  struct Parameters {
    std::optional<Color> color = std::nullopt;
    Required<bool> fill;
    Required<ZQButton::Size> size;
    Required<std::function<void()>> action;
  };
  explicit ZQDeleteButton(const Parameters& p);
};

// doc.on.doc
class ZQCopyButton : public SymbolButton<ZQCopyButton> {
 public:
  struct Parameters {
    std::optional<Color> color = std::nullopt;
    std::function<void()> action = nullptr;
  };
  explicit ZQCopyButton(const Parameters& p);
};

// icloud.and.arrow.down
class ZQDownloadButton : public SymbolButton<ZQDownloadButton> {
 public:
  struct Parameters {
    Required<std::function<void()>> action;
    std::optional<Color> color = std::nullopt;
  };
  explicit ZQDownloadButton(const Parameters& p);
};

// link
class ZQLinkButton : public SymbolButton<ZQLinkButton> {
 public:
  using Parameters = ZQDownloadButton::Parameters;
  explicit ZQLinkButton(const Parameters& p);
};

// gear
class ZQSettingsButton : public SymbolButton<ZQSettingsButton> {
 public:
  using Parameters = ZQCopyButton::Parameters;
  explicit ZQSettingsButton(const Parameters& p);
  ZQSettingsButton(std::optional<std::string> label, const Parameters& p);
};

// line.3.horizontal: opens a menu or a side list.
class ZQHamburgerButton : public SymbolButton<ZQHamburgerButton> {
 public:
  struct Parameters {
    std::optional<Color> color = std::nullopt;
    ZQButton::Size size = ZQButton::Size::normal;
    Required<std::function<void()>> action;
  };
  explicit ZQHamburgerButton(const Parameters& p);
};

// pause while something plays, play otherwise: what a press would do. The host keeps the state.
class ZQPlayPauseButton : public SymbolButton<ZQPlayPauseButton> {
 public:
  struct Parameters {
    Required<bool> isPlaying;
    std::optional<Color> color = std::nullopt;
    ZQButton::Size size = ZQButton::Size::normal;
    Required<std::function<void()>> action;
  };
  explicit ZQPlayPauseButton(const Parameters& p);
};

}  // namespace zq
