// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

namespace {

constexpr std::string_view fileHeader =
    "#if os(OSX)\nimport ZQSwiftUI\n#else\nimport ZQSwiftUI_iOS\n#endif\n\n\n"
    "extension ZQConfig {\n\n";

std::string_view declaredType(ZQUICRecordType type) {
  switch (type) {
    case ZQUICRecordType::int_:
      return "Int";
    case ZQUICRecordType::double_:
      return "Double";
    case ZQUICRecordType::string:
      return "String";
    case ZQUICRecordType::bool_:
      return "Bool";
    case ZQUICRecordType::pointSize:
      return "ZQUICPointSize";
  }
  return "";
}

void appendLiteral(std::string& code, const ZQUICItem& item) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      return appendNumber(code, item.intValue);
    case ZQUICRecordType::double_:
      return appendStandardText(code, item.doubleValue);
    case ZQUICRecordType::string:
      code.append("\"").append(item.stringValue).append("\"");
      return;
    case ZQUICRecordType::bool_:
      code += item.boolValue ? "true" : "false";
      return;
    case ZQUICRecordType::pointSize:
      code += "ZQUICPointSize (x: ";
      appendStandardText(code, item.pointValue.x);
      code += ", y: ";
      appendStandardText(code, item.pointValue.y);
      code += ")";
      return;
  }
}

// The parts of a name are taken apart by the accessor's call.
void appendDeclaration(std::string& code, const ZQUICItem& item, std::string_view group) {
  const std::string key = swiftTokenize(item.key);
  code.append("\tvar ").append(group).append("_").append(key).append(" : ");
  code.append(declaredType(item.type)).append(" {\n#if DEBUG\n\t\t");
  code.append(rawValue(item.type)).append(" (\"").append(group).append("\", \"");
  code.append(key).append("\")\n#else\n\t\t");
  appendLiteral(code, item);
  code += "\n#endif\n\t}\n\n";
}

}  // namespace

std::string ZQUICProject::zqcCode() const {
  std::string code(fileHeader);
  for (const ZQUICGroup& group : groupList()) {
    if (group.shouldBeDeleted) continue;
    const std::string groupToken = swiftTokenize(group.name);
    for (const ZQUICItem& item : group.itemList) {
      if (!item.shouldBeDeleted) appendDeclaration(code, item, groupToken);
    }
  }
  return code + "}";
}

void ZQUICProject::copyEnviromentObject() const {
  ZQPasteboard::setString(" @EnvironmentObject var " + environmentObjectVarName + " :\tZQConfig\n");
}

std::string ZQUICItem::zqcValueDeclaration(std::string_view, const ZQUICGroup& group) const {
  std::string code;
  appendDeclaration(code, *this, swiftTokenize(group.name));
  return code;
}

std::string ZQUICItem::zqcValue(std::string_view zqcVariableName, const ZQUICGroup& group) const {
  return std::string(zqcVariableName) + "." + swiftTokenize(group.name) + "_" + swiftTokenize(key);
}

void ZQUICItem::copyZQCValue(std::string_view zqcVariableName, const ZQUICGroup& group) const {
  ZQPasteboard::setString(zqcValue(zqcVariableName, group));
}

void ZQUICItem::copyValue(std::string_view zqcVariableName) const {
  ZQPasteboard::setString(std::string(zqcVariableName) + "." + std::string(rawValue(type)) +
                          " (Self." + key + ")");
}

}  // namespace zq
