#include "plugin-core/panel/page/PageFiles.h"

namespace plugincore {

const PageFile* FindPageFile(std::string_view path)
{
    static constexpr PageFile kPage = {"/", "text/html; charset=utf-8",
                                       "<!doctype html><title>Fonts</title>"};
    return path == kPage.path ? &kPage : nullptr;
}

}  // namespace plugincore
