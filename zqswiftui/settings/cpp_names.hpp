// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>
#include <zqswiftui/settings/cpp_generator.hpp>

namespace zq {

// What the C++ generator calls things. Any thread.

// Whether a class or a namespace may have the name.
bool isCppName(std::string_view name);

// The nearest name that C++ does not keep for itself: no "__", no "_X".
std::string allowedCppName(std::string_view name);

// Gives each name once; who comes later gets it with a number, which no wanted name has.
class UniqueNames {
 public:
  UniqueNames(std::vector<std::string> taken, const std::vector<std::string>& wanted);
  std::string take(const std::string& wanted);

 private:
  std::unordered_set<std::string> wanted_;
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, std::size_t> counts_;
};

struct CppProperty {
  const ZQUICItem* item;
  std::string key;   // its token
  std::string name;  // of the property
};

struct CppGroup {
  const ZQUICGroup* group;
  std::string token;
  std::vector<CppProperty> properties;
};

// The groups and items that the source has, named, as long as the project keeps them; or why
// there can be no source.
Result<std::vector<CppGroup>> planCpp(const ZQUICProject& project, const CppOptions& options);

}  // namespace zq
