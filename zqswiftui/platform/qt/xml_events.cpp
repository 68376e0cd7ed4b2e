// ZQSwiftUI, MIT licence; see LICENSE.
#include <expat.h>

#include <algorithm>
#include <memory>
#include <zqswiftui/platform/qt/xml_events.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 30;

}  // namespace

std::string_view XmlAttributes::operator[](std::string_view name) const {
  for (const char** pair = pairs_; *pair != nullptr; pair += 2) {
    if (pair[0] == name) return pair[1];
  }
  return {};
}

std::string_view XmlAttributes::nameOf(std::string_view value, std::string_view beginning) const {
  for (const char** pair = pairs_; *pair != nullptr; pair += 2) {
    const std::string_view name = pair[0];
    if (pair[1] == value && name.starts_with(beginning)) return name;
  }
  return {};
}

struct XmlEvents::Handlers {
  static void start(void* self, const char* name, const char** attributes) {
    auto& events = *static_cast<XmlEvents*>(self);
    events.start(events.tag(name), XmlAttributes(attributes));
  }
  static void end(void* self, const char* name) {
    auto& events = *static_cast<XmlEvents*>(self);
    events.end(events.tag(name));
  }
  static void doctype(void* self, const char*, const char*, const char*, int hasDeclarations) {
    if (hasDeclarations != 0) static_cast<XmlEvents*>(self)->stop();
  }
};

bool XmlEvents::read() {
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(nullptr), &XML_ParserFree);
  if (parser == nullptr) return false;
  parser_ = parser.get();
  XML_SetUserData(parser_, this);
  XML_SetElementHandler(parser_, Handlers::start, Handlers::end);
  XML_SetStartDoctypeDeclHandler(parser_, Handlers::doctype);
  const std::size_t whole = std::min(text_.find('\0'), text_.size());
  const std::size_t size = std::min(whole, kMostBytes);
  const bool isLast = size == text_.size();
  const bool ended =
      XML_Parse(parser_, text_.data(), static_cast<int>(size), isLast) == XML_STATUS_OK;
  parser_ = nullptr;
  return ended && isLast;
}

void XmlEvents::stop() {
  XML_StopParser(parser_, XML_FALSE);
}

XmlEvents::Tag XmlEvents::tag(const char* name) const {
  const std::string_view whole = name;
  const auto begin = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_));
  const auto size = static_cast<std::size_t>(XML_GetCurrentByteCount(parser_));
  return {whole.substr(whole.rfind(':') + 1), begin, begin + size};
}

}  // namespace zq::qt
