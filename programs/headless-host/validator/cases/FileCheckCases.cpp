#include "session/SessionWords.h"
#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about the check of files.
namespace headless {

namespace {

std::string Check(const std::string& path)
{
    return "send \"AI File Format\" \"AI Check\" " + QuoteSessionWord("path=" + path) + "\n";
}

// A document of this name, opened and used.
std::string Open(const std::string& path)
{
    const std::string word = QuoteSessionWord(path);
    return "document " + word + " fonts=A,B placed=p.txt\nopen " + word +
           "\nexpect documents 1\nsend \"AI Menu\" \"AI Go\" item=1\nchange\nclose\n" + Check(path);
}

void AddFileNames(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1001, "one file", "document a.ai\n" + Check("a.ai") + "tick");
    AddCase(cases, 1001, "with active fonts",
            "active A B\ndocument a.ai fonts=A\n" + Check("a.ai"));
    AddCase(cases, 1001, "then opened", Open("a.ai"));
    const std::vector<std::pair<const char*, std::string>> usual = {
        {"blanks", "two words  and more.ai"},
        {"umlauts",
         "gr\xC3\xBC\xC3\x9F"
         "e.ai"},
        {"decomposed umlauts", "gru\xCC\x88sse.ai"},
        {"Japanese", "\xE6\x96\x87\xE6\x9B\xB8.ai"},
        {"Arabic", "\xD9\x85\xD9\x84\xD9\x81.ai"},
        {"beyond 16 bits", "\xF0\x9F\x8E\xA8.ai"},
    };
    for (const auto& [name, path] : usual) AddCase(cases, 1002, name, Open(path));
    const std::vector<std::pair<const char*, std::string>> odd = {
        {"quotes", "it's \"it\".ai"},
        {"backslash", "a\\b\\n.ai"},
        {"percent", "100%s%n%d.ai"},
        {"tab", "a\tb.ai"},
        {"control characters", "a\x01\x1B[31m.ai"},
        {"shell", "$(exit 1);`exit 1`&|<>*?.ai"},
        {"colon", "a:b.ai"},
        {"leading hyphen", "-rf.ai"},
        {"leading number sign", "#a.ai"},
        {"markup", "<a>&amp;.ai"},
        {"only blanks", "   "},
    };
    for (const auto& [name, path] : odd) AddCase(cases, 1003, name, Open(path));
    const std::vector<std::pair<const char*, std::string>> invalid = {
        {"lone byte", "a\xFF.ai"},    {"cut off", "a\xE6\x96.ai"},
        {"too long", "a\xC0\xAF.ai"}, {"surrogate", "a\xED\xA0\x80.ai"},
        {"Latin-1", "gr\xFC\xDF.ai"},
    };
    for (const auto& [name, path] : invalid) AddCase(cases, 1005, name, Open(path));
    for (const char* const path :
         {"a.ai", "a.ait", "a.pdf", "a.eps", "a.epsf", "a.svg", "a.AI", "a.Eps", "a", ".ai", "a.",
          "a.ai.eps", "a.a", "a.\xC3\xA4", "a.tar.gz"}) {
        AddCase(cases, 1010, path,
                "document " + std::string(path) + " fonts=A\nopen " + path + "\nchange\nclose\n" +
                    Check(path));
    }
}

void AddLengths(std::vector<ValidatorCase>& cases)
{
    for (const size_t size : {250, 251, 252}) {
        AddCase(cases, 1004, "name of " + std::to_string(size + 3) + " bytes",
                Open(std::string(size, 'n') + ".ai"));
    }
    for (const size_t size : {255, 256, 1023, 1024, 4095, 4096, 4097, 70000, 1000000}) {
        std::string path;
        while (path.size() + 101 < size) path += "/" + std::string(100, 'd');
        path += "/" + std::string(size - path.size() - 1, 'e');
        AddCase(cases, 1004, "path of " + std::to_string(size) + " bytes",
                "start\n" + Check(path) + "new\n" + Check(path));
    }
}

void AddKinds(std::vector<ValidatorCase>& cases)
{
    const auto add = [&](int rule, const std::string& name, const std::string& path,
                         const std::string& before) {
        AddCase(cases, rule, name, before + "\n" + Check(path) + "new\n" + Check(path) + "tick\n");
    };
    add(1006, "missing", "none.ai", "start");
    add(1006, "missing folder", "/none/none/a.ai", "start");
    add(1006, "empty", "a.ai", "exec ': > a.ai'");
    add(1006, "unreadable", "a.ai", "exec 'echo x > a.ai; chmod 000 a.ai'");
    add(1006, "damaged document", "a.ai", "document a.ai unreadable");
    add(1007, "null", "null", "start");
    add(1007, "unknown", "unknown", "start");
    add(1007, "empty", "", "start");
    AddCase(cases, 1007, "null after a document",
            "document a.ai fonts=A\nopen a.ai\nclose\n" + Check("null") + "open a.ai\n");
    add(1008, "folder", "folder.ai", "exec 'mkdir folder.ai'");
    add(1008, "link to a file", "link.ai", "document a.ai\nexec 'ln -s a.ai link.ai'");
    add(1008, "link to a folder", "link.ai", "exec 'mkdir f; ln -s f link.ai'");
    add(1008, "link to nothing", "link.ai", "exec 'ln -s none.ai link.ai'");
    add(1008, "links in a circle", "link.ai",
        "exec 'ln -s other.ai link.ai; ln -s link.ai other.ai'");
    add(1008, "inside of a file", "a.ai/b.ai", "document a.ai");
    for (const char* const path :
         {"a.ai", "./a.ai", "../a.ai", "/", "//", ".", "..", "a.ai/", "//a.ai", "/./../a.ai", "~",
          "~/a.ai", "file:///a.ai", "C:\\a.ai", " ", "a//b/../a.ai"}) {
        add(1009, path, path, "document a.ai");
    }
}

void AddOrders(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1011, "with and without a document",
            "document a.ai fonts=A\n" + Check("a.ai") + "expect answer -1\nopen a.ai\n" +
                Check("a.ai") + "expect answer -1\nclose\n" + Check("none.ai") +
                "expect answer -1\n");
    AddCase(cases, 1011, "version 8",
            "exec 'printf \"%%!PS-Adobe-3.0 EPSF-3.0\\n%%%%Creator: x\\n\" > a.eps'\n" +
                Check("a.eps") + "expect answer -1\n");
    AddCase(cases, 1012, "one file",
            "document a.ai fonts=A\n" +
                Repeat(1000, R"(send "AI File Format" "AI Check" path=a.ai)") +
                "open a.ai\nclose\n");
    AddCase(cases, 1012, "many files",
            "document a.ai fonts=A\n" +
                Repeat(1000, R"(send "AI File Format" "AI Check" path=/f/%.ai)") +
                "open a.ai\nclose\n");
    AddCase(cases, 1012, "then a new document",
            "document a.ai fonts=A\n" + Check("a.ai") + "new\nchange\nclose\n" + Check("a.ai") +
                "open a.ai\n");
    const std::string two = "document a.ai fonts=A\ndocument b.ai fonts=B\nopen a.ai\nopen b.ai\n";
    AddCase(cases, 1013, "the current one", two + Check("b.ai") + "change\nclose\nchange");
    AddCase(cases, 1013, "another one", two + Check("a.ai") + "change\nclose 1\nchange");
    AddCase(cases, 1013, "a closed one", two + "close\n" + Check("b.ai") + "change\nopen b.ai\n");
    AddCase(cases, 1015, "vanished",
            "document a.ai fonts=A\n" + Check("a.ai") + "vanish a.ai\nopen a.ai\nnew\nchange\n");
    AddCase(cases, 1015, "replaced",
            "document a.ai fonts=A\n" + Check("a.ai") +
                "document a.ai fonts=B\nopen a.ai\nchange\nclose\n");
    AddCase(cases, 1015, "unreadable",
            "document a.ai fonts=A\n" + Check("a.ai") +
                "document a.ai unreadable\nopen a.ai\nnew\nchange\n");
    AddCase(
        cases, 1015, "another file opened",
        "document a.ai fonts=A\ndocument b.ai fonts=B\n" + Check("a.ai") + "open b.ai\nclose\n");
}

