#pragma once

#include <gmock/gmock.h>

#include <fstream>
#include <string>

#include "ProgramFixture.h"

// Plays scripts in simulations, with the program itself.
class SimulationFixture : public ProgramFixture {
protected:
    // Plays these lines after the line `simulate`. Returns the exit status.
    int Play(const std::string& lines, const std::string& plugin = "meets-faults",
             const std::string& arguments = "")
    {
        std::ofstream(folder + "/session") << "simulate\n" << lines << "\n";
        return RunProgram("script session " + arguments, plugin);
    }

    // Plays these lines and expects that nothing is wrong.
    void Pass(const std::string& lines, const std::string& plugin = "meets-faults")
    {
        EXPECT_EQ(0, Play(lines, plugin)) << lines << "\n" << errors;
        EXPECT_EQ("", errors) << lines;
    }

    // Plays these lines and expects one line about what is wrong.
    void Fail(int status, const std::string& message, const std::string& lines,
              const std::string& plugin = "meets-faults")
    {
        EXPECT_EQ(status, Play(lines, plugin)) << lines;
        EXPECT_EQ("headless-host: session: " + message + "\n", errors) << lines;
    }
};
