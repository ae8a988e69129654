// fuzz-seeds FOLDER: writes small documents of each kind, the seeds of the fuzzers, into FOLDER.
#include <cstdio>
#include <fstream>
#include <string>

#include "NativeMaker.h"
#include "PdfMaker.h"

namespace {

bool Write(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return file.good();
}

NativeMaker MakeNative(NativeMaker::Keys keys)
{
    return NativeMaker(keys)
        .SetFonts({"One-Regular", "Two-Bold"})
        .AddStyle(0)
        .AddStyle(-1, 0)
        .AddStory({{0, 4}, {-1, 3, 1}, {1, 2}}, {5, 4})
        .AddStory({{1, 5}})
        .AddFrame(0, 0)
        .AddFrame(0, 1)
        .AddFrame(1)
        .AddLines(
            "`(/Art/a.eps)\n%%IncludeFile:/Art/a.eps\n(/Art/b.tif) 0 XG\n() 1 XG\n"
            "%%BeginData: 4\nXI\nab\n%%EndData\n0 To\n/_Courier 1 1 1 Tf\n(abc) Tx 1 0 Tk\n"
            "(\\r) TX\nTO\n%_/AI11Text :\n%_1 /FreeUndo ,\n%_0 /FrameIndex ,\n"
            "%_0 /StoryIndex ,\n%_;");
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        (void)std::fputs("usage: fuzz-seeds FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const NativeMaker numbers = MakeNative(NativeMaker::Keys::kNumbers);
    const NativeMaker words = MakeNative(NativeMaker::Keys::kWords);
    const std::string page =
        PdfMaker()
            .SetContent("q /F1 9 Tf BT [(abc) -5 (d)] TJ ET Q /F3 9 Tf BT <0041> Tj ET")
            .Make();
    const bool good = Write(folder + "tree-numbers", numbers.MakeTree()) &&
                      Write(folder + "tree-words", words.MakeTree()) &&
                      Write(folder + "text-numbers", numbers.MakeText()) &&
                      Write(folder + "text-words", words.MakeText("\r\n")) &&
                      Write(folder + "zlib.ai", WrapInPdf(PackZlib(numbers.MakeText()))) &&
                      Write(folder + "zstd.ai", WrapInPdf(PackZstandard(numbers.MakeText()))) &&
                      Write(folder + "plain.ai", WrapInPdf(PackPlain(words.MakeText()), 1)) &&
                      Write(folder + "native.eps", WrapInEps(words.MakeText())) &&
                      Write(folder + "dos.eps", WrapInDosEps(WrapInEps(words.MakeText()))) &&
                      Write(folder + "page.pdf", page);
    if (!good) (void)std::fprintf(stderr, "fuzz-seeds: %s: cannot write a file\n", argv[1]);
    return good ? 0 : 1;
}
