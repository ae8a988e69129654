#include "plugin-core/activation/UnavailableFont.h"

#include "base/Files.h"

namespace plugincore {

std::string GetReasonUnavailable(FontLibrary& library, const std::string& name,
                                 const std::string& file)
{
    if (file.empty()) return "in no font library";
    if (!base::IsReadableFile(file)) return kUnreadableFile;
    if (!library.Find(name)) return "not in the selected library " + library.GetSelection();
    return {};
}

}  // namespace plugincore
