#include "plugin-core/documents/Dialogs.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <istream>
#include <ostream>
#include <sstream>

#include "HostPlatform_Linux.h"
#include "base/Strings.h"
#include "plugin-core/storage/ErrorLog.h"

namespace plugincore {
namespace {

// Marks the fonts whose numbers are in the answer. Returns false if the answer has anything else.
bool ReadNumbers(const std::string& answer, std::vector<bool>& marked)
{
    std::string words = answer;
    std::replace(words.begin(), words.end(), ',', ' ');
    std::istringstream stream(words);
    bool any = false;
    for (std::string word; stream >> word;) {
        size_t number = 0;
        std::istringstream digits(word);
        if (!(digits >> number) || !digits.eof() || number < 1 || number > marked.size()) {
            return false;
        }
        marked[number - 1] = true;
        any = true;
    }
    return any;
}

}  // namespace

void ShowAlert(const std::string& message, const std::string& information)
{
    using GetTable = SHostPlatform* (*)();
    // Looked up by name: PluginCore must load into programs that don't export it, such as Vexcor.
    const auto getTable = reinterpret_cast<GetTable>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    SHostPlatform* platform = getTable ? getTable() : nullptr;
    if (platform && platform->showAlert) {
        platform->showAlert(message.c_str(), information.c_str());
    } else {
        LogError(message + ": " + information);
    }
}

bool IsInteractive()
{
    const char* value = std::getenv("CORVANTA_INTERACTIVE");
    return value && std::string(value) == "1";
}

std::vector<std::string> AskForFonts(const std::vector<std::string>& names, std::istream& in,
                                     std::ostream& out)
{
    if (names.empty()) return {};
    for (;;) {
        out << "The document uses fonts that aren't active:\n";
        for (size_t position = 0; position < names.size(); ++position) {
            out << "  " << position + 1 << "  " << names[position] << '\n';
        }
        out << "Activate them? (y, n, or numbers) " << std::flush;
        std::string line;
        if (!std::getline(in, line)) return {};
        const std::string answer(base::Trim(line));
        if (answer == "y" || answer == "yes") return names;
        if (answer == "n" || answer == "no") return {};
        std::vector<bool> marked(names.size(), false);
        if (!ReadNumbers(answer, marked)) continue;
        std::vector<std::string> chosen;
        for (size_t position = 0; position < names.size(); ++position) {
            if (marked[position]) chosen.push_back(names[position]);
        }
        return chosen;
    }
}

std::string AskForText(const std::string& question, std::istream& in, std::ostream& out)
{
    out << question << ' ' << std::flush;
    std::string line;
    if (!std::getline(in, line)) return {};
    return std::string(base::Trim(line));
}

void Refusals::Begin(const std::string& document)
{
    mNames.erase(document);
    mDocument = document;
}

bool Refusals::Has(const std::string& name) const { return HasFor(mDocument, name); }

bool Refusals::HasFor(const std::string& document, const std::string& name) const
{
    const auto names = mNames.find(document);
    return names != mNames.end() && names->second.count(name) != 0;
}

}  // namespace plugincore
