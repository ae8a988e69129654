#include "console/ZshCompletion.h"

#include "console/CompletionWords.h"

namespace console {

namespace {

// Escapes what ends a part of a specification of _arguments or _describe.
std::string EscapeSpecification(const std::string& text)
{
    std::string escaped;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

// What _arguments calls to complete an argument; " " completes nothing.
std::string GetAction(const ArgumentWords& argument, const std::string& function)
{
    std::string fonts = function + "_fonts";
    if (!argument.choices.empty()) {
        std::string values;
        for (const std::string& choice : argument.choices) {
            values += (values.empty() ? "" : " ") + choice;
        }
        return "(" + values + ")";
    }
    const std::string files = argument.files ? "_files" : argument.folders ? "_files -/" : "";
    if (argument.fonts && !files.empty()) {
        return "_alternative \"fonts\\:font\\:" + fonts + "\" \"files\\:file\\:" + files + "\"";
    }
    if (!argument.fonts) return files.empty() ? " " : files;
    return fonts;
}

// The lines of _arguments, each after `indent`, with a backslash at the end of the line before.
std::string MakeSpecifications(const CommandWords& command, const std::string& function,
                               const std::string& indent)
{
    std::string text;
    for (const OptionWords& option : command.options) {
        for (const std::string& name : option.names) {
            std::string specification = option.isRepeatable ? "*" : "";
            specification += name;
            if (option.takesArgument && name.rfind("--", 0) == 0) specification += "=";
            specification += "[" + EscapeSpecification(option.help) + "]";
            if (option.takesArgument) {
                specification += ":" + EscapeSpecification(option.argumentName) + ":" +
                                 GetAction(option.argument, function);
            }
            text += " \\\n" + indent + QuoteForShell(specification);
        }
    }
    return text;
}

std::string MakeOperands(const CommandWords& command, const std::string& function,
                         const std::string& indent)
{
    const std::string action = GetAction(command.operands, function);
    if (action == " ") return {};
    return " \\\n" + indent + QuoteForShell("*:argument:" + action);
}

}  // namespace

std::string WriteZshCompletion(const CLI::App& app)
{
    const ProgramWords words = ListCompletionWords(app);
    const std::string function = "_" + MakeFunctionName(words.own.name);
    std::string text = "#compdef " + words.own.name + "\n# Completion of " + words.own.name +
                       " for zsh.\n" + function + "_fonts()\n{\n    local -a fonts\n" +
                       "    fonts=(${(f)\"$(\"$service\" list --names 2>/dev/null)\"})\n" +
                       "    compadd -a fonts\n}\n" + function + "()\n{\n";
    if (words.commands.empty()) {
        text += "    _arguments" + MakeSpecifications(words.own, function, "        ") +
                MakeOperands(words.own, function, "        ") + "\n";
        return text + "}\n" + function + " \"$@\"\n";
    }
    text +=
        "    local curcontext=$curcontext state line\n    typeset -A opt_args\n"
        "    local -a commands=(\n";
    for (const CommandWords& command : words.commands) {
        text += "        " + QuoteForShell(command.name + ":" + EscapeSpecification(command.help)) +
                "\n";
    }
    text += "    )\n    _arguments -C" + MakeSpecifications(words.own, function, "        ") +
            " \\\n        '1:command:->command' '*::argument:->argument' && return\n"
            "    case $state in\n"
            "        command) _describe command commands ;;\n"
            "        argument)\n            case $words[1] in\n";
    const std::string indent(20, ' ');
    for (const CommandWords& command : words.commands) {
        text += "                " + command.name + ") _arguments" +
                MakeSpecifications(command, function, indent) +
                MakeOperands(command, function, indent) + " ;;\n";
    }
    return text + "            esac ;;\n    esac\n}\n" + function + " \"$@\"\n";
}

}  // namespace console
