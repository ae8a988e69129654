#include "console/CommandPages.h"

#include <CLI/CLI.hpp>
#include <cctype>

namespace console {

namespace {

constexpr char kReadmeHeading[] = "## Commands\n";
constexpr char kReadmeHeadingWithoutCommands[] = "## Usage\n";

using Commands = std::vector<const CLI::App*>;

Commands ListCommands(const CLI::App& app)
{
    return app.get_subcommands(
        [](const CLI::App* command) { return !command->get_group().empty(); });
}

// The visible options. A command's --help is left out: it is listed once, for the program.
std::vector<const CLI::Option*> ListOptions(const CLI::App& app)
{
    return app.get_options([&app](const CLI::Option* option) {
        const bool isInherited = app.get_parent() != nullptr && option == app.get_help_ptr();
        return !option->get_group().empty() && !isInherited;
    });
}

std::string GetUsage(const CLI::App& command, const std::string& name)
{
    const std::string line = CLI::Formatter().make_usage(&command, name);
    const size_t start = line.find(": ") + 2;
    return line.substr(start, line.find('\n') - start);
}

// "headless-host open [OPTIONS] FILE..."
std::string GetUsage(const CLI::App& app, const CLI::App& command)
{
    return GetUsage(command, app.get_name() + " " + command.get_name());
}

std::vector<HelpRow> ListArguments(const CLI::App& command)
{
    std::vector<HelpRow> rows;
    for (const CLI::Option* option : ListOptions(command)) {
        if (option->get_positional()) {
            rows.push_back({option->get_name(true), option->get_description()});
        }
    }
    return rows;
}

std::vector<HelpRow> ListFlags(const CLI::App& command)
{
    std::vector<HelpRow> rows;
    for (const CLI::Option* option : ListOptions(command)) {
        if (option->get_positional()) continue;
        std::string term;
        for (const char c : option->get_name(false, true)) {
            term += c == ',' ? ", " : std::string(1, c);
        }
        if (!option->get_option_text().empty()) term += " " + option->get_option_text();
        rows.push_back({term, option->get_description()});
    }
    return rows;
}

std::vector<HelpRow> ListRows(const CLI::App& command, bool withFlags)
{
    std::vector<HelpRow> rows = ListArguments(command);
    if (!withFlags) return rows;
    for (HelpRow& row : ListFlags(command)) rows.push_back(std::move(row));
    return rows;
}

// Takes the place of a list of options that would repeat that of `other`.
std::string MakeReference(const CLI::App& other)
{
    return "Its options are those of `" + other.get_name() + "`.";
}

bool AreEqual(const std::vector<HelpRow>& left, const std::vector<HelpRow>& right)
{
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](const HelpRow& a, const HelpRow& b) {
                                                         return a.term == b.term &&
                                                                a.meaning == b.meaning;
                                                     });
}

// Returns the first command before `command` with the same options; null if there is none, or if
// `command` has no options.
const CLI::App* FindSameOptions(const Commands& commands, const CLI::App* command)
{
    const std::vector<HelpRow> own = ListFlags(*command);
    for (const CLI::App* other : commands) {
        if (other == command || own.empty()) break;
        if (AreEqual(ListFlags(*other), own)) return other;
    }
    return nullptr;
}

