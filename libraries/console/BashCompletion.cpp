#include "console/BashCompletion.h"

#include <string_view>

#include "console/CompletionWords.h"

namespace console {

namespace {

// Completes `word` with `options` or `kinds`. Names of fonts are whatever a font file contains, so
// they are not passed to compgen -W, which would evaluate them.
constexpr std::string_view kEnd = R"(    if [[ -n $options && ( -z $kinds || $word == -* ) ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
    fi
    [[ -z $kinds ]] || compopt -o filenames 2>/dev/null
    case $kinds in
        *files*) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        *folders*) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    esac
    if [[ $kinds == *fonts* ]]; then
        while IFS= read -r candidate; do
            [[ $candidate != "$word"* ]] || COMPREPLY+=("$candidate")
        done < <("$1" list --names 2>/dev/null)
    fi
}
)";

std::string ListKinds(const ArgumentWords& argument)
{
    std::string kinds = argument.files ? "files" : argument.folders ? "folders" : "";
    if (argument.fonts) kinds += kinds.empty() ? "fonts" : "+fonts";
    return kinds;
}

std::string Join(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

// Only the long names: one letter needs no completion.
std::string ListOptionNames(const CommandWords& command)
{
    std::string names;
    for (const OptionWords& option : command.options) {
        for (const std::string& name : option.names) {
            if (name.rfind("--", 0) == 0) names += (names.empty() ? "" : " ") + name;
        }
    }
    return names;
}

std::string MakeArgumentCases(const CommandWords& command, const std::string& pattern)
{
    std::string cases;
    for (const OptionWords& option : command.options) {
        if (!option.takesArgument) continue;
        for (const std::string& name : option.names) {
            cases += "        " + pattern + ":" + name + ") options='" +
                     Join(option.argument.choices) + "' kinds=" + ListKinds(option.argument);
            // Nothing completes a number or a free text.
            cases += option.argument.choices.empty() && ListKinds(option.argument).empty()
                         ? "; return ;;\n"
                         : " ;;\n";
        }
    }
    return cases;
}

}  // namespace

std::string WriteBashCompletion(const CLI::App& app)
{
    const ProgramWords words = ListCompletionWords(app);
    const std::string function = "_" + MakeFunctionName(words.own.name);
    std::string names;
    std::string cases;
    std::string arguments = MakeArgumentCases(words.own, "*");
    for (const CommandWords& command : words.commands) {
        names += (names.empty() ? "" : " ") + command.name;
        cases += "        " + command.name + ") options='" + ListOptionNames(command) +
                 "' kinds=" + ListKinds(command.operands) + " ;;\n";
        arguments += MakeArgumentCases(command, command.name);
    }
    const std::string own = ListOptionNames(words.own);
    return "# Completion of " + words.own.name + " for bash.\n" + function +
           "()\n"
           "{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
           "    local command= options='" +
           (names.empty() ? own : names + " " + own) + "' kinds=" + ListKinds(words.own.operands) +
           " candidate\n"
           "    COMPREPLY=()\n"
           "    # bash takes --option=word for three words.\n"
           "    [[ $word != = ]] || word=\n"
           "    [[ $previous != = ]] || previous=${COMP_WORDS[COMP_CWORD - 2]}\n"
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
           "        *) ;;\n"
           "    esac\n"
           "    case $command:$previous in\n" +
           arguments +
           "        *) ;;\n"
           "    esac\n" +
           std::string(kEnd) + "complete -F " + function + " " + words.own.name + "\n";
}

}  // namespace console
