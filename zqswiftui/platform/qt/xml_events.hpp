// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string_view>

struct XML_ParserStruct;

namespace zq::qt {

// The attributes of an element as they are written, prefixes and all; escapes are undone.
class XmlAttributes {
 public:
  explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}
  bool has(std::string_view name) const { return (*this)[name].data() != nullptr; }
  // Empty where there is none.
  std::string_view operator[](std::string_view name) const;
  // The whole name of one with this value that begins so; empty where there is none.
  std::string_view nameOf(std::string_view value, std::string_view beginning) const;

 private:
  const char** pairs_;
};

// Reads the elements of an XML text in turn. Declarations of its own, entities above all, which a
// few lines can make grow without end, are damage, as is a zero byte; nothing else is fetched.
class XmlEvents {
 public:
  XmlEvents(const XmlEvents&) = delete;
  XmlEvents& operator=(const XmlEvents&) = delete;

 protected:
  explicit XmlEvents(std::string_view text) : text_(text) {}
  virtual ~XmlEvents() = default;

  // The bytes of a tag; the end of an element that is one tag is of no length and behind it.
  struct Tag {
    std::string_view localName;
    std::size_t begin, end;
  };
  virtual void start(const Tag& tag, const XmlAttributes& attributes) = 0;
  virtual void end(const Tag& tag) = 0;

  // To the end, the damage or stop(); whether it came to the end.
  bool read();
  void stop();
  std::string_view text() const { return text_; }

 private:
  struct Handlers;
  Tag tag(const char* name) const;

  std::string_view text_;
  XML_ParserStruct* parser_ = nullptr;
};

}  // namespace zq::qt
