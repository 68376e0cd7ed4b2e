// ZQSwiftUI, MIT licence; see LICENSE.
#include <limits>
#include <span>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>
#include <zqswiftui/settings/cpp_names.hpp>

namespace zq {

namespace {

constexpr std::size_t widestLine = 100;
constexpr std::size_t longestFileName = 100;

// What a class needs to know of its items' kinds.
struct Kinds {
  bool whole = false;
  bool text = false;
  bool point = false;
  bool longText = false;
  bool any = false;
};

Kinds kindsOf(std::span<const CppGroup> groups) {
  Kinds kinds;
  for (const CppGroup& group : groups) {
    for (const auto& [item, key, name] : group.properties) {
      kinds.any = true;
      kinds.whole = kinds.whole || item->type == ZQUICRecordType::int_;
      kinds.point = kinds.point || item->type == ZQUICRecordType::pointSize;
      if (item->type != ZQUICRecordType::string) continue;
      kinds.text = true;
      kinds.longText = kinds.longText || item->stringValue.size() > longestLiteral;
    }
  }
  return kinds;
}

std::string_view cppType(ZQUICRecordType type) {
  switch (type) {
    case ZQUICRecordType::int_:
      return "std::int64_t";
    case ZQUICRecordType::double_:
      return "double";
    case ZQUICRecordType::string:
      return "std::string_view";
    case ZQUICRecordType::bool_:
      return "bool";
    case ZQUICRecordType::pointSize:
      return "zq::ZQUICPointSize";
  }
  return "";
}

// What stands behind return, which begins in that column.
std::string value(const ZQUICItem& item, std::size_t column) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      // The least number has no literal: the minus is not part of one.
      return item.intValue == std::numeric_limits<std::int64_t>::min()
                 ? std::to_string(item.intValue + 1) + " - 1"
                 : std::to_string(item.intValue);
    case ZQUICRecordType::double_:
      return standardText(item.doubleValue);
    case ZQUICRecordType::string:
      return cppText(item.stringValue, column);
    case ZQUICRecordType::bool_:
      return item.boolValue ? "true" : "false";
    case ZQUICRecordType::pointSize:
      return "{" + standardText(item.pointValue.x) + ", " + standardText(item.pointValue.y) + "}";
  }
  return "";
}

void appendConstant(std::string& code, const CppProperty& property) {
  constexpr std::string_view indent = "    return ";
  const std::string result = value(*property.item, indent.size());
  std::string head = "  constexpr ";
  head.append(cppType(property.item->type)).append(" ").append(property.name).append("() const {");
  const std::string line = head + " return " + result + "; }";
  if (line.size() <= widestLine && line.find('\n') == std::string::npos) {
    code.append(line).append("\n");
  } else {
    code.append(head).append("\n").append(indent).append(result).append(";\n  }\n");
  }
}

void appendQuestion(std::string& code, const CppProperty& property, const CppGroup& group) {
  const std::string_view type = cppType(property.item->type);
  code.append("  ").append(type).append(" ").append(property.name).append("() const {\n");
  code.append("    static constinit zq::SettingSlot<").append(type).append("> slot;\n");
  code.append("    return store_->value(slot, \"").append(group.token).append("\", \"");
  code.append(property.key).append("\");\n  }\n");
}

void appendPreamble(std::string& code, const ZQUICProject& project) {
  code.append("// Generated from the settings project ").append(cppComment(project.name));
  code.append("; change the project, not this file.\n#pragma once\n\n");
}

void appendIncludes(std::string& code, const Kinds& kinds) {
  if (kinds.whole) code += "#include <cstdint>\n";
  if (kinds.text) code += "#include <string_view>\n";
  code += "#ifdef NDEBUG\n";
  if (kinds.point) code += "#include <zqswiftui/settings/zquic_point_size.hpp>\n";
  code +=
      "namespace zq {\n"
      "class ZQConfig;\n"
      "}\n"
      "#else\n"
      "#include <zqswiftui/settings/zq_config.hpp>\n"
      "#endif\n\n";
}

void openNamespace(std::string& code, const CppOptions& options) {
  if (options.namespaceName.empty()) return;
  code.append("namespace ").append(options.namespaceName).append(" {\n\n");
}

void closeNamespace(std::string& code, const CppOptions& options) {
  if (options.namespaceName.empty()) return;
  code.append("\n}  // namespace ").append(options.namespaceName).append("\n");
}

void appendRefusal(std::string& code, const std::string& className) {
  code.append("  explicit ").append(className);
  code.append("(const zq::ZQConfig&&) = delete;  // the store must outlive this\n");
}

void appendProperties(std::string& code, const std::string& className,
                      std::span<const CppGroup> groups) {
  const std::string constructor = "  explicit constexpr " + className + "(const zq::ZQConfig&";
  code += "#ifdef NDEBUG\n" + constructor + ") {}\n";
  for (const CppGroup& group : groups) {
    if (group.properties.empty()) continue;
    code.append("\n  // ").append(cppComment(group.group->name)).append("\n");
    for (const CppProperty& property : group.properties) appendConstant(code, property);
  }
  code += "#else\n" + constructor + " store) : store_(&store) {}\n";
  for (const CppGroup& group : groups) {
    if (group.properties.empty()) continue;
    code.append("\n  // ").append(cppComment(group.group->name)).append("\n");
    for (const CppProperty& property : group.properties) appendQuestion(code, property, group);
  }
  code += "\n private:\n  const zq::ZQConfig* store_;\n#endif\n";
}

