#pragma once

#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace plugincore {

// Shows both texts on the host's alert, else on standard error.
void ShowAlert(const std::string& message, const std::string& information);

// Whether the user is asked at all: the environment variable CORVANTA_INTERACTIVE is "1".
bool IsInteractive();

// Asks which of the fonts to activate, in one question that lists them by number. "y" takes all,
// "n" none, numbers those. Any other answer is asked again; the end of the input takes none.
std::vector<std::string> AskForFonts(const std::vector<std::string>& names, std::istream& in,
                                     std::ostream& out);

// Asks for one line, as for a path. Blanks around it are dropped; the end of the input gives the
// empty text.
std::string AskForText(const std::string& question, std::istream& in, std::ostream& out);

// What the user said no to, so that the second look at a document that is being opened doesn't ask
// the same again.
class Refusals {
public:
    // A document is about to be opened: what was refused for it earlier is asked again.
    void Begin(const std::string& document);

    // The document that the coming question is about.
    void Continue(const std::string& document) { mDocument = document; }

    bool Has(const std::string& name) const;

    // The same for a certain document.
    bool HasFor(const std::string& document, const std::string& name) const;
    void Add(const std::string& name) { mNames[mDocument].insert(name); }
    void Forget(const std::string& document) { mNames.erase(document); }

private:
    std::string mDocument;
    std::map<std::string, std::set<std::string>> mNames;
};

}  // namespace plugincore
