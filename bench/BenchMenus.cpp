#include "BenchMenus.h"

#include <cstdint>
#include <nlohmann/json.hpp>

namespace bench_menus {

namespace {

uintptr_t sItems = 0;

nlohmann::json MakeNode(int number)
{
    const std::string text = std::to_string(number);
    return {{"id", "id" + text},       {"label", "label" + text},
            {"title", "Item " + text}, {"checked", number % 2 == 0},
            {"enabled", true},         {"child", nlohmann::json::array()}};
}

}  // namespace

AIMenuSuite* GetMenuSuite()
{
    static AIMenuSuite sMenus = {
        [](SPPluginRef, const char*, AIPlatformAddMenuItemDataUS*, int32_t,
           AIMenuItemHandle* item) -> AIErr {
            *item = reinterpret_cast<AIMenuItemHandle>(++sItems);
            return kHostSuccess;
        },
        [](AIMenuItemHandle) -> AIErr { return kHostSuccess; },
        [](AIMenuItemHandle) -> AIErr { return kHostSuccess; },
        [](AIMenuItemHandle, ai::UnicodeString& text) -> AIErr {
            return sAIUnicodeString->Initialize(&text, "Item 1", 6, kAIUTF8CharacterEncoding);
        },
        [](AIMenuItemHandle, bool) -> AIErr { return kHostSuccess; },
        [](AIMenuItemHandle, const char**) -> AIErr { return kHostBadParameter; },
        [](int* count) -> AIErr {
            *count = 0;
            return kHostSuccess;
        },
        [](int, AIMenuItemHandle*) -> AIErr { return kHostBadParameter; },
        [](const char*, int32_t, AIMenuItemHandle, AIMenuGroup*) -> AIErr { return kHostSuccess; },
        [](AIMenuItemHandle, AIMenuGroup*) -> AIErr { return kHostSuccess; },
        [](AIMenuItemHandle) -> AIErr { return kHostSuccess; },
    };
    return &sMenus;
}

std::string MakeTree(int nodes)
{
    nlohmann::json root = MakeNode(0);
    for (int number = 1; number <= nodes; ++number) {
        if (number % 11 == 1) {
            root["child"].push_back(MakeNode(number));
        } else {
            root["child"].back()["child"].push_back(MakeNode(number));
        }
    }
    return root.dump();
}

}  // namespace bench_menus
