#include "CoreTestHome.h"

#include <dlfcn.h>

#include <stdexcept>

namespace fs = std::filesystem;

Framework::Framework() : mLibrary(dlopen(PLUGIN_CORE_FILE, RTLD_NOW | RTLD_LOCAL))
{
    if (!mLibrary) throw std::runtime_error(dlerror());
#define LOOK_UP(name) p##name = reinterpret_cast<name##Function>(dlsym(mLibrary, #name));
    PLUGIN_CORE_FUNCTIONS(LOOK_UP)
#undef LOOK_UP
}

bool Framework::Start() const { return pInitializePluginCoreInterface("test", "24") == 0; }

std::string Framework::Open(const std::string& path, const std::string& fontsJson) const
{
    std::string buffer(65536, '\0');
    fontsJson.copy(buffer.data(), fontsJson.size());
    size_t size = buffer.size();
    int value = 0;
    (void)pHandleOpenExistingDocument(path.c_str(), buffer.data(), &size, &value);
    return buffer.c_str();
}

unsigned int Framework::OpenAndActivate(const std::string& path, const std::string& fontsJson) const
{
    std::string buffer = Open(path, fontsJson);
    if (buffer.empty()) return 0;
    buffer.resize(65536, '\0');
    size_t size = buffer.size();
    int value = 0;
    const unsigned int status = pInvokeResolveDialog(buffer.data(), &size);
    return status != 0 ? status : pActivateChosenFonts(path.c_str(), buffer.c_str(), &value);
}

std::string MakeFontList(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ",") + ("{\"PostScriptName\":\"" + name + "\"}");
    }
    return "[" + text + "]";
}

std::vector<fs::path> ListActivationFolder(const FontTestHome& home)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (const auto& entry :
         fs::recursive_directory_iterator(home.GetUserFonts() / "corvanta", error)) {
        files.push_back(entry.path());
    }
    return files;
}
