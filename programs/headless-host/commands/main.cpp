#include <exception>

#include "application/ExitStatus.h"
#include "commands/CommandLine.h"
#include "commands/FontsCommand.h"
#include "commands/OpenCommand.h"
#include "commands/ReplayCommand.h"
#include "commands/SessionCommand.h"
#include "commands/ValidateCommand.h"
#include "console/Console.h"

int main(int argc, char** argv)
{
    console::SetProgramName("headless-host");
    try {
        headless::Options options;
        std::string text;
        switch (headless::ParseCommandLine(argc, argv, options, text)) {
            case console::ParseOutcome::kRun:
                if (options.action == headless::Command::kFonts) {
                    return headless::RunFontsCommand(options);
                }
                if (options.action == headless::Command::kReplay) {
                    return headless::RunReplayCommand(options);
                }
                if (options.action == headless::Command::kValidate) {
                    return headless::RunValidateCommand(options);
                }
                return options.action == headless::Command::kScript
                           ? headless::RunSessionCommand(options)
                           : headless::RunOpenCommand(options);
            case console::ParseOutcome::kDone:
                return console::Print(text) ? headless::kAllOpened : headless::kWrongUse;
            case console::ParseOutcome::kWrongUse:
                break;
        }
        console::PrintError(text + " (see headless-host --help)");
        return headless::kWrongUse;
    } catch (const std::exception& exception) {
        console::PrintException(exception);
        return headless::kWrongUse;
    }
}