// Makes roff print the text literally, except that `code` becomes bold type.
std::string EscapeRoff(const std::string& text)
{
    std::string escaped = !text.empty() && (text[0] == '.' || text[0] == '\'') ? "\\&" : "";
    bool isCode = false;
    for (const char c : text) {
        if (c == '`') {
            isCode = !isCode;
            escaped += isCode ? "\\fB" : "\\fR";
        } else if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string MakeRoffRows(const std::vector<HelpRow>& rows)
{
    std::string text;
    for (const HelpRow& row : rows) {
        text += ".TP\n\\fB" + EscapeRoff(row.term) + "\\fR\n" + EscapeRoff(row.meaning) + "\n";
    }
    return text;
}

std::string EscapeMarkdown(const std::string& text)
{
    std::string escaped;
    for (const char c : text) {
        if (c == '|') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string MakeMarkdownTable(const std::vector<HelpRow>& rows)
{
    if (rows.empty()) return {};
    std::string text = "\n| | |\n|---|---|\n";
    for (const HelpRow& row : rows) {
        text += "| `" + EscapeMarkdown(row.term) + "` | " + EscapeMarkdown(row.meaning) + " |\n";
    }
    return text;
}

std::string MakeUpper(std::string text)
{
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// "Opens documents." -> "opens documents", as manual pages describe a program.
std::string MakeManDescription(std::string text)
{
    if (!text.empty() && text.back() == '.') text.pop_back();
    if (!text.empty()) {
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    }
    return text;
}

}  // namespace

std::string WriteManPage(const CLI::App& app, const std::vector<HelpSection>& sections)
{
    const Commands commands = ListCommands(app);
    std::string page = ".TH \"" + EscapeRoff(MakeUpper(app.get_name())) + "\" 1 \"\" \"" +
                       EscapeRoff(app.version()) + "\"\n.SH NAME\n" + EscapeRoff(app.get_name()) +
                       " \\- " + EscapeRoff(MakeManDescription(app.get_description())) +
                       "\n.SH SYNOPSIS\n.nf\n";
    for (const CLI::App* command : commands) page += EscapeRoff(GetUsage(app, *command)) + "\n";
    if (commands.empty()) page += EscapeRoff(GetUsage(app, app.get_name())) + "\n";
    page += ".fi\n.SH OPTIONS\n" + MakeRoffRows(ListRows(app, true));
    if (!commands.empty()) page += ".SH COMMANDS\n";
    for (const CLI::App* command : commands) {
        page += ".SS \"" + EscapeRoff(GetUsage(app, *command)) + "\"\n" +
                EscapeRoff(command->get_description()) + "\n";
        const CLI::App* const other = FindSameOptions(commands, command);
        page += MakeRoffRows(ListRows(*command, other == nullptr));
        if (other != nullptr) {
            page += ".PP\n" + EscapeRoff(MakeReference(*other)) + "\n";
        }
    }
    for (const HelpSection& section : sections) {
        page += ".SH " + EscapeRoff(MakeUpper(section.title)) + "\n";
        if (!section.text.empty()) page += EscapeRoff(section.text) + "\n";
        page += MakeRoffRows(section.rows);
    }
    return page;
}

std::string WriteReadmeSection(const CLI::App& app, const std::vector<HelpSection>& sections)
{
    const Commands commands = ListCommands(app);
    std::string text = kReadmeHeading;
    if (commands.empty()) {
        text = kReadmeHeadingWithoutCommands;
        text += "\n`" + GetUsage(app, app.get_name()) + "`\n";
    }
    for (const CLI::App* command : commands) {
        text += "\n### `" + GetUsage(app, *command) + "`\n\n" + command->get_description() + ".\n";
        const CLI::App* const other = FindSameOptions(commands, command);
        text += MakeMarkdownTable(ListRows(*command, other == nullptr));
        if (other != nullptr) text += "\n" + MakeReference(*other) + "\n";
    }
    text += "\n## Options\n" + MakeMarkdownTable(ListRows(app, true));
    for (const HelpSection& section : sections) {
        text += "\n## " + section.title + "\n";
        if (!section.text.empty()) text += "\n" + section.text + "\n";
        text += MakeMarkdownTable(section.rows);
    }
    return text;
}

std::string ReplaceReadmeSection(const std::string& readme, const std::string& section)
{
    const std::string heading = section.substr(0, section.find('\n') + 1);
    const size_t start = readme.find("\n" + heading);
    return start == std::string::npos ? readme + "\n" + section
                                      : readme.substr(0, start + 1) + section;
}

}  // namespace console
