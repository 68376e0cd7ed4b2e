// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>
#include <zqswiftui/settings/cpp_names.hpp>

namespace zq {

namespace {

// Sorted; with the namespaces that the source itself names.
constexpr auto reservedWords = std::to_array<std::string_view>({"alignas",
                                                                "alignof",
                                                                "and",
                                                                "and_eq",
                                                                "asm",
                                                                "auto",
                                                                "bitand",
                                                                "bitor",
                                                                "bool",
                                                                "break",
                                                                "case",
                                                                "catch",
                                                                "char",
                                                                "char16_t",
                                                                "char32_t",
                                                                "char8_t",
                                                                "class",
                                                                "co_await",
                                                                "co_return",
                                                                "co_yield",
                                                                "compl",
                                                                "concept",
                                                                "const",
                                                                "const_cast",
                                                                "consteval",
                                                                "constexpr",
                                                                "constinit",
                                                                "continue",
                                                                "decltype",
                                                                "default",
                                                                "delete",
                                                                "do",
                                                                "double",
                                                                "dynamic_cast",
                                                                "else",
                                                                "enum",
                                                                "explicit",
                                                                "export",
                                                                "extern",
                                                                "false",
                                                                "float",
                                                                "for",
                                                                "friend",
                                                                "goto",
                                                                "if",
                                                                "inline",
                                                                "int",
                                                                "long",
                                                                "mutable",
                                                                "namespace",
                                                                "new",
                                                                "noexcept",
                                                                "not",
                                                                "not_eq",
                                                                "nullptr",
                                                                "operator",
                                                                "or",
                                                                "or_eq",
                                                                "private",
                                                                "protected",
                                                                "public",
                                                                "register",
                                                                "reinterpret_cast",
                                                                "requires",
                                                                "return",
                                                                "short",
                                                                "signed",
                                                                "sizeof",
                                                                "static",
                                                                "static_assert",
                                                                "static_cast",
                                                                "std",
                                                                "struct",
                                                                "switch",
                                                                "template",
                                                                "this",
                                                                "thread_local",
                                                                "throw",
                                                                "true",
                                                                "try",
                                                                "typedef",
                                                                "typeid",
                                                                "typename",
                                                                "union",
                                                                "unsigned",
                                                                "using",
                                                                "virtual",
                                                                "void",
                                                                "volatile",
                                                                "wchar_t",
                                                                "while",
                                                                "xor",
                                                                "xor_eq",
                                                                "zq"});
static_assert(std::ranges::is_sorted(reservedWords));

bool isCapital(char c) {
  return c >= 'A' && c <= 'Z';
}

std::string said(const ZQUICItem& item, const ZQUICGroup& group) {
  return cppComment(item.key) + " of the group " + cppComment(group.name);
}

bool isFinite(const ZQUICItem& item) {
  if (item.type == ZQUICRecordType::double_) return std::isfinite(item.doubleValue);
  if (item.type != ZQUICRecordType::pointSize) return true;
  return std::isfinite(item.pointValue.x) && std::isfinite(item.pointValue.y);
}

// The group's items by their tokens; two of one token are refused.
Result<std::vector<CppProperty>> propertiesOf(const ZQUICGroup& group) {
  std::vector<CppProperty> properties;
  std::unordered_map<std::string, const ZQUICItem*> seen;
  for (const ZQUICItem& item : group.itemList) {
    if (item.shouldBeDeleted) continue;
    std::string key = swiftTokenize(item.key);
    const auto [earlier, isNew] = seen.emplace(key, &item);
    if (!isNew) {
      return Error{cppComment(earlier->second->key) + " and " + said(item, group) +
                   " have one name in source, " + key + "; rename one"};
    }
    if (!isFinite(item)) return Error{said(item, group) + " is no finite number"};
    properties.push_back({&item, std::move(key), {}});
  }
  return properties;
}

Result<std::vector<CppGroup>> groupsOf(const ZQUICProject& project) {
  std::vector<CppGroup> groups;
  std::unordered_map<std::string, const ZQUICGroup*> seen;
  for (const ZQUICGroup& group : project.groupList()) {
    if (group.shouldBeDeleted) continue;
    std::string token = swiftTokenize(group.name);
    auto properties = propertiesOf(group);
    if (!properties.ok()) return properties.error();
    const auto [earlier, isNew] = seen.emplace(token, &group);
    if (!isNew && !properties.value().empty()) {
      return Error{"the group " + cppComment(group.name) + " is hidden behind the group " +
                   cppComment(earlier->second->name) + ": both have the name " + token +
                   " in source; rename one"};
    }
    if (isNew) groups.push_back({&group, std::move(token), std::move(properties).value()});
  }
  return groups;
}

// Of all groups, so that a name does not depend on which of them are wanted.
void nameProperties(std::vector<CppGroup>& groups, const std::string& className) {
  std::vector<std::string> wanted;
  for (const CppGroup& group : groups) {
    for (const CppProperty& property : group.properties) {
      wanted.push_back(allowedCppName(group.token + "_" + property.key));
    }
  }
  std::vector<std::string> taken(reservedWords.begin(), reservedWords.end());
  taken.insert(taken.end(), {className, "store_"});
  UniqueNames names(std::move(taken), wanted);
  auto next = wanted.begin();
  for (CppGroup& group : groups) {
    for (CppProperty& property : group.properties) property.name = names.take(*next++);
  }
}

Result<void> keepWanted(std::vector<CppGroup>& groups, const std::vector<std::string>& wanted) {
  if (wanted.empty()) return {};
  std::unordered_set<std::string> tokens;
  for (const std::string& name : wanted) {
    std::string token = swiftTokenize(name);
    const bool found = std::ranges::any_of(
        groups, [&token](const CppGroup& group) { return group.token == token; });
    if (!found) return Error{"there is no group " + cppComment(name)};
    tokens.insert(std::move(token));
  }
  std::erase_if(groups, [&tokens](const CppGroup& group) { return !tokens.contains(group.token); });
  return {};
}

}  // namespace

bool isCppName(std::string_view name) {
  return swiftTokenize(name) == name && allowedCppName(name) == name &&
         !std::ranges::binary_search(reservedWords, name);
}

Result<void> checkCppOptions(const CppOptions& options) {
  if (!isCppName(options.className)) {
    return Error{"a class cannot be called " + cppComment(options.className) + " in C++"};
  }
  std::string_view rest = options.namespaceName;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find("::"), rest.size());
    const bool endsWell = end == rest.size() || end + 2 < rest.size();
    if (!isCppName(rest.substr(0, end)) || !endsWell) {
      return Error{"a namespace cannot be called " + cppComment(options.namespaceName) + " in C++"};
    }
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return {};
}

