#pragma once

#include <set>
#include <string>

#include "model/HostFonts.h"
#include "model/Journal.h"

namespace headless {

// A source of fonts that writes to the journal what another one answers: the active names each time
// they are others, and each default font.
class RecordedFonts : public FontSource {
public:
    // Both must outlive this object.
    RecordedFonts(FontSource& source, Journal& journal) : mSource(source), mJournal(journal) {}

    std::set<std::string> ListActiveNames() override;
    std::string GetDefaultName(const std::string& language) override;
    std::map<std::string, documents::FontFile> ListFiles() override { return mSource.ListFiles(); }
    std::string GetProblem() override { return mSource.GetProblem(); }

private:
    FontSource& mSource;
    Journal& mJournal;
    std::set<std::string> mWritten;  // the active names in the journal's last line about them
};

}  // namespace headless
