// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/settings/zquic_item.hpp>

namespace zq {

namespace {

template <typename... Values>
std::size_t hashOf(const Values&... values) {
  std::size_t hash = 0;
  ((hash = hash * 31 + std::hash<Values>()(values)), ...);
  return hash;
}

}  // namespace

std::string newSettingsId() {
  return ZQId::newId("", "", true);
}

bool ZQUICItem::zqSearch(std::string_view query) const {
  std::string text = key + stringValue;
  appendNumber(text, intValue);
  appendStandardText(text, doubleValue);
  return zqSearchContains(text, query);
}

}  // namespace zq

std::size_t std::hash<zq::ZQUICPointSize>::operator()(
    const zq::ZQUICPointSize& point) const noexcept {
  return zq::hashOf(point.x, point.y);
}

std::size_t std::hash<zq::ZQUICItem>::operator()(const zq::ZQUICItem& item) const noexcept {
  return zq::hashOf(item.id, item.key, item.type, item.intValue, item.doubleValue, item.stringValue,
                    item.boolValue, item.pointValue, item.shouldBeDeleted);
}
