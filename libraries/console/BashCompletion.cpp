#include "console/BashCompletion.h"

#include <CLI/CLI.hpp>
#include <cctype>

namespace console {

namespace {

// Returns the option of compgen that completes an argument of this name; "" for none.
std::string GetCompletion(const std::string& argument)
{
    if (argument == "FILE" || argument == "PATH") return "-f";
    if (argument == "DIR" || argument == "FOLDER") return "-d";
    return {};
}

struct Words {
    std::string options;     // all names, separated by spaces
    std::string positional;  // the option of compgen for positional arguments; "" for none
    std::string arguments;   // cases of the shell for options that take an argument
};

Words ListWords(const CLI::App& command, const std::string& commandName)
{
    Words words;
    const auto isVisible = [](const CLI::Option* option) { return !option->get_group().empty(); };
    for (const CLI::Option* option : command.get_options(isVisible)) {
        if (option->get_positional()) {
            words.positional = GetCompletion(option->get_name(true));
            continue;
        }
        for (const std::string& name : option->get_lnames()) {
            words.options += words.options.empty() ? "--" : " --";
            words.options += name;
            if (option->get_items_expected_max() == 0) continue;
            const std::string completion = GetCompletion(option->get_option_text());
            words.arguments.append("        ").append(commandName).append(":--").append(name);
            words.arguments +=
                completion.empty() ? ") return ;;\n" : ") kind=" + completion + " options= ;;\n";
        }
    }
    return words;
}

}  // namespace

std::string WriteBashCompletion(const CLI::App& app)
{
    std::string function = "_";
    for (const char c : app.get_name()) {
        function += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    }
    const Words own = ListWords(app, "*");
    std::string names;
    std::string cases;
    std::string arguments = own.arguments;
    for (const CLI::App* command : app.get_subcommands(
             [](const CLI::App* subcommand) { return !subcommand->get_group().empty(); })) {
        const Words words = ListWords(*command, command->get_name());
        names += (names.empty() ? "" : " ") + command->get_name();
        cases += "        " + command->get_name() + ") options='" + words.options +
                 "' kind=" + words.positional + " ;;\n";
        arguments += words.arguments;
    }
    return "# Completion of " + app.get_name() + " for bash.\n" + function +
           "()\n"
           "{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
           "    local command= options='" +
           names + " " + own.options +
           "' kind=" + (names.empty() ? own.positional : std::string()) +
           " candidate\n"
           "    COMPREPLY=()\n"
           "    for candidate in \"${COMP_WORDS[@]:1:COMP_CWORD - 1}\"; do\n"
           "        if [[ \" " +
           names +
           " \" == *\" $candidate \"* ]]; then\n"
           "            command=$candidate\n"
           "            break\n"
           "        fi\n"
           "    done\n"
           "    case $command in\n" +
           cases +
           "    esac\n"
           "    case $command:$previous in\n" +
           arguments +
           "    esac\n"
           "    if [[ -n $options && ( -z $kind || $word == -* ) ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n"
           "    elif [[ -n $kind ]]; then\n"
           "        compopt -o filenames 2>/dev/null\n"
           "        mapfile -t COMPREPLY < <(compgen \"$kind\" -- \"$word\")\n"
           "    fi\n"
           "}\n"
           "complete -F " +
           function + " " + app.get_name() + "\n";
}

}  // namespace console