void AddBytes(std::vector<ValidatorCase>& cases)
{
    // The arguments of the shell's printf.
    const std::vector<std::pair<const char*, const char*>> contents = {
        {"first line only", "%%!PS-Adobe-3.0 EPSF-3.0"},
        {"cut off in a comment", "%%!PS-Adobe-3.0 EPSF-3.0\\n%%%%Crea"},
        {"creator without a value", "%%!PS-Adobe-3.0 EPSF-3.0\\n%%%%Creator:"},
        {"old Mac line ends", "%%!PS-Adobe-3.0 EPSF-3.0\\r%%%%Creator: A\\r%%%%EndComments\\r"},
        {"DOS line ends", "%%!PS-Adobe-3.0 EPSF-3.0\\r\\n%%%%Creator: A\\r\\n"},
        {"zero bytes", "%%!PS-Adobe\\0\\0\\n%%%%Creator\\0: A\\n\\0"},
        {"binary header", "\\305\\320\\323\\306\\377\\377\\377\\377\\377\\377\\377\\377"},
        {"PDF header", "%%PDF-1.99\\n%%%%EOF"},
        {"not UTF-8", "%%!PS-Adobe-3.0\\n%%%%Creator: \\377\\376\\n"},
    };
    for (const auto& [name, bytes] : contents) {
        AddCase(cases, 1014, name,
                "exec 'printf \"" + std::string(bytes) + "\" > a.eps; cp a.eps a.ai'\n" +
                    Check("a.eps") + Check("a.ai") + "new\n" + Check("a.eps"));
    }
    AddCase(cases, 1014, "one long line",
            "exec 'head -c 5000000 /dev/zero | tr \"\\\\0\" x > a.eps'\n" + Check("a.eps"));
    AddCase(cases, 1014, "only zero bytes",
            "exec 'head -c 5000000 /dev/zero > a.eps'\n" + Check("a.eps"));
    AddCase(cases, 1014, "only line ends",
            "exec 'head -c 100000 /dev/zero | tr \"\\\\0\" \"\\\\n\" > a.eps'\n" + Check("a.eps"));
    AddCase(cases, 1014, "a sparse file of 200 MB",
            "exec 'truncate -s 200M a.eps'\n" + Check("a.eps"));
}

}  // namespace

void AddFileCheckCases(std::vector<ValidatorCase>& cases)
{
    AddFileNames(cases);
    AddLengths(cases);
    AddKinds(cases);
    AddOrders(cases);
    AddBytes(cases);
}

}  // namespace headless
