#pragma once

#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace plugincore {

// Shows a message in the host's alert, or on standard error if the host has none.
void ShowAlert(const std::string& message, const std::string& information);

// Whether the user can be asked: the environment variable CORVANTA_INTERACTIVE is "1".
bool IsInteractive();

// Asks which fonts to activate, in one question that numbers them. Returns all for the answer "y",
// none for "n" or the end of the input, and the listed ones for numbers. Repeats the question after
// any other answer.
std::vector<std::string> AskForFonts(const std::vector<std::string>& names, std::istream& in,
                                     std::ostream& out);

// Asks for one line. Returns it without spaces at its ends, or "" at the end of the input.
std::string AskForText(const std::string& question, std::istream& in, std::ostream& out);

// The fonts that the user refused, by document. The plug-in asks about a document twice while it is
// opened; the user must not see the same question twice.
class Refusals {
public:
    // Begins the opening of a document: forgets what was refused for it and makes it the current
    // document.
    void Begin(const std::string& document);

    // Makes a document the current one.
    void Continue(const std::string& document) { mDocument = document; }

    // Whether the name was refused for the current document.
    bool Has(const std::string& name) const;

    // Whether the name was refused for a document.
    bool HasFor(const std::string& document, const std::string& name) const;

    // Adds a name that is refused for the current document.
    void Add(const std::string& name) { mNames[mDocument].insert(name); }

    // Forgets what was refused for a document.
    void Forget(const std::string& document) { mNames.erase(document); }

private:
    std::string mDocument;  // the current document
    std::map<std::string, std::set<std::string>> mNames;
};

}  // namespace plugincore
