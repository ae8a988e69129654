#include "model/RecordedFonts.h"

namespace headless {

std::set<std::string> RecordedFonts::ListActiveNames()
{
    std::set<std::string> names = mSource.ListActiveNames();
    if (mJournal.IsOpen() && names != mWritten) {
        mJournal.Write("world", "active fonts", {{"names", names}}, nullptr);
        mWritten = names;
    }
    return names;
}

std::string RecordedFonts::GetDefaultName(const std::string& language)
{
    std::string name = mSource.GetDefaultName(language);
    if (mJournal.IsOpen()) {
        mJournal.Write("world", "default font", {{"language", language}}, name);
    }
    return name;
}

}  // namespace headless
