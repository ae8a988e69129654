#include "console/FishCompletion.h"

#include "console/CompletionWords.h"

namespace console {

namespace {

// Quotes for fish, where only \' and \\ are special within single quotes.
std::string QuoteForFish(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "'";
}

// The options of complete(1) for an argument. -F allows files, -f no files.
std::string MakeArgument(const ArgumentWords& argument, const std::string& program)
{
    std::string candidates;
    if (argument.folders && !argument.files) candidates = "(__fish_complete_directories)";
    if (argument.fonts) {
        candidates += (candidates.empty() ? "(" : " (") + program + " list --names 2>/dev/null)";
    }
    for (const std::string& choice : argument.choices) {
        candidates += (candidates.empty() ? "" : " ") + choice;
    }
    std::string text = argument.files ? " -F" : " -f";
    if (!candidates.empty()) text += " -a " + QuoteForFish(candidates);
    return text;
}

std::string MakeOptions(const CommandWords& command, const std::string& start,
                        const std::string& program)
{
    std::string text;
    for (const OptionWords& option : command.options) {
        text += start;
        for (const std::string& name : option.names) {
            const bool isLong = name.rfind("--", 0) == 0;
            text += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
        }
        if (option.takesArgument) text += " -r" + MakeArgument(option.argument, program);
        text += " -d " + QuoteForFish(option.help) + "\n";
    }
    return text;
}

}  // namespace

std::string WriteFishCompletion(const CLI::App& app)
{
    const ProgramWords words = ListCompletionWords(app);
    const std::string& program = words.own.name;
    const std::string start = "complete -c " + program;
    std::string text = "# Completion of " + program + " for fish.\n" + start + " -f\n";
    if (words.commands.empty()) {
        return text + start + MakeArgument(words.own.operands, program) + "\n" +
               MakeOptions(words.own, start, program);
    }
    text += MakeOptions(words.own, start + " -n __fish_use_subcommand", program);
    for (const CommandWords& command : words.commands) {
        text += start + " -n __fish_use_subcommand -f -a " + command.name + " -d " +
                QuoteForFish(command.help) + "\n";
        const std::string within =
            start + " -n " + QuoteForFish("__fish_seen_subcommand_from " + command.name);
        text += within + MakeArgument(command.operands, program) + "\n" +
                MakeOptions(command, within, program);
    }
    return text;
}

}  // namespace console