std::string allowedCppName(std::string_view name) {
  std::string allowed;
  for (const char c : name) {
    if (c == '_' && allowed.ends_with('_')) continue;
    if (isCapital(c) && allowed == "_") allowed.clear();
    allowed += c;
  }
  // Some headers define a macro of that name.
  return allowed == "_" ? "unnamed" : allowed;
}

UniqueNames::UniqueNames(std::vector<std::string> taken, const std::vector<std::string>& wanted)
    : wanted_(wanted.begin(), wanted.end()),
      taken_(std::make_move_iterator(taken.begin()), std::make_move_iterator(taken.end())) {}

std::string UniqueNames::take(const std::string& wanted) {
  if (taken_.insert(wanted).second) return wanted;
  std::size_t& count = counts_.try_emplace(wanted, 1).first->second;
  std::string name;
  do {
    name = wanted + (wanted.ends_with('_') ? "" : "_") + std::to_string(++count);
  } while (wanted_.contains(name) || !taken_.insert(name).second);
  return name;
}

Result<std::vector<CppGroup>> planCpp(const ZQUICProject& project, const CppOptions& options) {
  if (const auto checked = checkCppOptions(options); !checked.ok()) return checked.error();
  auto groups = groupsOf(project);
  if (!groups.ok()) return groups.error();
  std::vector<CppGroup> planned = std::move(groups).value();
  nameProperties(planned, options.className);
  if (const auto kept = keepWanted(planned, options.groups); !kept.ok()) return kept.error();
  return planned;
}

}  // namespace zq
