#include "EndToEnd.h"

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

// What the host says if fontconfig knows no fonts, or has no configuration.
class Fontconfig : public EndToEnd {
protected:
    // Opens a document with a configuration file of this text. Expects no violation.
    void OpenWith(const std::string& configuration)
    {
        WriteFile(scratch / "fonts.conf", configuration);
        EXPECT_LE(Open(Sample("missing-font.pdf")), 1) << errors;
        EXPECT_THAT(errors, Not(HasSubstr("plug-in error")));
    }
};

TEST_F(Fontconfig, ASystemWithoutFontsIsReportedInOneLine)
{
    OpenWith("<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>" +
             (scratch / "nothing").string() +
             "</dir><cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>");
    EXPECT_EQ("headless-host: fontconfig: there are no fonts on this system\n", errors);
}

TEST_F(Fontconfig, ABrokenConfigurationIsReportedInOneLine)
{
    OpenWith("<fontconfig><dir>");
    EXPECT_THAT(errors, MatchesRegex("headless-host: fontconfig: [^\n]*fonts.conf[^\n]*\n"));
}

TEST_F(Fontconfig, AMissingConfigurationIsReportedInOneLine)
{
    std::filesystem::remove(scratch / "fonts.conf");
    EXPECT_LE(Open(Sample("missing-font.pdf")), 1);
    EXPECT_THAT(errors, StartsWith("headless-host: fontconfig: Cannot load default config file"));
    EXPECT_THAT(errors, MatchesRegex("[^\n]*\n"));
}

TEST_F(Fontconfig, AnUnreadableConfigurationIsReportedInOneLine)
{
    std::filesystem::remove(scratch / "fonts.conf");
    std::filesystem::create_directory_symlink("fonts.conf", scratch / "fonts.conf");
    EXPECT_LE(Open(Sample("missing-font.pdf")), 1);
    EXPECT_THAT(errors, MatchesRegex("headless-host: fontconfig: [^\n]*fonts.conf[^\n]*\n"));
}
