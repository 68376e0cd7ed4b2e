// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <limits>
#include <tools/zqc/command.hpp>

namespace zq::zqc {

namespace {

constexpr Option output{"-o", "OUT",
                        "Write the file OUT instead, and only if it would become another."};
constexpr Option type{"--type", "T", "int, double, string, bool or pointSize."};

constexpr std::array initOptions{
    Option{"--name", "NAME", "What the project is called."},
    Option{"--bundle-id", "ID", "The application whose settings these are."}};
constexpr std::array outputOptions{output};
constexpr std::array cppOptions{
    Option{"--class", "NAME", "The class, Settings if not given."},
    Option{"--namespace", "NAME", "Its namespace, such as app::ui."},
    Option{"--group", "NAME", "This group alone."}, output,
    Option{"--split", "DIR", "Write a header for each group into DIR, and one that has them all."}};
constexpr std::array getOptions{
    type, Option{"--def", "V", "The answer where there is no such item; else that of the project."},
    Option{"--min", "V", "A floor of a number, and the answer where there is no such item."}};
constexpr std::array setOptions{type,
                                Option{"--broadcast", "", "Tell the running application as well."}};
constexpr std::array watchOptions{Option{"--count", "N", "End after that many."}};

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

constexpr std::array table{
    Command{"init", "FILE --name NAME --bundle-id ID", "make a new project file",
            "A file that is there already stays as it is.", initOptions, 1, 1, runInit},
    Command{"normalize", "FILE [-o OUT]", "print the project as the editor would save it",
            "What is missing has its fallback, and what is flagged to be deleted is gone.",
            outputOptions, 1, 1, runNormalize},
    Command{"swift", "FILE [-o OUT]", "print the settings as Swift source",
            "An extension of ZQConfig with a property an item.", outputOptions, 1, 1, runSwift},
    Command{"cpp", "FILE [--class NAME] [--namespace NAME] [--group NAME] [-o OUT | --split DIR]",
            "print the settings as a C++ header",
            "A class with a property an item, which asks the store in a debug build and is a\n"
            "constant where NDEBUG is defined.",
            cppOptions, 1, 1, runCpp},
    Command{"get", "FILE GROUP KEY --type T [--def V | --min V]",
            "print what the store would answer",
            "GROUP and KEY are the names that stand in source; see tokenize. A point is x,y.",
            getOptions, 3, 3, runGet},
    Command{"set", "FILE GROUP KEY VALUE [--type T] [--broadcast]", "change an item, or add one",
            "GROUP and KEY are names as they stand in the project or in source. An item that is\n"
            "there keeps its type unless --type is given; for a new one it must be.",
            setOptions, 4, 4, runSet},
    Command{"list",
            "FILE [QUERY]",
            "print the items as a table",
            "QUERY keeps the groups whose name contains it, and the items whose key or values do.",
            {},
            1,
            2,
            runList},
    Command{"check",
            "FILE...",
            "tell what would surprise",
            "Names that hide one another, texts that break the Swift source and the like, as\n"
            "FILE:LINE:COLUMN: sentence. Ends with 1 where something was found.",
            {},
            1,
            anyNumber,
            runCheck},
    Command{"broadcast",
            "FILE",
            "hand the project to the running application",
            "It reaches every process of this user that listens for the project's bundle id.",
            {},
            1,
            1,
            runBroadcast},
    Command{"watch", "BUNDLE_ID [--count N]", "print each project that is broadcast",
            "One line of JSON a project.", watchOptions, 1, 1, runWatch},
    Command{
        "tokenize", "TEXT", "print the name that a text has in source", "", {}, 1, 1, runTokenize},
};

}  // namespace

std::span<const Command> commands() {
  return table;
}

}  // namespace zq::zqc
