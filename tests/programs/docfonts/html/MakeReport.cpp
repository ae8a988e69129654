// make-report PAGE [COPIES]: writes a report about sample documents, for tests in a browser.
// Without copies the documents are hostile.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "SampleReport.h"
#include "docfonts/html/HtmlReport.h"

int main(int count, char** arguments)
{
    if (count < 2) {
        (void)std::fputs("usage: make-report PAGE [COPIES]\n", stderr);
        return 2;
    }
    const int copies = count > 2 ? std::atoi(arguments[2]) : 1;
    docfonts::HtmlReport report(arguments[1], "22 November 2026, 15:30, on prepress-2");
    if (copies == 0) {
        report.Add(samplereport::MakeHostile());
        report.Add(samplereport::MakeHostile());
    }
    for (int copy = 0; copy < copies; ++copy) {
        docfonts::DocumentReport documents[] = {
            samplereport::MakePoster(), samplereport::MakeLeaflet(), samplereport::MakeTickets(),
            samplereport::MakeUnread()};
        for (docfonts::DocumentReport& document : documents) {
            if (copy > 0) document.path = std::to_string(copy) + "/" + document.path;
            report.Add(document);
        }
    }
    if (report.Finish()) return 0;
    (void)std::fprintf(stderr, "make-report: %s\n", report.GetError().c_str());
    return 1;
}
