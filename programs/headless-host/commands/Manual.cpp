#include "commands/Manual.h"

#include "application/ExitStatus.h"
#include "application/Options.h"
#include "session/ActionTable.h"

namespace headless {

namespace {

// As it stands, whatever the formatter thinks of it.
std::string EscapeRoff(const std::string& text)
{
    std::string escaped = !text.empty() && (text[0] == '.' || text[0] == '\'') ? "\\&" : "";
    for (const char c : text) {
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
    }
    return escaped;
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

std::string GetUsage(const OptionRow& row)
{
    return row.argument == nullptr ? row.name : std::string(row.name) + " " + row.argument;
}

// A row of a list: what, and what it is for.
using AddRow = void (*)(std::string& text, const std::string& what, const std::string& help);

void AddRoffRow(std::string& text, const std::string& what, const std::string& help)
{
    text += ".TP\n\\fB" + EscapeRoff(what) + "\\fR\n" + EscapeRoff(help) + "\n";
}

void AddMarkdownRow(std::string& text, const std::string& what, const std::string& help)
{
    text += "| `" + EscapeMarkdown(what) + "` | " + EscapeMarkdown(help) + " |\n";
}

struct Lists {
    std::string options;
    std::string fontsOptions;
    std::string actions;
    std::string expectations;
    std::string statuses;
};

Lists MakeLists(AddRow add)
{
    Lists lists;
    for (const OptionRow& row : kOptions) add(lists.options, GetUsage(row), row.help);
    for (const OptionRow& row : kFontsOptions) add(lists.fontsOptions, GetUsage(row), row.help);
    for (const ActionRow& row : kActions) add(lists.actions, GetUsage(row), row.help);
    for (const ExpectRow& row : kExpectations) add(lists.expectations, GetUsage(row), row.help);
    for (const ExitStatusRow& row : kExitStatuses) {
        add(lists.statuses, std::to_string(row.status), row.meaning);
    }
    return lists;
}

constexpr char kSessionText[] =
    "A session is one action a line. Blanks stand between words; within double or single quotes "
    "they belong to the word. A word that begins with # and all behind it is a comment. A wrong "
    "line ends the session; an expectation that isn't met doesn't. Without a file, or with -, the "
    "lines come from standard input; on a terminal there is a prompt with history and completion.";

}  // namespace

std::string WriteManualPage()
{
    const Lists lists = MakeLists(AddRoffRow);
    return ".TH HEADLESS\\-HOST 1\n.SH NAME\n"
           "headless\\-host \\- opens documents as a design program with the font plug\\-in "
           "would\n.SH SYNOPSIS\n"
           ".B headless\\-host open\n[\\fIOPTION\\fR]... \\fIFILE\\fR...\n.br\n"
           ".B headless\\-host run\n[\\fIOPTION\\fR]... [\\fIFILE\\fR|\\-]\n"
           ".br\n.B headless\\-host fonts\n[\\fIOPTION\\fR]... \\fIFILE\\fR...\n"
           ".SH OPTIONS\n" +
           lists.options + ".SS Options of fonts\n" + lists.fontsOptions + ".SH SESSIONS\n" +
           EscapeRoff(kSessionText) + "\n" + lists.actions + ".SS Expectations\n" +
           lists.expectations + ".SH EXIT STATUS\nOf several the greatest.\n" + lists.statuses;
}

std::string WriteReadme()
{
    const Lists lists = MakeLists(AddMarkdownRow);
    const auto table = [](const char* what, const std::string& rows) {
        return std::string("| ") + what + " | |\n|---|---|\n" + rows;
    };
    return "# headless-host\n\n"
           "    headless-host open [OPTION]... FILE...\n"
           "    headless-host run [OPTION]... [FILE|-]\n"
           "    headless-host fonts [OPTION]... FILE...\n\n"
           "Opens documents as a design program with the font plug-in would. This page is what\n"
           "`headless-host --readme` prints; `headless-host --man` prints the manual page.\n\n"
           "## Options\n\n" +
           table("option", lists.options) + "\n## Options of fonts\n\n" +
           table("option", lists.fontsOptions) + "\n## Sessions\n\n" + kSessionText + "\n\n" +
           table("action", lists.actions) + "\n" + table("expectation", lists.expectations) +
           "\n## Exit status\n\nOf several the greatest.\n\n" + table("status", lists.statuses);
}

}  // namespace headless
