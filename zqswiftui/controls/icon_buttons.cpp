// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/icon_buttons.hpp>

namespace zq {

ZQOkButton::ZQOkButton(const Parameters& p) : ZQOkButton(std::nullopt, p) {}

ZQOkButton::ZQOkButton(std::optional<std::string> label, const Parameters& p)
    : SymbolButton({"checkmark.circle", std::move(label), p.color, p.size, p.action, "OK"}) {}

ZQCancelButton::ZQCancelButton(const Parameters& p) : ZQCancelButton(std::nullopt, p) {}

ZQCancelButton::ZQCancelButton(std::optional<std::string> label, const Parameters& p)
    : SymbolButton({"xmark.circle", std::move(label), p.color, p.size, p.action, "Cancel"}) {}

ZQContinueButton::ZQContinueButton(const Parameters& p) : ZQContinueButton(std::nullopt, p) {}

ZQContinueButton::ZQContinueButton(std::optional<std::string> label, const Parameters& p)
    : SymbolButton(
          {"arrow.right.circle", std::move(label), p.color, p.size, p.action, "Continue"}) {}

ZQDeleteButton::ZQDeleteButton(const Parameters& p)
    : SymbolButton({.systemName = p.fill ? "delete.left.fill" : "delete.left",
                    .color = p.color,
                    .size = p.size,
                    .action = p.action,
                    .accessibleName = "Delete"}) {}

ZQCopyButton::ZQCopyButton(const Parameters& p)
    : SymbolButton({.systemName = "doc.on.doc",
                    .color = p.color,
                    .action = p.action,
                    .accessibleName = "Copy"}) {}

ZQDownloadButton::ZQDownloadButton(const Parameters& p)
    : SymbolButton({.systemName = "icloud.and.arrow.down",
                    .color = p.color,
                    .action = p.action,
                    .accessibleName = "Download"}) {}

ZQLinkButton::ZQLinkButton(const Parameters& p)
    : SymbolButton(
          {.systemName = "link", .color = p.color, .action = p.action, .accessibleName = "Link"}) {}

ZQSettingsButton::ZQSettingsButton(const Parameters& p) : ZQSettingsButton(std::nullopt, p) {}

ZQSettingsButton::ZQSettingsButton(std::optional<std::string> label, const Parameters& p)
    : SymbolButton({.systemName = "gear",
                    .label = std::move(label),
                    .color = p.color,
                    .action = p.action,
                    .accessibleName = "Settings"}) {}

ZQHamburgerButton::ZQHamburgerButton(const Parameters& p)
    : SymbolButton({.systemName = "line.3.horizontal",
                    .color = p.color,
                    .size = p.size,
                    .action = p.action,
                    .accessibleName = "Menu"}) {}

ZQPlayPauseButton::ZQPlayPauseButton(const Parameters& p)
    : SymbolButton({.systemName = p.isPlaying ? "pause.fill" : "play.fill",
                    .color = p.color,
                    .size = p.size,
                    .action = p.action,
                    .accessibleName = p.isPlaying ? "Pause" : "Play"}) {}

}  // namespace zq
