// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tools/zqc/session.hpp>
#include <vector>

namespace zq::zqc {

struct Option {
  std::string_view name;   // --type
  std::string_view value;  // what stands for its value in the help; empty of a mere switch
  std::string_view help;
};

// What a command line holds after the command's name.
struct Arguments {
  std::vector<std::string> operands;
  std::map<std::string, std::string, std::less<>> options;  // the last one of a name holds

  bool has(std::string_view option) const { return options.contains(option); }
  std::optional<std::string> value(std::string_view option) const;
  std::string valueOr(std::string_view option, std::string_view other) const;
};

struct Command {
  std::string_view name;
  std::string_view operands;  // as the help shows them
  std::string_view summary;
  std::string_view details;
  std::span<const Option> options;
  std::size_t fewest;
  std::size_t most;
  int (*run)(const Session& session, const Arguments& arguments);
};

std::span<const Command> commands();

// The whole program: `arguments` is the command line without the program's name.
int run(const Session& session, std::span<const std::string> arguments);

int runInit(const Session& session, const Arguments& arguments);
int runNormalize(const Session& session, const Arguments& arguments);
int runSwift(const Session& session, const Arguments& arguments);
int runCpp(const Session& session, const Arguments& arguments);
int runGet(const Session& session, const Arguments& arguments);
int runSet(const Session& session, const Arguments& arguments);
int runList(const Session& session, const Arguments& arguments);
int runCheck(const Session& session, const Arguments& arguments);
int runBroadcast(const Session& session, const Arguments& arguments);
int runWatch(const Session& session, const Arguments& arguments);
int runTokenize(const Session& session, const Arguments& arguments);

}  // namespace zq::zqc
