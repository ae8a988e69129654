#include "console/CompletionWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <sstream>

namespace console {

namespace {

std::vector<std::string> SplitAt(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

// The values of CLI::IsMember, which are part of the type's name: "TEXT:{en,fr}".
std::vector<std::string> ListChoices(const CLI::Option& option)
{
    const std::string type = option.get_type_name();
    const size_t start = type.find('{');
    const size_t end = type.find('}', start);
    if (start == std::string::npos || end == std::string::npos) return {};
    return SplitAt(type.substr(start + 1, end - start - 1), ',');
}

ArgumentWords ListArgumentWords(const CLI::Option& option, const std::string& name)
{
    ArgumentWords words;
    words.choices = ListChoices(option);
    for (const std::string& part : SplitAt(name, '|')) {
        const bool isFile = part == "FILE" || part == "PATH" || part == "LIST" ||
                            part == "JOURNAL" || part == "PLUGIN";
        words.files = words.files || isFile;
        words.folders = words.folders || part == "DIR" || part == "FOLDER";
        const bool isFont = part == "NAME" || part == "PATTERN";
        words.fonts = words.fonts || (isFont && option.get_positional());
    }
    return words;
}

OptionWords ListOptionWords(const CLI::Option& option)
{
    OptionWords words;
    for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
    words.help = option.get_description();
    words.takesArgument = option.get_items_expected_max() != 0;
    words.isRepeatable = option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    if (!words.takesArgument) return words;
    words.argumentName = option.get_option_text();
    words.argument = ListArgumentWords(option, words.argumentName);
    return words;
}

CommandWords ListCommandWords(const CLI::App& command)
{
    CommandWords words;
    words.name = command.get_name();
    words.help = command.get_description();
    for (const CLI::Option* option :
         command.get_options([](const CLI::Option* each) { return !each->get_group().empty(); })) {
        if (option->get_positional()) {
            words.operands = ListArgumentWords(*option, option->get_name(true));
        } else {
            words.options.push_back(ListOptionWords(*option));
        }
    }
    return words;
}

}  // namespace

ProgramWords ListCompletionWords(const CLI::App& app)
{
    ProgramWords words{ListCommandWords(app), {}};
    for (const CLI::App* command : app.get_subcommands(
             [](const CLI::App* subcommand) { return !subcommand->get_group().empty(); })) {
        words.commands.push_back(ListCommandWords(*command));
    }
    return words;
}

std::string MakeFunctionName(const std::string& program)
{
    std::string name = program;
    std::replace_if(
        name.begin(), name.end(),
        [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
}

std::string QuoteForShell(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace console
