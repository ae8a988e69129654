#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

// What shells complete on the command line of a program, whichever shell it is.
namespace console {

// What completes an argument. Nothing does if all are empty.
struct ArgumentWords {
    bool files = false;
    bool folders = false;
    bool fonts = false;  // what `PROGRAM list --names` prints, one name per line
    std::vector<std::string> choices;
};

struct OptionWords {
    std::vector<std::string> names;  // with their dashes: "--into"
    std::string help;
    bool takesArgument = false;
    bool isRepeatable = false;
    std::string argumentName;
    ArgumentWords argument;
};

struct CommandWords {
    std::string name;
    std::string help;
    std::vector<OptionWords> options;
    ArgumentWords operands;
};

// The program with the options before a command; without commands, its operands too.
struct ProgramWords {
    CommandWords own;
    std::vector<CommandWords> commands;
};

// Lists the words of `app`. The name of an argument decides what completes it: files for FILE,
// PATH, LIST, JOURNAL and PLUGIN, folders for DIR and FOLDER, names of fonts for an operand NAME or
// PATTERN; several are separated by '|'. An option of few values is completed by these. Commands
// and options that are hidden from help (those with an empty group) are left out.
ProgramWords ListCompletionWords(const CLI::App& app);

// The program's name as part of a function's name: "headless_host".
std::string MakeFunctionName(const std::string& program);

// Quotes the text as one word of a shell, in single quotes.
std::string QuoteForShell(const std::string& text);

}  // namespace console
