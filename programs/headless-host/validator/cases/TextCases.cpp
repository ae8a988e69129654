#include "session/SessionWords.h"
#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about the text of documents.
namespace headless {

namespace {

// Opens, uses and closes a document.
std::string Walk(const std::string& content)
{
    return "document a.ai " + content + "\nactive Known-Regular\nopen a.ai\n" +
           "send \"AI Menu\" \"AI Go\" item=1\nchange\nsave\nclose\ntick\n";
}

void AddContents(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 901, "nothing", Walk("frames=0"));
    AddCase(cases, 901, "placed files", Walk("frames=0 placed=a.txt,b.txt"));
    AddCase(cases, 901, "listed fonts", Walk("frames=0 listed=A,B"));
    AddCase(cases, 902, "one", Walk("empty"));
    AddCase(cases, 902, "many", Walk("frames=200 empty"));
    AddCase(cases, 902, "with fonts listed", Walk("frames=3 empty listed=A"));
    AddCase(cases, 903, "missing", Walk("placed=none.txt,/none/none.pdf"));
    AddCase(cases, 903, "there", "document b.ai\n" + Walk("placed=b.ai"));
    AddCase(cases, 903, "the document itself", Walk("placed=a.ai"));
    AddCase(cases, 903, "odd paths", Walk("'placed=,/,.,..,//,a b,\xFF'"));
    std::string files = "0.png";
    for (int i = 1; i < 500; ++i) files += "," + std::to_string(i) + ".png";
    AddCase(cases, 903, "many", Walk("placed=" + files));
    AddCase(cases, 904, "one frame", Walk("fonts=A,B,C"));
    AddCase(cases, 904, "many runs", Walk("fonts=A,B runs=20"));
    AddCase(cases, 904, "known and missing", Walk("fonts=Known-Regular,A,Default-Regular runs=7"));
    AddCase(cases, 904, "many frames", Walk("fonts=A,B,C,D frames=10"));
    AddCase(cases, 905, "one font", Walk("fonts=A runs=5000"));
    AddCase(cases, 905, "many fonts", Walk("fonts=A,B,C,D,E,F,G runs=5000"));
    AddCase(cases, 906, "with text", Walk("fonts=A,B frames=3000"));
    AddCase(cases, 906, "empty", Walk("frames=3000 empty"));
    AddCase(cases, 910, "missing", Walk("fonts=Known-Regular listed=A,B"));
    AddCase(cases, 910, "beside the default font", Walk("fonts=Default-Regular listed=A,B"));
    AddCase(cases, 910, "active", Walk("fonts=A listed=Known-Regular"));
    AddCase(cases, 910, "both in use", Walk("fonts=A,B listed=A,B,C"));
    AddCase(cases, 912, "all frames", Walk("fonts=A frames=50 runs=10"));
    AddCase(cases, 912, "named again", Walk("fonts=A,B,A,A,B,A"));
}

std::string ListFonts(size_t count)
{
    std::string fonts = "fonts=";
    for (size_t i = 0; i < count; ++i) {
        fonts += (i == 0 ? "Font-" : ",Font-") + std::to_string(i);
    }
    return fonts;
}

void AddFontNames(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 913, "500", Walk(ListFonts(500)));
    AddCase(cases, 913, "2000", Walk(ListFonts(2000)));
    for (const size_t size : {1, 31, 63, 64, 127, 128, 254, 255, 256, 257, 1000}) {
        AddCase(cases, 908, std::to_string(size) + " letters",
                Walk("fonts=" + std::string(size, 'F') + ",A"));
    }
    const std::vector<std::pair<const char*, std::string>> names = {
        {"blanks", "Two Words"},      {"quotes", "Quote\"d'Name"},
        {"backslash", "Back\\slash"}, {"braces", "{\"fonts\":[]}"},
        {"format", "%s%n%d"},         {"other scripts", "\xE6\x98\x8E\xE6\x9C\x9D-\xD0\x96"},
        {"not UTF-8", "Bad\xFF\xC3"}, {"control characters", "Bell\x07\x1B[0m"},
    };
    for (const auto& [name, font] : names) {
        AddCase(cases, 908, name, Walk(QuoteSessionWord("fonts=" + font + ",A")));
    }
}

void AddTextFailures(std::vector<ValidatorCase>& cases)
{
    const std::string start =
        "document a.ai fonts=A,B,Known-Regular frames=3 runs=4 placed=p.txt\n";
    const std::string open = "active Known-Regular\nopen a.ai\nclose\n";
    const auto add = [&](int rule, const std::string& operation) {
        const std::string fail = "fail " + operation + "\n";
        AddCase(cases, rule, operation,
                start + "start\n" + fail + open + "open a.ai\n" + fail +
                    "send \"AI Menu\" \"AI Go\" item=1\n" + fail + "change\n" + fail +
                    "save\nclose\n");
    };
    for (const char* const operation : {"FontKeyFromFontRef", "GetPostScriptFontName", "GetFont"}) {
        add(907, operation);
        // The failures are performed from inside of the calls before.
        AddCase(cases, 907, std::string(operation) + " for several runs",
                start + "start\n" + "during GetTextRunsIterator fail " + operation +
                    "\nduring IsNotDone fail " + operation + "\nduring Next fail " + operation +
                    "\n" + open);
    }
    for (const std::string& operation : ListTextOperations()) {
        add(909, operation);
        AddCase(cases, 914, operation,
                start + "start\nduring " + operation + " text Added-Font\n" + open + "open a.ai\n");
    }
    for (const int number : {10, 20, 30, 40, 60, 80}) {
        AddCase(cases, 909, "call " + std::to_string(number),
                start + "start\nfail-call " + std::to_string(number) + " 1\n" + open);
    }
    add(911, "GetDefaultFontForScript");
    add(911, "GetPostScriptFontName");
    AddCase(cases, 911, "default font in use",
            "start\nfail GetDefaultFontForScript\n" + Walk("fonts=Default-Regular,A"));
}

}  // namespace

void AddTextCases(std::vector<ValidatorCase>& cases)
{
    AddContents(cases);
    AddFontNames(cases);
    AddTextFailures(cases);
}

}  // namespace headless
