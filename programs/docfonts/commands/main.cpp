#include <exception>
#include <string>

#include "console/Console.h"
#include "docfonts/commands/CommandLine.h"
#include "docfonts/commands/ExitStatus.h"
#include "docfonts/commands/ReportDocuments.h"

int main(int argc, char** argv)
{
    console::SetProgramName("docfonts");
    try {
        docfonts::Options options;
        std::string text;
        switch (docfonts::ParseCommandLine(argc, argv, options, text)) {
            case console::ParseOutcome::kRun:
                return docfonts::ReportDocuments(options);
            case console::ParseOutcome::kDone:
                return console::Print(text) ? docfonts::kAllHere : docfonts::kFileFailed;
            case console::ParseOutcome::kWrongUse:
                break;
        }
        console::PrintError(text + " (see docfonts --help)");
        return docfonts::kWrongUse;
    } catch (const std::exception& exception) {
        console::PrintException(exception);
        return docfonts::kWrongUse;
    }
}
