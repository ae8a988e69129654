#include "EndToEnd.h"
#include "RefusedCores.h"

using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(EndToEnd, WithoutPluginCoreNothingIsOpened)
{
    pluginCore.clear();
    EXPECT_EQ(4, Open(Sample("leaflet.eps") + " --json"));
    EXPECT_THAT(errors, HasSubstr("Missing PluginCore"));
    EXPECT_THAT(errors, HasSubstr("./CorvantaFontManagement..."));
    EXPECT_THAT(ActiveFonts(), testing::ElementsAre("DejaVuSansMono"));
}

class RefusedCore : public EndToEnd, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedCore, GivesAnAlertAndExitStatus4)
{
    pluginCore = std::filesystem::path(SCRIPTED_PLUGIN_CORE_FOLDER) / GetParam();
    ASSERT_TRUE(std::filesystem::exists(pluginCore / "PluginCore.framework/PluginCore"));
    EXPECT_EQ(4, Open(Sample("leaflet.eps") + " --json"));
    EXPECT_THAT(errors, HasSubstr("Incompatible PluginCore"));
    EXPECT_THAT(errors, HasSubstr("PluginCore.framework (version "));
    EXPECT_THAT(output, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Variants, RefusedCore, testing::ValuesIn(kRefusedCores),
                         [](const auto& information) { return GetNameOfCore(information.param); });
