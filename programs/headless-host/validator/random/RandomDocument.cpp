#include "validator/random/RandomDocument.h"

#include "session/SessionWords.h"

namespace headless {

namespace {

constexpr const char* kFonts[] = {"Default-Regular", "Alpha-Regular",           "Beta-Bold",
                                  "Gamma-Italic",    "Delta-Regular",           "Missing-One",
                                  "Missing-Two",     "Gr\303\266\303\237e-Fett"};

constexpr const char* kPlacedPaths[] = {"a.ai", "b.ai", "letter.eps", "print.pdf", "picture.png"};

// Names of fonts, separated by commas; one may occur twice.
std::string PickFonts(RandomNumbers& random, uint64_t most)
{
    std::string fonts = PickFont(random);
    for (uint64_t more = random.Below(most); more > 0; --more) fonts += "," + PickFont(random);
    return fonts;
}

std::string PickPaths(RandomNumbers& random)
{
    std::string paths = random.Pick(kPlacedPaths);
    if (random.Once(2)) paths += ",no such file.ai";
    return paths;
}

}  // namespace

std::string PickFont(RandomNumbers& random) { return random.Pick(kFonts); }

std::string MakeDocumentLine(RandomNumbers& random, const std::string& path, bool isReadable)
{
    std::string line = "document " + QuoteSessionWord(path);
    const auto add = [&line](const std::string& text) { line += " " + QuoteSessionWord(text); };
    if (!isReadable) add("unreadable");
    switch (random.Below(9)) {
        case 0:
            add("frames=0");
            break;
        case 1:
            add("frames=" + std::to_string(random.Between(1, 4)));
            add("empty");
            break;
        case 2:
            add("fonts=" + PickFonts(random, 3));
            add("runs=" + std::to_string(random.Between(1, random.Once(10) ? 2000 : 60)));
            break;
        case 3:
            add("fonts=" + PickFonts(random, 5));
            add("frames=" + std::to_string(random.Between(2, 40)));
            break;
        case 4:
            add("fonts=Missing-One," + PickFonts(random, 3));
            break;
        case 5:
            add("fonts=" + PickFonts(random, 2));
            add("placed=" + PickPaths(random));
            break;
        case 6:
            add("fonts=" + PickFonts(random, 2));
            add("listed=" + PickFonts(random, 4));
            break;
        case 7:
            break;
        default:
            add("fonts=" + PickFonts(random, 4));
            break;
    }
    return line;
}

}  // namespace headless
