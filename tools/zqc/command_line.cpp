// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <tools/zqc/command.hpp>

namespace zq::zqc {

namespace {

bool isNumber(std::string_view argument) {
  return argument.size() > 1 && (argument[1] == '.' || (argument[1] >= '0' && argument[1] <= '9'));
}

std::string usage(const Command& command) {
  return "usage: zqc " + std::string(command.name) + " " + std::string(command.operands);
}

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

void printHelp(const Session& session) {
  session.out << "zqc reads, changes and translates settings projects.\n\n";
  for (const Command& command : commands()) {
    session.out << "  zqc " << padded(std::string(command.name), 11) << command.summary << '\n';
  }
  session.out << "\n  zqc COMMAND --help tells more; zqc --version tells the version.\n";
}

void printHelp(const Session& session, const Command& command) {
  std::string summary(command.summary);
  summary.front() = static_cast<char>(summary.front() - 'a' + 'A');
  session.out << usage(command) << "\n\n" << summary << ".\n";
  if (!command.details.empty()) session.out << command.details << '\n';
  if (!command.options.empty()) session.out << '\n';
  for (const Option& option : command.options) {
    const std::string shown = std::string(option.name) + " " + std::string(option.value);
    session.out << "  " << padded(shown, 18) << option.help << '\n';
  }
}

int failUsage(const Session& session, const Command& command, const std::string& sentence) {
  return session.fail(exitUsage, sentence + "; " + usage(command));
}

// One option with its value, at `next`, which moves past both.
int takeOption(const Session& session, const Command& command, std::span<const std::string> words,
               std::size_t& next, Arguments& arguments) {
  const std::string& word = words[next++];
  const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
  const std::string name = word.substr(0, equals);
  const auto option = std::ranges::find(command.options, name, &Option::name);
  if (option == command.options.end()) {
    return failUsage(session, command, "there is no option " + name);
  }
  std::string value;
  if (equals != std::string::npos) {
    if (option->value.empty()) return failUsage(session, command, name + " takes no value");
    value = word.substr(equals + 1);
  } else if (!option->value.empty()) {
    if (next == words.size()) return failUsage(session, command, name + " wants a value");
    value = words[next++];
  }
  arguments.options[name] = value;
  return exitOk;
}

int runCommand(const Session& session, const Command& command, std::span<const std::string> words) {
  Arguments arguments;
  bool onlyOperands = false;
  for (std::size_t next = 0; next < words.size();) {
    const std::string& word = words[next];
    const bool isOption = !onlyOperands && word.size() > 1 && word[0] == '-' && !isNumber(word);
    if (!isOption) {
      arguments.operands.push_back(words[next++]);
    } else if (word == "--") {
      onlyOperands = true;
      ++next;
    } else if (word == "--help" || word == "-h") {
      printHelp(session, command);
      return exitOk;
    } else if (const int status = takeOption(session, command, words, next, arguments)) {
      return status;
    }
  }
  const std::size_t count = arguments.operands.size();
  if (count < command.fewest) return failUsage(session, command, "something is missing");
  if (count > command.most) {
    return failUsage(session, command, "too much: " + arguments.operands[command.most]);
  }
  return command.run(session, arguments);
}

int dispatch(const Session& session, std::span<const std::string> arguments) {
  if (arguments.empty()) {
    return session.fail(exitUsage, "which command? zqc --help lists them");
  }
  const std::string& name = arguments.front();
  if (name == "--help" || name == "-h" || name == "help") {
    printHelp(session);
    return exitOk;
  }
  if (name == "--version") {
    session.out << "zqc " ZQ_VERSION "\n";
    return exitOk;
  }
  const auto command = std::ranges::find(commands(), name, &Command::name);
  if (command == commands().end()) {
    return session.fail(exitUsage, "there is no command " + name + "; zqc --help lists them");
  }
  return runCommand(session, *command, arguments.subspan(1));
}

}  // namespace

std::optional<std::string> Arguments::value(std::string_view option) const {
  const auto found = options.find(option);
  return found != options.end() ? std::optional(found->second) : std::nullopt;
}

std::string Arguments::valueOr(std::string_view option, std::string_view other) const {
  return value(option).value_or(std::string(other));
}

int run(const Session& session, std::span<const std::string> arguments) {
  const int status = dispatch(session, arguments);
  if (!session.out.flush()) {
    return session.fail(exitOutput, "standard output cannot be written");
  }
  return status;
}

}  // namespace zq::zqc
