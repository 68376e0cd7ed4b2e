// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

// Projects as JSON. Any thread.

inline constexpr std::uint64_t longestProject = std::uint64_t{256} << 20;  // bytes

enum class JsonStyle : unsigned char { compact, pretty };

// An error where a number is not finite, which JSON cannot say.
Result<std::string> encodeProject(const ZQUICProject& project, JsonStyle style);

// Tolerant: what is missing, null or of a wrong type is replaced by its fallback, and groups
// and items that are flagged to be deleted are left out. Of a key that comes twice the last
// holds. A list element that is no object is left out. An error only where the text is no
// JSON object, is nested deeper than 64 levels or longer than longestProject; its sentence
// begins with line and column: "12:7: expected a value".
Result<ZQUICProject> decodeProject(std::string_view json);

// Where groups and items stand in a text that was decoded.
struct ProjectPlaces {
  struct Group {
    std::size_t offset = 0;          // of the name's value, or of the object where there is none
    std::vector<std::size_t> items;  // of each key's value, or of the object
  };
  std::vector<Group> groups;
};

// As decodeProject, but flagged groups and items stay. The places are those of groupList.
Result<ZQUICProject> decodeEverything(std::string_view json, ProjectPlaces& places);

// From 1; a column is a character.
struct TextPlace {
  std::size_t line = 1;
  std::size_t column = 1;
};
TextPlace placeOf(std::string_view text, std::size_t offset);

}  // namespace zq