void appendClass(std::string& code, const std::string& className, std::span<const CppGroup> groups,
                 const Kinds& kinds) {
  if (kinds.longText) {
    code +=
        "#pragma GCC diagnostic push\n"
        "#pragma GCC diagnostic ignored \"-Woverlength-strings\"\n\n";
  }
  code +=
      "// In a debug build each property asks the store; where NDEBUG is defined it is the value\n"
      "// that the project had.\n";
  code.append("class ").append(className).append(" {\n public:\n");
  appendRefusal(code, className);
  if (kinds.any) {
    appendProperties(code, className, groups);
  } else {
    code.append("  explicit constexpr ").append(className).append("(const zq::ZQConfig&) {}\n");
  }
  code += "};\n";
  if (kinds.longText) code += "\n#pragma GCC diagnostic pop\n";
}

std::string classHeader(const ZQUICProject& project, const CppOptions& options,
                        const std::string& className, std::span<const CppGroup> groups) {
  const Kinds kinds = kindsOf(groups);
  std::string code;
  appendPreamble(code, project);
  appendIncludes(code, kinds);
  openNamespace(code, options);
  appendClass(code, className, groups, kinds);
  closeNamespace(code, options);
  return code;
}

// A group's class and file.
struct Part {
  std::string className;
  std::string fileName;
};

std::string umbrella(const ZQUICProject& project, const CppOptions& options,
                     std::span<const Part> parts) {
  std::string code;
  appendPreamble(code, project);
  for (const Part& part : parts) code.append("#include \"").append(part.fileName).append("\"\n");
  code += "\n";
  openNamespace(code, options);
  code.append("// The properties of all groups.\nclass ").append(options.className).append(" : ");
  for (const Part& part : parts) {
    if (&part != parts.data()) code.append(",\n").append(options.className.size() + 9, ' ');
    code.append("public ").append(part.className);
  }
  code += " {\n public:\n";
  appendRefusal(code, options.className);
  code.append("  explicit constexpr ").append(options.className);
  code += "(const zq::ZQConfig& store)\n      : ";
  for (const Part& part : parts) {
    if (&part != parts.data()) code += ",\n        ";
    code.append(part.className).append("(store)");
  }
  code += " {}\n};\n";
  closeNamespace(code, options);
  return code;
}

// Words in lower case parted by "_": maxZoom gives max_zoom, and a letter beyond ASCII its
// number, for file systems disagree about those.
std::string fileStem(std::string_view name) {
  std::string stem;
  bool wordMayEnd = false;
  for (std::size_t position = 0; position < name.size() && stem.size() < longestFileName;) {
    const char32_t c = nextScalar(name, position);
    const bool capital = c >= U'A' && c <= U'Z';
    if (c >= 0x80) {
      stem += "u" + std::to_string(static_cast<unsigned>(c));
    } else {
      if (capital && wordMayEnd) stem += '_';
      stem += static_cast<char>(capital ? c + 32 : c);
    }
    wordMayEnd = !capital && c != U'_';
  }
  return allowedCppName(stem);
}

// Properties and classes of one scope must not share a name, files not one but for its case.
std::vector<Part> partsOf(std::span<const CppGroup> groups, const CppOptions& options) {
  std::vector<std::string> classes;
  std::vector<std::string> stems;
  std::vector<std::string> properties{options.className};
  for (const CppGroup& group : groups) {
    classes.push_back(allowedCppName(options.className + "_" + group.token));
    stems.push_back(fileStem(classes.back()));
    for (const CppProperty& property : group.properties) properties.push_back(property.name);
  }
  UniqueNames classNames(std::move(properties), classes);
  UniqueNames fileNames({fileStem(options.className)}, stems);
  std::vector<Part> parts;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    parts.push_back({classNames.take(classes[i]), fileNames.take(stems[i]) + ".hpp"});
  }
  return parts;
}

}  // namespace

std::string cppFileName(const std::string& className) {
  return fileStem(className) + ".hpp";
}

Result<std::string> cppCode(const ZQUICProject& project, const CppOptions& options) {
  const auto groups = planCpp(project, options);
  if (!groups.ok()) return groups.error();
  return classHeader(project, options, options.className, groups.value());
}

Result<std::vector<CppHeader>> cppHeaders(const ZQUICProject& project, const CppOptions& options) {
  auto planned = planCpp(project, options);
  if (!planned.ok()) return planned.error();
  std::vector<CppGroup> groups = std::move(planned).value();
  std::erase_if(groups, [](const CppGroup& group) { return group.properties.empty(); });
  const std::string mainFile = cppFileName(options.className);
  if (groups.empty()) {
    return std::vector<CppHeader>{{mainFile, classHeader(project, options, options.className, {})}};
  }
  const std::vector<Part> parts = partsOf(groups, options);
  std::vector<CppHeader> headers{{mainFile, umbrella(project, options, parts)}};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    headers.push_back({parts[i].fileName, classHeader(project, options, parts[i].className,
                                                      std::span(groups).subspan(i, 1))});
  }
  return headers;
}

}  // namespace zq
