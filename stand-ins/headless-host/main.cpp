#include <cstdio>
#include <exception>

#include "ExitStatus.h"
#include "FontsCommand.h"
#include "OpenCommand.h"
#include "SessionCommand.h"

int main(int argc, char** argv)
{
    try {
        headless::Options options;
        std::string text;
        switch (headless::ParseCommandLine(argc, argv, options, text)) {
            case headless::ParseOutcome::kRun:
                if (options.action == headless::Command::kFonts) {
                    return headless::RunFontsCommand(options);
                }
                return options.action == headless::Command::kRun
                           ? headless::RunSessionCommand(options)
                           : headless::RunOpenCommand(options);
            case headless::ParseOutcome::kDone:
                return std::fputs(text.c_str(), stdout) < 0 ? headless::kWrongUse
                                                            : headless::kAllOpened;
            case headless::ParseOutcome::kWrongUse:
                break;
        }
        // Standard error is the last resort: a failure to write there can be told nobody.
        (void)std::fprintf(stderr, "headless-host: %s (see headless-host --help)\n", text.c_str());
        return headless::kWrongUse;
    } catch (const std::exception& exception) {
        (void)std::fprintf(stderr, "headless-host: %s\n", exception.what());
        return headless::kWrongUse;
    }
}
