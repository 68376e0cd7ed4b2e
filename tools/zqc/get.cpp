// ZQSwiftUI, MIT licence; see LICENSE.
#include <tools/zqc/project_files.hpp>
#include <tools/zqc/values.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace zq::zqc {

namespace {

struct Question {
  const ZQConfig& store;
  const std::string& group;
  const std::string& key;
  std::optional<ZQUICItem> def{};  // with the value in the slot of its type
  std::optional<ZQUICItem> min{};
};

std::string answerInt(const Question& q) {
  if (q.min) return std::to_string(q.store.intValue(q.group, q.key, Min(q.min->intValue)));
  if (q.def) return std::to_string(q.store.intValue(q.group, q.key, Default(q.def->intValue)));
  return std::to_string(q.store.intValue(q.group, q.key));
}

ZQUICItem answerDouble(const Question& q) {
  ZQUICItem answer;
  if (q.min) {
    answer.doubleValue = q.store.doubleValue(q.group, q.key, Min(q.min->doubleValue));
  } else if (q.def) {
    answer.doubleValue = q.store.doubleValue(q.group, q.key, Default(q.def->doubleValue));
  } else {
    answer.doubleValue = q.store.doubleValue(q.group, q.key);
  }
  return answer;
}

bool answerBool(const Question& q) {
  return q.def ? q.store.boolValue(q.group, q.key, Default(q.def->boolValue))
               : q.store.boolValue(q.group, q.key);
}

std::string answer(const Question& q, ZQUICRecordType type) {
  switch (type) {
    case ZQUICRecordType::int_:
      return answerInt(q);
    case ZQUICRecordType::double_:
      return shownValue(answerDouble(q));
    case ZQUICRecordType::string:
      return q.store.stringValue(q.group, q.key, Default(q.def ? q.def->stringValue : ""));
    case ZQUICRecordType::bool_:
      return answerBool(q) ? "true" : "false";
    case ZQUICRecordType::pointSize:
      return shownPoint(q.store.pointSizeValue(
          q.group, q.key, Default(q.def ? q.def->pointValue : ZQUICPointSize::zero())));
  }
  return "";
}

// The value of --def or --min; an absent option gives an absent value.
Outcome<std::optional<ZQUICItem>> valueOption(const Session& session, const Arguments& arguments,
                                              std::string_view name, ZQUICRecordType type) {
  const auto text = arguments.value(name);
  if (!text) return std::optional<ZQUICItem>();
  ZQUICItem item{.type = type};
  if (!setValue(item, *text)) return failValue(session, *text, type);
  return std::optional(item);
}

}  // namespace

int runGet(const Session& session, const Arguments& arguments) {
  const auto type = typeOption(session, arguments);
  if (!type) return type.status;
  const bool number = type.value == ZQUICRecordType::int_ || type.value == ZQUICRecordType::double_;
  if (arguments.has("--min") && (!number || arguments.has("--def"))) {
    return session.fail(exitUsage, "--min goes with numbers alone, and without --def");
  }
  auto def = valueOption(session, arguments, "--def", *type.value);
  if (!def) return def.status;
  auto min = valueOption(session, arguments, "--min", *type.value);
  if (!min) return min.status;
  auto project = readProject(session, arguments.operands[0]);
  if (!project) return project.status;
  const ZQConfig store(std::move(*project));
  session.out << answer({store, arguments.operands[1], arguments.operands[2], *def, *min},
                        *type.value)
              << '\n';
  return exitOk;
}

}  // namespace zq::zqc
