// write-pages FOLDER
//     Writes for each program the manual page PROGRAM.1, the completions PROGRAM.bash, PROGRAM.fish
//     and PROGRAM.zsh, and the reference part of its README PROGRAM.md into FOLDER.
// write-pages --readme PROGRAM README
//     Replaces the reference part of the file README, which the tests compare.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "commands/CommandLine.h"
#include "console/BashCompletion.h"
#include "console/CommandPages.h"
#include "console/FishCompletion.h"
#include "console/ZshCompletion.h"
#include "docfonts/commands/CommandLine.h"
#include "vexcor/commands/CommandLine.h"

namespace {

struct Pages {
    std::string manual;
    std::string readmeSection;
    std::string bash;
    std::string fish;
    std::string zsh;
};

Pages MakePages(const CLI::App& app, const std::vector<console::HelpSection>& sections)
{
    return {console::WriteManPage(app, sections), console::WriteReadmeSection(app, sections),
            console::WriteBashCompletion(app), console::WriteFishCompletion(app),
            console::WriteZshCompletion(app)};
}

Pages MakePages(const std::string& program)
{
    if (program == "headless-host") {
        headless::Options options;
        return MakePages(*headless::MakeCommandLine(options), headless::ListHelpSections());
    }
    if (program == "Vexcor") {
        vexcor::Options options;
        return MakePages(*vexcor::MakeCommandLine(options), vexcor::ListHelpSections());
    }
    if (program == "docfonts") {
        docfonts::Options options;
        return MakePages(*docfonts::MakeCommandLine(options), docfonts::ListHelpSections());
    }
    throw std::runtime_error(program +
                             ": unknown program; expected docfonts, headless-host or Vexcor");
}

std::string Read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    if (!file) throw std::runtime_error(path + ": cannot be written");
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string first = argc > 1 ? argv[1] : "";
    try {
        if (argc == 2 && first != "--readme") {
            for (const std::string program : {"docfonts", "headless-host", "Vexcor"}) {
                const Pages pages = MakePages(program);
                std::string start = first;
                start.append("/").append(program);
                Write(start + ".1", pages.manual);
                Write(start + ".bash", pages.bash);
                Write(start + ".fish", pages.fish);
                Write(start + ".zsh", pages.zsh);
                Write(start + ".md", pages.readmeSection);
            }
            return 0;
        }
        if (argc == 4 && first == "--readme") {
            const std::string section = MakePages(argv[2]).readmeSection;
            Write(argv[3], console::ReplaceReadmeSection(Read(argv[3]), section));
            return 0;
        }
    } catch (const std::exception& exception) {
        (void)std::fprintf(stderr, "write-pages: %s\n", exception.what());
        return 1;
    }
    (void)std::fputs("usage: write-pages FOLDER | write-pages --readme PROGRAM README\n", stderr);
    return 2;
}
