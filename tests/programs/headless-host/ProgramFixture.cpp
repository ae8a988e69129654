#include "ProgramFixture.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

ProgramFixture::ProgramFixture() { std::filesystem::create_directory(folder + "/core"); }

int ProgramFixture::RunProgram(const std::string& arguments, const std::string& plugin,
                               const std::string& input)
{
    const std::string command = "cd '" + folder + "' && " + before +
                                " '" HEADLESS_HOST_PROGRAM "' " + arguments + " --home '" + folder +
                                "/home' --plugin '" TEST_PLUGINS_FOLDER "/" + plugin + ".aip' >" +
                                outputFile + " 2>err <" + input;
    const int status = std::system(command.c_str());
    output = ReadFile("out");
    errors = ReadFile("err");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string ProgramFixture::ReadFile(const std::string& name) const
{
    std::ifstream stream(folder + "/" + name);
    std::stringstream text;
    text << stream.rdbuf();
    return text.str();
}
